#include "app/exporting/ExportNote.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace {

QToolButton *button(const char *name, const QString &text, const QString &tip)
{
    auto *const made = new QToolButton;
    made->setObjectName(QLatin1String(name));
    made->setText(text);
    made->setToolTip(tip);
    return made;
}

} // namespace

ExportNote::ExportNote(OpenFolder open, QWidget *parent) : QWidget(parent), text_(new QLabel)
{
    setObjectName(QStringLiteral("exportNote"));
    text_->setTextFormat(Qt::PlainText);
    auto *const folder =
        button("btnOpenFolder", tr("Open Folder"), tr("Show what was exported in the program for files"));
    auto *const close = button("btnCloseNote", QStringLiteral("\u00d7"), tr("Close"));
    connect(folder, &QToolButton::clicked, this, [this, open = std::move(open)] { open(folder_); });
    connect(close, &QToolButton::clicked, this, &QWidget::hide);

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(16, 0, 0, 0);
    for (auto *const widget :
         {static_cast<QWidget *>(text_), static_cast<QWidget *>(folder), static_cast<QWidget *>(close)})
        row->addWidget(widget);
    hide();
}

void ExportNote::tell(const QStringList &paths, const QString &remark)
{
    constexpr int widest = 420; // so that it has room in a small window
    const QFileInfo file(paths.value(0));
    folder_ = file.absolutePath();
    const auto what = paths.size() == 1 ? file.fileName() : tr("%1 files").arg(paths.size());
    const auto text = tr("Wrote %1").arg(what) + (remark.isEmpty() ? remark : QStringLiteral("; ") + remark);
    text_->setText(fontMetrics().elidedText(text, Qt::ElideMiddle, widest));
    auto all = paths;
    std::for_each(all.begin(), all.end(), [](QString &path) { path = QDir::toNativeSeparators(path); });
    text_->setToolTip((remark.isEmpty() ? all : all << remark).join(u'\n'));
    show();
}
