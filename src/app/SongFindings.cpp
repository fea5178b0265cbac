#include "app/SongFindings.h"

#include "check/findings/FindingKinds.h"
#include "ui/ManualPage.h"
#include "ui/checks/FindingsPanel.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>

#include <algorithm>

namespace {

// What is only worth knowing has no mark.
QVector<Finding> wrongIn(const CheckedSong::Result &part)
{
    auto findings = part.alone->findings + part.together;
    findings.erase(
        std::remove_if(findings.begin(), findings.end(),
                       [](const Finding &finding) { return FindingKinds::severity(finding.kind) == Severity::Note; }),
        findings.end());
    return findings;
}

QString tipFor(const QVector<Finding> &findings)
{
    constexpr int mostShown = 5;
    QStringList lines;
    for (const auto &finding : findings) {
        const auto line = sentenceOf(finding);
        if (lines.contains(line))
            continue;
        if (lines.size() == mostShown) {
            lines.append(QStringLiteral("…"));
            break;
        }
        lines.append(line);
    }
    return lines.join(u'\n');
}

} // namespace

SongFindings::SongFindings(QMainWindow &window, SongChecks &checks, TrackRows &rows)
    : QObject(&window), checks_(checks), rows_(rows), dock_(new QDockWidget(tr("Will the Game Play It?"), &window)),
      panel_(new FindingsPanel)
{
    dock_->setObjectName(QStringLiteral("dockFindings"));
    dock_->setWidget(panel_);
    setManualPage(*dock_, "checks.md");
    window.addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    dock_->toggleViewAction()->setStatusTip(tr("Show what the game would not play as it is meant"));
    connect(&checks_, &SongChecks::changed, this, &SongFindings::show);
    connect(&rows_, &TrackRows::rowAdded, this, [this](const QString &id, TrackWidget *row) {
        showAtRow(id, *row);
        connect(row, &TrackWidget::findingsRequested, this, [this, id] { open(id); });
    });
    connect(dock_, &QDockWidget::visibilityChanged, this, [this](bool isVisible) {
        if (isVisible)
            panel_->show(checks_.checked());
    });
    connect(panel_, &FindingsPanel::placeChosen, this, &SongFindings::placeChosen);
    connect(panel_, &FindingsPanel::fixRequested, &checks_,
            [this](const FoundPlace &place) { checks_.fix(place.trackId, place.finding); });
    connect(panel_, &FindingsPanel::fixAllRequested, &checks_, &SongChecks::fixAll);
}

QAction *SongFindings::toggleAction() const
{
    return dock_->toggleViewAction();
}

void SongFindings::show()
{
    if (dock_->isVisible())
        panel_->show(checks_.checked());
    for (const auto &result : checks_.checked().parts()) {
        if (auto *const row = rows_.row(result.part.id))
            showAtRow(result.part.id, *row);
    }
}

void SongFindings::showAtRow(const QString &trackId, TrackWidget &row) const
{
    for (const auto &result : checks_.checked().parts()) {
        if (result.part.id != trackId)
            continue;
        const auto findings = wrongIn(result);
        row.setFindings(int(findings.size()), tipFor(findings));
    }
}

void SongFindings::open(const QString &trackId)
{
    dock_->show();
    dock_->raise();
    panel_->show(checks_.checked());
    panel_->showPart(trackId);
}
