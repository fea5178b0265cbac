#pragma once

#include "support/TestFolder.h"

#include <QProcess>

struct Outcome
{
    int status;
    QByteArray out;
    QByteArray error;
};

// The words are separated by blanks.
inline void start(QProcess &program, const TestFolder &folder, const Text &words)
{
    program.setWorkingDirectory(folder.path());
    program.start(QStringLiteral(COMPOSER_CLI), words.split(u' ', Qt::SkipEmptyParts));
}

inline Outcome outcomeOf(QProcess &program)
{
    program.closeWriteChannel();
    if (!program.waitForFinished(-1) || program.exitStatus() != QProcess::NormalExit)
        qFatal("the program did not end by itself");
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

// Runs kelvarion-composer-cli in a folder as its users do.
inline Outcome run(const TestFolder &folder, const Text &words, const QByteArray &input = {})
{
    QProcess program;
    start(program, folder, words);
    program.write(input);
    return outcomeOf(program);
}
