#include "check/text/FoldedNotes.h"

#include "core/AbcListener.h"
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "edit/NoteSpelling.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

constexpr int semitonesOfOctave = 12;
constexpr int stepsOfOctave = 7;

int octaveOf(int step)
{
    return (step >= 0 ? step : step - stepsOfOctave + 1) / stepsOfOctave;
}

int letterOf(int step)
{
    return step - octaveOf(step) * stepsOfOctave;
}

QString nameOf(int step)
{
    const auto octave = octaveOf(step);
    const QChar name(QLatin1Char("CDEFGAB"[letterOf(step)]));
    return octave > 0 ? name.toLower() + QString(octave - 1, u'\'') : name + QString(-octave, u',');
}

class Folder final : public AbcListener
{
public:
    Folder(std::map<int, Finding *> findings, const FoldedText &text, const std::function<int(int)> &octaves)
        : findings_(std::move(findings)), text_(text), octaves_(octaves)
    {
    }

    void bodyBegins(int, quint32 keyRow) override { keyRow_ = keyRow; }
    void keyChange(const AbcToken &, quint32 keyRow) override { keyRow_ = keyRow; }
    void token(const AbcToken &token) override;
    void elementBegins(const AbcToken &, bool, bool) override { ofElement_.clear(); }
    void note(const AbcToken &token, const AbcPitch &pitch) override;
    void elementEnds(const AbcToken &) override {}
    void elementSounds(Ticks) override {}
    void barLine(const AbcToken &, quint32, Ticks) override;
    bool refused(AbcRefusal, const AbcToken &, const AbcToken &) override { return true; }

private:
    struct Moved
    {
        Finding *finding;
        int accidental;
    };
    struct MovedTie
    {
        Finding *finding;
        int octaves;
    };

    int offsetOf(const AbcToken &token) const { return text_.lines[token.line] + token.column; }
    int inForce(int step) const;
    void move(const AbcToken &token, const AbcPitch &pitch, const MovedTie &to);
    void keepAccidental(const AbcToken &token, const AbcPitch &pitch);

    std::map<int, Finding *> findings_; // by offset
    const FoldedText &text_;
    const std::function<int(int)> &octaves_;
    quint32 keyRow_ = neutralKeyRow;
    std::map<int, int> written_;        // accidentals of the measure, by step
    std::map<int, Moved> moved_;        // of the measure, by the steps where they are now
    std::map<int, MovedTie> ties_;      // that go on, by pitch
    std::map<int, MovedTie> ofElement_; // by pitch
};

void Folder::barLine(const AbcToken &, quint32, Ticks)
{
    written_.clear();
    moved_.clear();
}

// A chord's tie stands behind it.
void Folder::token(const AbcToken &token)
{
    if (token.type == AbcTokenType::ChordEnd && token.part(AbcPart::Tie).contains(u'-'))
        ties_.insert(ofElement_.begin(), ofElement_.end());
}

int Folder::inForce(int step) const
{
    const auto written = written_.find(step);
    return written != written_.end() ? written->second : KeyTable::accidental(keyRow_, letterOf(step));
}

void Folder::note(const AbcToken &token, const AbcPitch &pitch)
{
    const auto found = findings_.find(offsetOf(token));
    const auto tie = ties_.find(pitch.pitch);
    MovedTie to{nullptr, 0};
    if (found != findings_.end())
        to = {found->second, octaves_(pitch.pitch)};
    else if (tie != ties_.end())
        to = tie->second;
    if (tie != ties_.end())
        ties_.erase(tie);
    if (to.octaves != 0)
        move(token, pitch, to);
    else
        keepAccidental(token, pitch);
    if (!token.part(AbcPart::Accidental).isEmpty())
        written_[pitch.step] = pitch.accidental;
}

// Whether or not those before it are moved, too, it sounds the same.
void Folder::move(const AbcToken &token, const AbcPitch &pitch, const MovedTie &to)
{
    const auto step = pitch.step + to.octaves * stepsOfOctave;
    const auto before = moved_.find(step);
    const bool isClear =
        inForce(step) == pitch.accidental && (before == moved_.end() || before->second.accidental == pitch.accidental);
    const auto written = token.part(AbcPart::Accidental);
    const bool isWritten = !written.isEmpty() || !isClear;
    const auto accidental = !written.isEmpty() ? written.toString()
                            : isWritten        ? NoteSpelling::accidentalText(pitch.accidental)
                                               : QString();
    const auto size = written.size() + token.part(AbcPart::Letter).size() + token.part(AbcPart::Octave).size();
    const auto begin = offsetOf(token) + int(token.part(AbcPart::Staccato).size());
    to.finding->fix.append({{begin, int(size)}, accidental + nameOf(step)});
    if (isWritten)
        moved_[step] = {to.finding, pitch.accidental};
    if (token.has(AbcPart::Tie))
        ties_[pitch.pitch] = to;
    ofElement_[pitch.pitch] = to;
}

void Folder::keepAccidental(const AbcToken &token, const AbcPitch &pitch)
{
    const auto moved = moved_.find(pitch.step);
    if (moved == moved_.end())
        return;
    if (token.part(AbcPart::Accidental).isEmpty() && moved->second.accidental != pitch.accidental) {
        const auto begin = offsetOf(token) + int(token.part(AbcPart::Staccato).size());
        moved->second.finding->fix.append({{begin, 0}, NoteSpelling::accidentalText(pitch.accidental)});
    }
    moved_.erase(moved);
}

// A fix reaches no further, and a long text need not be read to its end again.
QString untilMeasureBehind(const QString &text, int offset)
{
    const auto bar = text.indexOf(u'|', offset);
    const auto next = bar < 0 ? -1 : text.indexOf(u'|', bar + 1);
    return text.left(int(next)); // -1: all of it
}

} // namespace

void foldInto(QVector<Finding> &findings, FindingKind kind, const FoldedText &text,
              const std::function<int(int pitch)> &octaves)
{
    std::map<int, Finding *> folded;
    for (auto &finding : findings) {
        if (finding.kind == kind)
            folded[finding.range.offset] = &finding;
    }
    if (folded.empty())
        return;
    const auto last = folded.rbegin()->first;
    Folder folder(std::move(folded), text, octaves);
    parseAbc(untilMeasureBehind(text.text, last), {}, &folder);
}

int octavesIntoRange(int pitch)
{
    const int below = int(lowestPlayablePitch) - pitch;
    const int above = pitch - int(highestPlayablePitch);
    return below > 0   ? (below + semitonesOfOctave - 1) / semitonesOfOctave
           : above > 0 ? -((above + semitonesOfOctave - 1) / semitonesOfOctave)
                       : 0;
}
