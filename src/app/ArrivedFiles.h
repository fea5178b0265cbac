#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>

class MainWindow;

// Files that other programs hand over while the window is not there yet or asks something; it opens them and comes to
// the front. [ui]
class ArrivedFiles : public QObject
{
public:
    void setWindow(MainWindow *window);
    void add(const QStringList &files);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void open();

    QPointer<MainWindow> window_;
    QStringList files_;
    QBasicTimer retrying_;
};
