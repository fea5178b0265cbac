#pragma once

#include <QFile>
#include <QString>

#include <functional>

// Control characters, which could make a terminal do something, become U+FFFD. What strangers' files hold goes through
// this on its way to standard output and error, by itself in the functions below.
QString printable(QString text);

// Programs that read the output expect one line a failure, "kelvarion-composer-cli: FILE: MESSAGE"; each line of the
// message is one.
void printFailure(const QString &file, const QString &message);
void printLine(const QString &line);

// Whether the work came to its end. What it throws, for want of memory too, is printed as a failure of the file.
bool runOrPrint(const QString &file, const std::function<void()> &work);

// Whether all lines have reached standard output; a failure is printed.
bool finishLines();

// Standard output as a device, for what is bytes or long. The constructor and finish() throw a QString when it cannot
// be written.
class StandardOutput
{
public:
    StandardOutput();
    QIODevice &device() { return file_; }
    void finish();

private:
    QFile file_;
};

// A bar on standard error while long work goes on; silent when that is no terminal.
void printProgress(int done, int total);
