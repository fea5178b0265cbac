#include "app/ImportReports.h"

#include "ui/report/ImportReportPanel.h"
#include "ui/report/ImportWords.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QStatusBar>

namespace {

QString lineFor(const ReadSong &song)
{
    auto sum = song.elsewhere;
    for (const auto &part : song.parts)
        sum.add(part);
    QStringList phrases{song.remark, lineOf(sum)};
    phrases.removeAll({});
    auto line = phrases.join(QStringLiteral("; "));
    if (!line.isEmpty())
        line[0] = line[0].toUpper();
    return line;
}

} // namespace

ImportReports::ImportReports(QMainWindow &window)
    : QObject(&window), status_(*window.statusBar()), dock_(new QDockWidget(tr("Import Report"), &window)),
      panel_(new ImportReportPanel), line_(new QLabel)
{
    dock_->setObjectName(QStringLiteral("dockImportReport"));
    dock_->setWidget(panel_);
    window.addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    dock_->toggleViewAction()->setStatusTip(tr("Show what the last import lost and changed"));
    line_->setObjectName(QStringLiteral("importLine"));
    line_->setTextFormat(Qt::RichText);
    line_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // the window may be narrower
    status_.addWidget(line_, 1);
    clear();
    connect(line_, &QLabel::linkActivated, dock_, [this] {
        dock_->show();
        dock_->raise();
    });
    connect(panel_, &ImportReportPanel::placeChosen, this, &ImportReports::placeChosen);
    connect(panel_, &ImportReportPanel::editRequested, this, &ImportReports::editRequested);
}

QAction *ImportReports::toggleAction() const
{
    return dock_->toggleViewAction();
}

void ImportReports::show(const ReadSong &song, const QStringList &trackIds)
{
    QVector<ReportedPart> parts;
    for (int i = 0; i < trackIds.size(); ++i)
        parts.append({trackIds[i], song.tracks[i], song.parts.value(i)});
    parts.append({{}, {}, song.elsewhere});
    const auto line = lineFor(song);
    panel_->show(line, parts);
    showLine(line);
}

void ImportReports::clear()
{
    panel_->show({}, {});
    showLine({});
}

void ImportReports::showLine(const QString &line)
{
    line_->setText(QStringLiteral("%1 - <a href=\"details\">%2</a>").arg(line.toHtmlEscaped(), tr("Details")));
    line_->setToolTip(line.toHtmlEscaped());
    line_->setVisible(!line.isEmpty());
    if (!line.isEmpty())
        status_.clearMessage(); // of what the mouse happens to be on, which would hide it
}
