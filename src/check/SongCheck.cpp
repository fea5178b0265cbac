#include "check/SongCheck.h"

#include "check/TempoFix.h"
#include "check/findings/FindingKinds.h"
#include "core/AbcTokenizer.h"
#include "import/WrittenTempo.h"

#include <QLocale>

#include <algorithm>

namespace {

using Tempos = std::vector<PartFacts::Tempo>;

QString bpm(qint64 ticksPerMinute)
{
    return QLocale().toString(double(ticksPerMinute) / ticksPerQuarter, 'g', 6);
}

void addTempo(Tempos &tempos, Ticks from, qint64 ticksPerMinute)
{
    if (ticksPerMinute <= 0)
        return; // the player skips it
    if (!tempos.empty() && tempos.back().from == from)
        tempos.pop_back();
    if (tempos.empty() || tempos.back().ticksPerMinute != ticksPerMinute)
        tempos.push_back({from, ticksPerMinute});
}

qint64 tempoAt(const Tempos &tempos, Ticks tick)
{
    auto tempo = defaultTicksPerMinute;
    for (const auto &each : tempos) {
        if (each.from <= tick)
            tempo = each.ticksPerMinute;
    }
    return tempo;
}

TextRange rangeOf(const AbcToken &token, QStringView part, const QVector<int> &lines)
{
    return {lines[token.line] + token.column + int(part.begin() - token.text.begin()), int(part.size())};
}

// The first Q of the header, or the place in front of its K.
std::optional<PartFacts::TempoField> tempoFieldOf(const TextCheck &part)
{
    AbcTokenizer tokens(part.text);
    for (AbcToken token; tokens.next(token);) {
        if (token.type != AbcTokenType::FieldLine)
            continue;
        const auto name = token.part(AbcPart::Name);
        if (name == u"Q")
            return PartFacts::TempoField{rangeOf(token, token.part(AbcPart::Value).trimmed(), part.lines), true, false};
        if (name == u"K")
            return PartFacts::TempoField{{part.lines[token.line], 0}, false, false};
    }
    return {};
}

// The first time from which on the two are not the same.
Ticks firstDifference(const Tempos &a, const Tempos &b)
{
    const auto [one, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto from = [](auto at, auto end) { return at == end ? maxTicks : at->from; };
    return std::min(from(one, a.end()), from(other, b.end()));
}

// What most parts have; of equals the first.
const Tempos &usualTempos(const QVector<PartFacts> &parts)
{
    const auto count = [&](const PartFacts &part) {
        return std::count_if(parts.begin(), parts.end(), [&](const PartFacts &other) {
            return other.hasNotes && part.hasNotes && other.tempos == part.tempos;
        });
    };
    return std::max_element(parts.begin(), parts.end(),
                            [&](const PartFacts &a, const PartFacts &b) { return count(a) < count(b); })
        ->tempos;
}

class SongChecker
{
public:
    SongChecker(const QVector<PartFacts> &parts, const std::function<QString(int part)> &textOf)
        : textOf_(textOf), tempos_(usualTempos(parts))
    {
        for (const auto &part : parts) {
            if (part.hasNotes) {
                firstNote_ = std::min(firstNote_, part.firstNote);
                length_ = std::max(length_, part.length);
            }
        }
    }

    QVector<Finding> check(int index, const PartFacts &part) const
    {
        QVector<Finding> findings;
        if (firstDifference(part.tempos, tempos_) < part.length)
            findings.append(tempoFinding(index, part));
        if (part.firstNote > firstNote_)
            findings.append(
                {FindingKind::StartDiffers, {}, part.firstNote, {lengthInWords(part.firstNote - firstNote_)}});
        if (part.length < length_)
            findings.append(lengthFinding(part));
        return findings;
    }

private:
    Finding tempoFinding(int index, const PartFacts &part) const
    {
        const auto at = firstDifference(part.tempos, tempos_);
        Finding finding{FindingKind::TempoDiffers, {}, at, {bpm(tempoAt(part.tempos, at)), bpm(tempoAt(tempos_, at))}};
        if (!part.tempoField)
            return finding;
        const bool isAllInOneField = part.tempoField->isOnly && tempos_.size() == 1;
        if (!isAllInOneField) {
            const auto fix = tempoFix(textOf_(index), tempos_, part.length);
            if (!fix)
                return finding;
            finding.fix = *fix;
        }
        if (part.tempos.front() != tempos_.front())
            finding.fix.prepend(changeOfStart(*part.tempoField));
        return finding;
    }

    TextChange changeOfStart(const PartFacts::TempoField &field) const
    {
        const auto text = tempoText(tempos_.front().ticksPerMinute);
        return {field.range, field.isThere ? text : QStringLiteral("Q: %1\n").arg(text)};
    }

    Finding lengthFinding(const PartFacts &part) const
    {
        Finding finding{FindingKind::LengthDiffers, {}, part.length, {lengthInWords(length_ - part.length)}};
        if (part.end)
            finding.fix = {restsBehind(*part.end, length_ - part.end->position)};
        return finding;
    }

    const std::function<QString(int part)> &textOf_;
    const Tempos &tempos_;
    Ticks firstNote_ = maxTicks;
    Ticks length_ = 0;
};

} // namespace

PartFacts factsOf(const TextCheck &part)
{
    PartFacts facts;
    addTempo(facts.tempos, 0, defaultTicksPerMinute);
    addTempo(facts.tempos, 0, part.track.ticksPerMinute());
    for (const auto &event : part.track.events()) {
        if (event.kind() == TrackEvent::Tempo)
            addTempo(facts.tempos, event.start(), event.ticksPerMinute());
        if (event.isNote() && !facts.hasNotes) {
            facts.hasNotes = true;
            facts.firstNote = event.start();
        }
    }
    facts.length = std::max(part.length, part.track.length());
    facts.end = part.end;
    const auto &events = part.track.events();
    facts.tempoField = tempoFieldOf(part);
    if (facts.tempoField)
        facts.tempoField->isOnly = std::none_of(events.begin(), events.end(),
                                                [](const auto &event) { return event.kind() == TrackEvent::Tempo; });
    return facts;
}

QVector<QVector<Finding>> checkSong(const QVector<PartFacts> &parts, const std::function<QString(int part)> &textOf)
{
    QVector<QVector<Finding>> findings(parts.size());
    if (parts.isEmpty())
        return findings;
    const SongChecker checker(parts, textOf);
    for (int i = 0; i < parts.size(); ++i) {
        if (parts[i].hasNotes)
            findings[i] = checker.check(i, parts[i]);
    }
    return findings;
}
