#pragma once

#include "core/Measures.h"
#include "edit/NoteSpelling.h"
#include "edit/TextChange.h"
#include "edit/plan/EditRuns.h"

#include <optional>
#include <span>

class MeasuredText;

// Writes the pieces of an edit into a text. Private to the planner of edits.
class EditWriter
{
public:
    // All must outlive this object.
    EditWriter(const QString &text, const AbcReading &reading, const NotePieces &pieces,
               EditLayout layout = EditLayout::InMeasures);

    // In the order of the text.
    QVector<TextChange> write();

private:
    void passMarks(int offset);
    void passUnit(const AbcUnit &unit);
    void passToken(int token);
    void writeRun(const EditRun &run);

    void addChange(TextRange range, QString text);
    void writeElements(const AbcUnit &unit);
    void writeElement(const AbcTextElement &element, std::span<const NotePiece> pieces);
    bool isUnchanged(const AbcTextElement &element, std::span<const NotePiece> pieces) const;
    QString foreignText(const AbcTextElement &element) const;
    QString elementText(const AbcTextElement &element, std::span<const NotePiece> pieces);

    void writeFree(const EditRun &run);
    QString freeText(const EditRun &run);
    QString musicText(std::vector<NotePiece> pieces, Ticks start, const AbcUnit &last, Ticks lineStart);
    struct Group
    {
        QString text;
        Ticks advance = 0;
    };
    static size_t endOfChord(std::span<const NotePiece> pieces);
    Group groupOf(std::span<NotePiece> chord, Ticks next);
    bool sharesLength(std::span<const NotePiece> chord) const;
    QString chordText(std::span<const NotePiece> chord, const QString &length);
    bool hasBarLines() const;
    bool writesMeasures() const;
    bool mayAddBarLines(const std::vector<NotePiece> &pieces) const;
    // Nothing where the text, or this place of it, is in no measures.
    std::optional<QString> measuredText(const EditRun &run);
    bool isInMeasures(const EditRun &run) const;
    std::optional<Ticks> barLineBehind(const EditRun &run) const;
    int measuresOfLine(const EditRun &run) const;
    void beginMeasured(MeasuredText &music, const EditRun &run);
    size_t writeGroup(MeasuredText &music, std::span<NotePiece> pieces, const AbcUnit &last);
    size_t writeTriplet(MeasuredText &music, std::span<NotePiece> pieces);
    QString tripletNote(std::span<const NotePiece> pieces, Ticks written);
    Ticks lineStart(const EditRun &run) const;
    QString silenceOf(const EditRun &run) const;
    bool beginsMeasure(int unit) const;
    void collectBetween(const EditRun &run);
    QString takeBetween(Ticks until);

    void writeMeasures(const EditRun &run);

    QString pieceText(const NotePiece &piece, const QString &length);
    QString spellingOf(const AbcNoteToken &token);
    QString keptLength(const NotePiece &piece) const;
    QString lengthOf(const NotePiece &piece) const;

    const QString &text_;
    const AbcReading &reading_;
    const AbcLayout &layout_;
    const NotePieces &pieces_;
    const Measures measures_;
    const bool inMeasures_;
    bool isJoined_ = false; // the run that was written, to the element before it
    int mark_ = 1;          // to be passed next; the first is the beginning of the body
    NoteSpelling spelling_;
    QVector<TextChange> changes_;

    struct Between // what stands between elements and is no music
    {
        Ticks time = 0;
        QString text;
    };
    std::vector<Between> between_; // of the run at hand, what is not yet written
};
