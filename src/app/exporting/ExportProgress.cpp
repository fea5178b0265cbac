#include "app/exporting/ExportProgress.h"

#include <QCoreApplication>
#include <QProgressDialog>

#include <limits>

QProgressDialog *ExportProgress::open(const QString &text, QWidget *parent)
{
    text_ = text;
    time_.invalidate();
    const auto loading = u'\n' + QCoreApplication::translate("ExportProgress", "Loading samples...");
    dialog_ =
        new QProgressDialog(text + loading, QCoreApplication::translate("ExportProgress", "Cancel"), 0, 1, parent);
    dialog_->setObjectName(QStringLiteral("exportProgress"));
    dialog_->setWindowTitle(QStringLiteral("Kelvarion Composer"));
    dialog_->setAutoReset(false);
    dialog_->setAutoClose(false);
    dialog_->setMinimumDuration(200);
    dialog_->setValue(0); // which is what that time is counted from
    return dialog_;
}

void ExportProgress::set(quint64 done, quint64 total)
{
    if (!dialog_)
        return;
    const auto unit = total / quint64(std::numeric_limits<int>::max()) + 1;
    dialog_->setMaximum(int(total / unit));
    dialog_->setValue(int(done / unit));
    dialog_->setLabelText(text_ + remaining(done, total));
    if (!time_.isValid()) { // what came before was the loading of samples
        time_.start();
        doneBefore_ = done;
    }
}

// Nothing as long as that would be a guess.
QString ExportProgress::remaining(quint64 done, quint64 total) const
{
    constexpr qint64 experience = 1000; // ms
    if (!time_.isValid() || time_.elapsed() < experience || done <= doneBefore_ || done > total)
        return {};
    const auto seconds = qRound64(double(time_.elapsed()) * double(total - done) / double(done - doneBefore_) / 1000);
    const auto clock = QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return u'\n' + QCoreApplication::translate("ExportProgress", "%1 left").arg(clock);
}

void ExportProgress::close()
{
    if (!dialog_)
        return;
    dialog_->hide();
    dialog_->deleteLater();
    dialog_.clear();
}
