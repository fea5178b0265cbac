#pragma once

#include <QString>

// Programs that read the output expect exactly one line a failure: "kelvarion-composer-cli: FILE: MESSAGE".
void printFailure(const QString &file, const QString &message);
void printLine(const QString &line);

// A bar on standard error while long work goes on; silent when that is no terminal.
void printProgress(int done, int total);
