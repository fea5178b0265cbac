#pragma once

#include <QGuiApplication>

#include <functional>

class QSessionManager;

// What the desktop wants of a window when the user logs out: nothing is lost, the log-out does not wait for a question,
// and the next log-in brings the window back as it was. On the interface thread.
class DesktopSession : public QObject
{
    Q_OBJECT

public:
    struct Window
    {
        std::function<bool()> keep;           // false: something would be lost
        std::function<bool()> mayLeave;       // asks; false: the user stays
        std::function<QStringList()> restart; // with which arguments another program shows the same song
    };

    DesktopSession(QGuiApplication &application, const Window &window);

    // All that was there is kept, and a program that is ended now need not ask.
    bool isKept() const { return isKept_; }
    void setChanged() { isKept_ = false; }

private:
    void commit(QSessionManager &manager);
    void saveState(QSessionManager &manager);

    Window window_;
    bool isKept_ = false;
};
