#include "app/exporting/ExportEnd.h"

#include "ui/Dialogs.h"

#include <QDir>
#include <QFileInfo>

void ExportEnd::tellWritten(const QStringList &paths, const QString &remark) const
{
    const auto &first = paths.first();
    const auto folder = QDir::toNativeSeparators(QFileInfo(first).absolutePath());
    QStringList text{paths.size() == 1 ? QDir::toNativeSeparators(first)
                                       : tr("%n file(s) in %1", nullptr, int(paths.size())).arg(folder)};
    if (!remark.isEmpty())
        text.append(remark);
    context_.dialogs.tellEnd(&context_.window, tr("The export is done"), text.join(u'\n'), time_.elapsed());
}

void ExportEnd::tellFailure(const QString &text) const
{
    context_.dialogs.tellEnd(&context_.window, tr("The export failed"), text, time_.elapsed());
}
