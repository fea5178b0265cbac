#pragma once

#include "app/commands/CommandContext.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>

// Tells by the desktop how an export ended that took so long that its user may be elsewhere. [ui]
class ExportEnd
{
    Q_DECLARE_TR_FUNCTIONS(ExportEnd)

public:
    explicit ExportEnd(const CommandContext &context) : context_(context) {}

    void begin() { time_.start(); }
    void tellWritten(const QStringList &paths, const QString &remark) const; // remark: for people; may be empty
    void tellFailure(const QString &text) const;

private:
    CommandContext context_;
    QElapsedTimer time_;
};
