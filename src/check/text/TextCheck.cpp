#include "check/text/TextCheck.h"

#include "check/text/BarLineRule.h"
#include "check/text/FieldRule.h"
#include "check/text/FoldRule.h"
#include "check/text/PairRule.h"
#include "check/text/RangeRule.h"
#include "check/text/RefusalRule.h"
#include "check/text/TieRule.h"
#include "core/AbcParser.h"
#include "core/HeaderFields.h"

#include <algorithm>
#include <tuple>

namespace {

// Follows the music to where it ends.
class EndOfMusic
{
public:
    explicit EndOfMusic(const TextFindings &out) : out_(out) {}

    void elementBegins(bool inTuplet)
    {
        inTuplet_ = inTuplet;
        measureBegin_ = behindBar_;
    }
    void elementEnds(const AbcToken &last) { offset_ = out_.rangeOf(last).end(); }
    void elementSounds(Ticks end) { position_ = end; }
    void barLine(Ticks position)
    {
        hasBars_ = true;
        behindBar_ = position;
    }

    Ticks position() const { return position_; }
    std::optional<MusicEnd> find(const Track &track, const QVector<Finding> &findings) const;

private:
    const TextFindings &out_;
    int offset_ = -1;
    Ticks position_ = 0;
    Ticks behindBar_ = 0; // the last one
    Ticks measureBegin_ = 0;
    bool hasBars_ = false;
    bool inTuplet_ = false; // of which rests could become a part
};

bool isRead(const QVector<Finding> &findings)
{
    return std::none_of(findings.begin(), findings.end(),
                        [](const Finding &finding) { return finding.kind == FindingKind::OpenGraceNotes; });
}

std::optional<MusicEnd> EndOfMusic::find(const Track &track, const QVector<Finding> &findings) const
{
    if (offset_ < 0 || inTuplet_ || !isRead(findings))
        return {};
    const auto &text = out_.text();
    const auto isAmong = [&](int at, QStringView signs) { return at < text.size() && signs.contains(text[at]); };
    int offset = offset_;
    while (isAmong(offset, u"-)"))
        ++offset;
    int behind = offset;
    while (isAmong(behind, u" \t"))
        ++behind;
    if (isAmong(behind, u"<>-)"))
        return {};
    const auto &events = track.events();
    const bool hasOneMetre = std::none_of(events.begin(), events.end(),
                                          [](const TrackEvent &event) { return event.kind() == TrackEvent::Metre; });
    const bool hasMetre = !HeaderFields::parseMetre(track.headerField(QStringLiteral("M"))).isNone();
    return MusicEnd{offset, position_, measureBegin_,
                    hasBars_ && hasMetre && hasOneMetre ? Ticks(track.measureTicks()) : 0,
                    HeaderFields::parseUnitLength(track.headerField(QStringLiteral("L")))};
}

// Hands what the parser tells to every rule.
class TextRules final : public AbcListener
{
public:
    TextRules(TextFindings &out, const OctaveMoves &moves)
        : out_(out), end_(out), rules_{RefusalRule(out), FieldRule(out), RangeRule(out), FoldRule(out, moves),
                                       BarLineRule(out), TieRule(out),   PairRule(out)}
    {
    }

    void bodyBegins(int line, quint32 keyRow) override
    {
        tell([&](auto &rule) { rule.bodyBegins(line, keyRow); });
    }
    void token(const AbcToken &token) override
    {
        tell([&](auto &rule) { rule.token(token); });
    }
    void elementBegins(const AbcToken &first, bool, bool inTuplet) override
    {
        tell([&](auto &rule) { rule.elementBegins(first); });
        out_.elementBegins();
        end_.elementBegins(inTuplet);
    }
    void note(const AbcToken &token, const AbcPitch &pitch) override
    {
        tell([&](auto &rule) { rule.note(token, pitch); });
    }
    void elementEnds(const AbcToken &last) override { end_.elementEnds(last); }
    void elementSounds(Ticks end) override
    {
        tell([&](auto &rule) { rule.elementSounds(end); });
        out_.elementSounds(end);
        end_.elementSounds(end);
    }
    void barLine(const AbcToken &token, quint32, Ticks position) override
    {
        tell([&](auto &rule) { rule.barLine(token, position); });
        out_.position = position;
        end_.barLine(position);
    }
    void keyChange(const AbcToken &token, quint32 keyRow) override
    {
        tell([&](auto &rule) { rule.keyChange(token, keyRow); });
    }
    void tieLost(const TrackEvent &note) override
    {
        tell([&](auto &rule) { rule.tieLost(note); });
    }
    bool refused(AbcRefusal why, const AbcToken &first, const AbcToken &last) override
    {
        tell([&](auto &rule) { rule.refused(why, first, last); });
        return true;
    }
    void textEnds(const Track &track)
    {
        tell([&](auto &rule) { rule.textEnds(track); });
    }
    const EndOfMusic &end() const { return end_; }
    NoteFixes takeNoteFixes() { return std::get<FoldRule>(rules_).take(); }

private:
    template<typename Call>
    void tell(Call call)
    {
        std::apply([&call](auto &...rule) { (call(rule), ...); }, rules_);
    }

    TextFindings &out_;
    EndOfMusic end_;
    std::tuple<RefusalRule, FieldRule, RangeRule, FoldRule, BarLineRule, TieRule, PairRule> rules_;
};

} // namespace

TextCheck checkText(const QString &text, const CheckOptions &options, const OctaveMoves &moves,
                    const std::stop_token &stop)
{
    TextFindings out(text, options);
    TextRules rules(out, moves);
    TextCheck check;
    check.text = text;
    check.track = parseAbc(text, stop, &rules);
    rules.textEnds(check.track);
    check.lines = out.lines();
    check.length = rules.end().position();
    check.findings = out.take();
    check.noteFixes = rules.takeNoteFixes();
    addFixes(check.noteFixes, check.findings);
    check.end = rules.end().find(check.track, check.findings);
    return check;
}
