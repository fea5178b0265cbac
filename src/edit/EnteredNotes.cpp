#include "edit/EnteredNotes.h"

#include "edit/NoteSpelling.h"

#include <algorithm>

namespace {

// What holds in the measure up to the offset.
NoteSpelling spellingAt(const AbcLayout &layout, int offset)
{
    NoteSpelling spelling;
    int measure = 0;
    for (const auto &mark : layout.marks) {
        if (mark.offset > offset)
            break;
        spelling.begin(mark.keyRow);
        measure = mark.offset;
    }
    for (const auto &token : layout.tokens) {
        if (token.isExplicit && token.range.offset >= measure && token.range.end() <= offset)
            spelling.set(token.step, token.accidental);
    }
    return spelling;
}

} // namespace

QString enteredNotes(const AbcReading &reading, int offset, const QVector<quint32> &pitches, Ticks length)
{
    auto spelling = spellingAt(reading.layout, offset);
    auto ascending = pitches;
    std::sort(ascending.begin(), ascending.end());
    QString notes;
    for (const auto pitch : ascending)
        notes += spelling.write(pitch);
    if (pitches.size() > 1)
        notes = QStringLiteral("[%1]").arg(notes);
    return notes + lengthText(length, reading.unitLength);
}
