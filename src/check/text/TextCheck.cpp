#include "check/text/TextCheck.h"

#include "check/text/BarLineRule.h"
#include "check/text/FieldRule.h"
#include "check/text/PairRule.h"
#include "check/text/RangeRule.h"
#include "check/text/RefusalRule.h"
#include "check/text/TieRule.h"
#include "core/AbcParser.h"

#include <tuple>

namespace {

// Hands what the parser tells to every rule.
class TextRules final : public AbcListener
{
public:
    explicit TextRules(TextFindings &out)
        : out_(out), rules_{RefusalRule(out), FieldRule(out), RangeRule(out),
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
    void elementBegins(const AbcToken &first, bool, bool) override
    {
        tell([&](auto &rule) { rule.elementBegins(first); });
        out_.elementBegins();
    }
    void note(const AbcToken &token, const AbcPitch &pitch) override
    {
        tell([&](auto &rule) { rule.note(token, pitch); });
    }
    void elementEnds(const AbcToken &) override {}
    void elementSounds(Ticks end) override
    {
        tell([&](auto &rule) { rule.elementSounds(end); });
        out_.elementSounds(end);
    }
    void barLine(const AbcToken &token, quint32, Ticks position) override
    {
        tell([&](auto &rule) { rule.barLine(token, position); });
        out_.position = position;
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

private:
    template<typename Call>
    void tell(Call call)
    {
        std::apply([&call](auto &...rule) { (call(rule), ...); }, rules_);
    }

    TextFindings &out_;
    std::tuple<RefusalRule, FieldRule, RangeRule, BarLineRule, TieRule, PairRule> rules_;
};

} // namespace

TextCheck checkText(const QString &text, const CheckOptions &options, const std::stop_token &stop)
{
    TextFindings out(text, options);
    TextRules rules(out);
    TextCheck check;
    check.text = text;
    check.track = parseAbc(text, stop, &rules);
    rules.textEnds(check.track);
    check.lines = out.lines();
    check.length = out.position;
    check.findings = out.take();
    return check;
}
