#pragma once

#include "check/findings/Finding.h"
#include "edit/AbcReading.h"

// What was found in a text that is typed on, with places in the text as it stands now: all that a check found, and what
// the reader refused since. A value.
class LiveFindings
{
public:
    const QVector<Finding> &all() const { return findings_; } // by offset

    // Of the text as it stands now.
    void take(QVector<Finding> findings);
    // Of the text as it stands now; what was found beside them stays until a check.
    void takeRefusals(const QVector<AbcProblem> &problems);
    // At `position`, `removed` characters gave way to `added` new ones. What was typed into is gone, and nothing has a
    // fix until a check.
    void addTyping(int position, int removed, int added);

    // Those whose characters hold the range or touch it.
    QVector<Finding> at(TextRange range) const;

private:
    QVector<Finding> findings_;
};
