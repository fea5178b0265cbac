#include "app/ArrivedFiles.h"

#include "app/MainWindow.h"
#include "ui/notices/DesktopNotice.h"

#include <QApplication>

#include <utility>

void ArrivedFiles::setWindow(MainWindow *window)
{
    window_ = window;
    open();
}

void ArrivedFiles::add(const QStringList &files)
{
    files_ += files;
    if (window_)
        comeForward(*window_);
    open();
}

void ArrivedFiles::timerEvent(QTimerEvent *)
{
    open();
}

// Not behind a question, whose answer may be about the song that is there.
void ArrivedFiles::open()
{
    if (files_.isEmpty() || !window_)
        return;
    if (QApplication::activeModalWidget() != nullptr) {
        constexpr int pauseMs = 200;
        retrying_.start(pauseMs, this);
        return;
    }
    retrying_.stop();
    window_->openFiles(std::exchange(files_, {}));
}
