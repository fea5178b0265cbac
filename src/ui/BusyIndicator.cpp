#include "ui/BusyIndicator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

BusyIndicator::BusyIndicator(QWidget *parent) : QWidget(parent), text_(new QLabel), bar_(new QProgressBar)
{
    setObjectName(QStringLiteral("busyIndicator"));
    bar_->setFixedWidth(160);
    bar_->setTextVisible(false);
    auto *const cancel = new QToolButton;
    cancel->setObjectName(QStringLiteral("btnCancelWork"));
    cancel->setText(tr("Cancel"));
    cancel->setToolTip(tr("Stop what is running (Esc)"));
    connect(cancel, &QToolButton::clicked, this, &BusyIndicator::cancelled);

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(16, 0, 0, 0); // away from the status text
    row->addWidget(text_);
    row->addWidget(bar_);
    row->addWidget(cancel);

    delay_.setSingleShot(true);
    delay_.setInterval(500);
    connect(&delay_, &QTimer::timeout, this, &QWidget::show);
    hide();
}

void BusyIndicator::showProgress(const QString &text, int done, int total)
{
    text_->setText(text);
    bar_->setRange(0, total);
    bar_->setValue(done);
    if (isHidden() && !delay_.isActive())
        delay_.start();
    if (!time_.isValid())
        time_.start();
}

void BusyIndicator::finish()
{
    delay_.stop();
    hide();
    if (!time_.isValid())
        return;
    const auto took = time_.elapsed();
    time_.invalidate();
    emit finished(text_->text(), took);
}
