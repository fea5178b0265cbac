#pragma once

#include <QApplication>
#include <QStringList>

#include <functional>
#include <utility>

// The program's application. An exception that leaves the handling of an event ends neither the program nor the work
// that is not saved yet: it is told, as Qt's manual wants it caught here ("Exception Safety").
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override; // [any]

    // Those that the system asked to open since the last call, as macOS does in place of a command line. [ui]
    QStringList takeWantedFiles() { return std::exchange(wantedFiles_, {}); }

    // While this says so the system ends the program without its windows being asked.
    void setMayEnd(const std::function<bool()> &mayEnd) { mayEnd_ = mayEnd; }

signals:
    void filesWanted();
    void failed(const QString &error); // from the event loop of the interface thread, once for failures in a row

protected:
    bool event(QEvent *event) override;

private:
    void tellFailure(const QString &error);

    bool isTelling_ = false;
    QStringList wantedFiles_;
    std::function<bool()> mayEnd_;
};
