#include "edit/plan/EditWriter.h"

#include "core/AbcTokenizer.h"
#include "edit/plan/RhythmFit.h"

#include <algorithm>

EditWriter::EditWriter(const QString &text, const AbcReading &reading, const NotePieces &pieces, EditLayout layout)
    : text_(text), reading_(reading), layout_(reading.layout), pieces_(pieces), measures_(reading.track),
      inMeasures_(layout == EditLayout::InMeasures && writesMeasures())
{
    spelling_.begin(layout_.marks.first().keyRow);
}

QVector<TextChange> EditWriter::write()
{
    auto unit = 0;
    for (const auto &run : findEditRuns(layout_, pieces_)) {
        for (; unit < run.first; ++unit)
            passUnit(layout_.units[unit]);
        passMarks(layout_.units[run.first].range.offset);
        writeRun(run);
        unit = run.last + 1;
    }
    for (; unit < layout_.units.size(); ++unit)
        passUnit(layout_.units[unit]);
    return std::move(changes_);
}

// A gap before a bar line stands at the same offset, and still in the measure.
void EditWriter::passMarks(int offset)
{
    for (; mark_ < layout_.marks.size() && layout_.marks[mark_].offset < offset; ++mark_) {
        const auto &mark = layout_.marks[mark_];
        if (mark.kind == AbcAccidentalMark::Kind::BarLine)
            spelling_.begin(mark.keyRow);
        else
            spelling_.setKey(mark.keyRow);
    }
}

void EditWriter::passUnit(const AbcUnit &unit)
{
    passMarks(unit.range.offset);
    for (auto token = unit.firstToken; token < unit.endToken; ++token)
        passToken(token);
}

// A note that stays: its own characters change when its pitch does, or when the accidentals before it did.
void EditWriter::passToken(int token)
{
    const auto &spelling = layout_.tokens[token].spelling;
    const auto &piece = pieces_.ofToken(token);
    const auto written = piece.keepsSpelling ? spellingOf(layout_.tokens[token]) : spelling_.write(piece.pitch);
    const auto change = difference(text_.mid(spelling.offset, spelling.length), written);
    if (!change.range.isEmpty() || !change.text.isEmpty())
        changes_.append({{spelling.offset + change.range.offset, change.range.length}, change.text});
}

QString EditWriter::spellingOf(const AbcNoteToken &token)
{
    const auto written = text_.mid(token.spelling.offset, token.spelling.length);
    if (!token.isExplicit && spelling_.inForce(token.step) == token.accidental)
        return written;
    spelling_.set(token.step, token.accidental);
    return token.isExplicit ? written : NoteSpelling::accidentalText(token.accidental) + written;
}

void EditWriter::writeRun(const EditRun &run)
{
    switch (run.form) {
    case EditRun::Form::Free:
        writeFree(run);
        break;
    case EditRun::Form::Elements:
        writeElements(layout_.units[run.first]);
        break;
    case EditRun::Form::Measures:
        writeMeasures(run);
        break;
    }
}

// A chord would take the dot of a staccato note that follows it for one of its own.
void EditWriter::addChange(TextRange range, QString text)
{
    const auto afterChord = text.mid(text.lastIndexOf(u']') + 1);
    const bool endsInChord = text.contains(u']') && std::none_of(afterChord.begin(), afterChord.end(),
                                                                 [](QChar c) { return c.isLetter() || c.isSpace(); });
    if (endsInChord && range.end() < text_.size() && text_[range.end()] == u'.')
        text += u' ';
    changes_.append({range, text});
}

void EditWriter::writeElements(const AbcUnit &unit)
{
    const auto &all = pieces_.of(int(&unit - layout_.units.data()));
    for (auto i = unit.firstElement; i < unit.endElement; ++i) {
        const auto &element = layout_.elements[i];
        writeElement(element, startingWithin(all, element.start, element.end()));
    }
}

void EditWriter::writeElement(const AbcTextElement &element, std::span<const NotePiece> pieces)
{
    if (isUnchanged(element, pieces)) {
        for (auto token = element.firstToken; token < element.endToken; ++token)
            passToken(token);
    } else {
        addChange(element.range, elementText(element, pieces));
    }
}

bool EditWriter::isUnchanged(const AbcTextElement &element, std::span<const NotePiece> pieces) const
{
    return int(pieces.size()) == element.endToken - element.firstToken &&
           std::none_of(pieces.begin(), pieces.end(), [](const NotePiece &piece) { return piece.isAltered; });
}

// A chord keeps its own length as long as it is one, and nothing new is tied into it: that would be lengthened, too.
QString EditWriter::elementText(const AbcTextElement &element, std::span<const NotePiece> pieces)
{
    const auto scale = LengthScale::of(element);
    if (pieces.empty())
        return foreignText(element) + u'z' + scale.text(element.advance);
    const auto shortest = std::min_element(pieces.begin(), pieces.end(), [](const NotePiece &a, const NotePiece &b) {
                              return a.length < b.length;
                          })->length;
    const bool isCut = shortest > element.advance;
    const bool isChord = isCut || pieces.size() > 1;
    const bool isTiedInto =
        std::any_of(pieces.begin(), pieces.end(), [](const NotePiece &piece) { return piece.isContinuation; });
    const bool keepsLength = isChord && !element.chordLengthText.isEmpty() && !isTiedInto;
    const auto noteScale = keepsLength ? LengthScale::inChordOf(element) : scale;
    if (!isCut && !element.isChord && foreignText(element).isEmpty() && sharesLength(pieces))
        return chordText(pieces, scale.text(shortest));
    QString notes = isCut ? u'z' + noteScale.text(element.advance) : QString();
    const auto foreign = foreignText(element);
    for (const auto &piece : pieces) {
        const bool keepsText =
            piece.token >= 0 && !piece.isAltered && (keepsLength || element.chordLengthText.isEmpty());
        notes += pieceText(piece, keepsText ? keptLength(piece) : noteScale.text(piece.length));
    }
    if (!isChord)
        return foreign + notes;
    const auto length = keepsLength ? element.chordLengthText : TextRange();
    return u'[' + foreign + notes + u']' + text_.mid(length.offset, length.length);
}

// What the reader passes over in a chord.
QString EditWriter::foreignText(const AbcTextElement &element) const
{
    QString foreign;
    AbcTokenizer tokens(QStringView(text_).mid(element.range.offset, element.isChord ? element.range.length : 0));
    AbcToken token;
    while (tokens.next(token)) {
        const bool isMusic = token.type == AbcTokenType::Note || token.type == AbcTokenType::Rest ||
                             token.type == AbcTokenType::ChordStart || token.type == AbcTokenType::ChordEnd;
        if (!isMusic && token.type != AbcTokenType::WhiteSpace)
            foreign += token.text;
        if (token.type == AbcTokenType::Comment || token.type == AbcTokenType::LineContinuation)
            foreign += u'\n';
    }
    return foreign;
}

// Written once, behind the bracket.
bool EditWriter::sharesLength(std::span<const NotePiece> chord) const
{
    return inMeasures_ && chord.size() > 1 &&
           std::none_of(chord.begin(), chord.end(), [&chord](const NotePiece &piece) {
               return piece.isTied || piece.isStaccato || piece.length != chord.front().length;
           });
}

QString EditWriter::chordText(std::span<const NotePiece> chord, const QString &length)
{
    QString notes;
    for (const auto &piece : chord)
        notes += pieceText(piece, {});
    return u'[' + notes + u']' + length;
}

QString EditWriter::keptLength(const NotePiece &piece) const
{
    const auto &length = layout_.tokens[piece.token].lengthText;
    return text_.mid(length.offset, length.length);
}

QString EditWriter::pieceText(const NotePiece &piece, const QString &length)
{
    const auto dot = piece.isStaccato ? QStringLiteral(".") : QString();
    const auto tie = piece.isTied ? QStringLiteral("-") : QString();
    const auto spelling = piece.keepsSpelling ? spellingOf(layout_.tokens[piece.token]) : spelling_.write(piece.pitch);
    return dot + spelling + length + tie;
}
