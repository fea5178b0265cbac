#include "check/text/UnitLengthChange.h"

#include "core/AbcListener.h"
#include "core/AbcNumbers.h"
#include "core/AbcParser.h"
#include "core/HeaderFields.h"
#include "edit/AbcReading.h"
#include "edit/NoteSpelling.h"
#include "edit/NoteText.h"
#include "import/UnitLength.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>
#include <unordered_map>

namespace {

// A length as it is written, which may be nothing.
struct WrittenLength
{
    TextRange range;
    Ticks length = 0;
};

// A tempo without a beat: it counts unit lengths.
struct BareTempo
{
    TextRange number;
    quint32 bpm = 0;
};

// The text's fields and lengths that depend on the unit length.
struct Lengths
{
    quint32 unitLength = quint32(ticksPerQuarter);
    std::vector<WrittenLength> notes;   // and rests, in the order of the text
    std::optional<TextRange> unitField; // the value of the header's first L
    bool hasTempo = false;              // the header
    std::vector<BareTempo> bareTempos;
    int keyLine = 0; // where the header's last field begins
};

TextRange rangeOf(const AbcToken &token, AbcPart part, const QVector<int> &lines)
{
    const auto text = token.part(part);
    return {lines[token.line] + token.column + int(text.begin() - token.text.begin()), int(text.size())};
}

// The first number or fraction of a field's value; all of the value where there is none.
TextRange numberIn(const AbcToken &token, const QVector<int> &lines)
{
    auto range = rangeOf(token, AbcPart::Value, lines);
    const auto value = token.part(AbcPart::Value);
    const auto isOfNumber = [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'/'; };
    const auto *const begin = std::find_if(value.begin(), value.end(), isOfNumber);
    const auto *const end = std::find_if_not(begin, value.end(), isOfNumber);
    return begin == end ? range : TextRange{range.offset + int(begin - value.begin()), int(end - begin)};
}

class LengthFinder final : public AbcListener
{
public:
    explicit LengthFinder(const QString &text) : text_(text), lines_(lineOffsets(text)) { readHeader(); }
    Lengths find()
    {
        parseAbc(text_, {}, this);
        return std::move(found_);
    }

    void bodyBegins(int, quint32) override {}
    void token(const AbcToken &token) override;
    void elementBegins(const AbcToken &first, bool, bool) override { addRest(first); }
    void note(const AbcToken &token, const AbcPitch &) override { add(token); }
    void elementEnds(const AbcToken &) override { isInElement_ = false; }
    void elementSounds(Ticks) override {}
    void barLine(const AbcToken &, quint32, Ticks) override {}
    void keyChange(const AbcToken &, quint32) override {}
    bool refused(AbcRefusal, const AbcToken &, const AbcToken &) override { return true; }

private:
    void readHeader();
    void takeField(const AbcToken &token);
    void takeTempo(const AbcToken &token, std::optional<quint32> otherwise);
    void addRest(const AbcToken &token);
    void add(const AbcToken &token);

    const QString &text_;
    QVector<int> lines_;
    Lengths found_;
    bool isInElement_ = false;
};

void LengthFinder::readHeader()
{
    AbcTokenizer tokenizer(text_);
    for (AbcToken token; tokenizer.next(token);) {
        if (token.type != AbcTokenType::FieldLine)
            continue;
        found_.keyLine = lines_[token.line];
        takeField(token);
        if (token.part(AbcPart::Name) == u"K")
            return;
    }
}

void LengthFinder::takeField(const AbcToken &token)
{
    const auto name = token.part(AbcPart::Name);
    if (name == u"L" && !found_.unitField) {
        found_.unitField = numberIn(token, lines_);
        found_.unitLength = HeaderFields::parseUnitLength(token.part(AbcPart::Value));
    } else if (name == u"Q" && !found_.hasTempo) {
        found_.hasTempo = true;
        takeTempo(token, 120);
    }
}

// otherwise: what a text that cannot be read means; none for one that means nothing.
void LengthFinder::takeTempo(const AbcToken &token, std::optional<quint32> otherwise)
{
    const auto tempo = HeaderFields::parseTempo(token.part(AbcPart::Value));
    const auto bpm = tempo.readable ? std::optional(tempo.bpm) : otherwise;
    if (!tempo.hasBeat() && bpm)
        found_.bareTempos.push_back({numberIn(token, lines_), *bpm});
}

void LengthFinder::token(const AbcToken &token)
{
    const bool isField = token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::InlineField;
    if (isField && token.part(AbcPart::Name) == u"Q")
        takeTempo(token, std::nullopt);
    if (isInElement_)
        addRest(token);
}

// Rests of whole measures are no matter of the unit length.
void LengthFinder::addRest(const AbcToken &token)
{
    isInElement_ = true;
    const bool isCounted = token.type == AbcTokenType::Rest &&
                           (token.part(AbcPart::Letter) == u"z" || token.part(AbcPart::Letter) == u"x");
    if (isCounted)
        add(token);
}

void LengthFinder::add(const AbcToken &token)
{
    auto range = rangeOf(token, AbcPart::Length, lines_);
    if (!token.has(AbcPart::Length)) {
        const auto behind = token.has(AbcPart::Octave) ? AbcPart::Octave : AbcPart::Letter;
        range = {rangeOf(token, behind, lines_).end(), 0};
    }
    found_.notes.push_back({range, writtenLength(token).of(found_.unitLength)});
}

QString tempoText(quint32 unitLength, quint32 bpm)
{
    const auto beat = NoteText::length(unitLength);
    const auto slash = beat.contains(u'/') ? QString() : QStringLiteral("/1");
    return QStringLiteral("%1%2=%3").arg(beat, slash).arg(bpm);
}

// Of the header, and tempos anywhere.
QVector<TextChange> fieldChanges(const Lengths &lengths, const QString &unitLength)
{
    QVector<TextChange> changes;
    QString newFields;
    if (lengths.unitField)
        changes.append({*lengths.unitField, unitLength});
    else
        newFields = QStringLiteral("L:%1\n").arg(unitLength);
    if (!lengths.hasTempo)
        newFields += QStringLiteral("Q:%1\n").arg(tempoText(lengths.unitLength, 120));
    if (!newFields.isEmpty())
        changes.append({{lengths.keyLine, 0}, newFields});
    for (const auto &tempo : lengths.bareTempos)
        changes.append({tempo.number, tempoText(lengths.unitLength, tempo.bpm)});
    return changes;
}

quint64 costOf(const std::unordered_map<Ticks, quint64> &counts, Ticks unit)
{
    quint64 cost = 0;
    for (const auto &[length, count] : counts)
        cost += count * quint64(suffixCost(length, unit));
    return cost;
}

} // namespace

quint32 shortestUnitLength(const QString &text)
{
    std::unordered_map<Ticks, quint64> counts;
    for (const auto &note : LengthFinder(text).find().notes)
        ++counts[note.length];
    std::set<Ticks> candidates{4};
    for (const auto &[length, count] : counts)
        candidates.insert(ticksPerWholeNote / std::gcd(length, ticksPerWholeNote));
    const auto cost = [&](Ticks denominator) { return costOf(counts, ticksPerWholeNote / denominator); };
    return quint32(
        *std::min_element(candidates.begin(), candidates.end(), [&](Ticks a, Ticks b) { return cost(a) < cost(b); }));
}

QVector<TextChange> withUnitLength(const QString &text, quint32 denominator)
{
    const auto lengths = LengthFinder(text).find();
    auto changes = fieldChanges(lengths, unitLengthText(denominator));
    const auto unit = ticksPerWholeNote / Ticks(denominator);
    for (const auto &note : lengths.notes) {
        const auto written = lengthText(note.length, unit);
        if (written != QStringView(text).mid(note.range.offset, note.range.length))
            changes.append({note.range, written});
    }
    std::sort(changes.begin(), changes.end(),
              [](const TextChange &a, const TextChange &b) { return a.range.offset < b.range.offset; });
    return changes;
}
