#pragma once

#include "edit/NoteEdit.h"
#include "edit/plan/MeasureChange.h"

#include <vector>

// Measures between bar lines, as text. What stands before a place of the text and behind it tells what stays and what
// goes along, as bar lines can take time back. Private to MeasureChange.
class BarredMeasures
{
public:
    // Both must outlive this object.
    BarredMeasures(const QString &text, const AbcReading &reading);

    // Whether a measure can begin there: at a bar line, or where the music does.
    bool hasBarLine(Ticks at) const { return at == 0 || barLineAt(at) >= 0; }
    bool isBehindMusic(Ticks at) const { return at >= layout_.units.last().start; }

    // A measure of rest behind the bar line at the tick.
    MeasureChange::Result inserted(Ticks at, Ticks length) const;
    // From behind one bar line to behind the other, or to the end of the music.
    MeasureChange::Result removed(Ticks from, Ticks to) const;
    // A rest of several measures from one of its measures to another: by so many longer or, below 0, shorter.
    MeasureChange::Result restChanged(Ticks from, Ticks to, Ticks by) const;

private:
    struct Stretch // of the text; empty for a place
    {
        int begin = 0;
        int end = 0;
        Ticks time = 0;  // when it begins
        Ticks shift = 0; // of what stands behind it
    };

    int barLineAt(Ticks at) const;
    QString barLineText(int mark) const;
    int behindBarLine(Ticks at) const;
    int firstLine() const;
    bool cutsTuplet(int offset) const;
    std::vector<TextRange> tiesAcross(const Stretch &stretch) const;
    std::vector<NoteSpec> notesAround(const Stretch &stretch) const;
    MeasureChange::Result checked(const QString &text, const Stretch &stretch, Ticks end) const;

    const QString &text_;
    const AbcReading &reading_;
    const AbcLayout &layout_;
    std::vector<int> elementOfToken_;
};
