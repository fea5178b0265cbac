#include "app/ArrivedFiles.h"

#include "app/MainWindow.h"

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
    comeForward();
    open();
}

void ArrivedFiles::timerEvent(QTimerEvent *)
{
    open();
}

void ArrivedFiles::comeForward()
{
    if (!window_)
        return;
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->raise();
    window_->activateWindow();
    QApplication::alert(window_); // where a window may not come to the front by itself
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
