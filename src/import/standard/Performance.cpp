#include "import/standard/Performance.h"

#include "base/Interrupted.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <bit>
#include <utility>

namespace {

using Kind = ScoreItem::Kind;

constexpr qint64 mostPlayed = 4'000'000; // items and notes

// The order in which items are played. It walks through a stretch of items and tells each that is reached.
class Walk
{
public:
    Walk(const QVector<ScoreItem> &items, qsizetype begin, qsizetype end)
        : items_(items), end_(end), at_(begin), begin_(begin), start_(begin)
    {
        lookAhead();
    }

    // The next item to play, null at the end.
    const ScoreItem *next()
    {
        while (at_ < end_) {
            const auto &item = items_[int(at_)];
            if (!step(item))
                return &item;
        }
        return nullptr;
    }
    int repeatsPlayed() const { return repeatsPlayed_; }

private:
    // Whether the item was a sign for the walk alone, which then stands at the next item.
    bool step(const ScoreItem &item);
    void startRepeat();
    void endRepeat(const ScoreItem &item);
    void stopEnding();
    void skipEnding();
    void takeEnding();
    void passMeasures(int count);
    bool hasStrainInEnding() const;
    void goBack()
    {
        measuresOfLast_ = isInEnding_ ? measuresOfEnding_ : 0;
        ++pass_;
        ++repeatsPlayed_;
        at_ = start_;
        isInEnding_ = false;
    }
    enum class Begun { BySign, Silently };
    void beginGroup(qsizetype start, Begun begun = Begun::Silently)
    {
        start_ = start;
        pass_ = 1;
        begun_ = begun;
        isFirstGroup_ = false;
        measuresOfLast_ = 0;
    }
    bool soundsSinceStart() const;
    struct Ahead
    {
        quint64 nextEnding = 0; // passes of the ending that comes with nothing that sounds before it; 0: none does
        quint8 passes = 0;      // the greatest number of the endings to the end of the group
    };
    void lookAhead();
    static bool isEndingNext(const Ahead &ahead) { return ahead.nextEnding != 0; }
    static bool isLaterEndingNext(const Ahead &ahead)
    {
        return isEndingNext(ahead) && (ahead.nextEnding >> 1 & 1) == 0;
    }
    const Ahead &ahead(qsizetype at) const { return ahead_[int(at - begin_)]; }
    int passesOfGroup(int withoutEndings) const;

    const QVector<ScoreItem> &items_;
    qsizetype end_;
    qsizetype at_;
    qsizetype begin_;
    qsizetype start_;      // where a repeat goes back to
    QVector<Ahead> ahead_; // of each item, and of the end
    int pass_ = 1;
    Begun begun_ = Begun::Silently; // whether |: stands at the start
    bool isFirstGroup_ = true;      // which begins with the music, wherever double bar lines are
    bool isInEnding_ = false;
    int measuresOfEnding_ = 0; // so far
    int measuresOfLast_ = 0;   // of the ending that was played before; 0: none was
    qsizetype strain_ = 0;     // where this ending is as long as that
    int repeatsPlayed_ = 0;
};

bool Walk::step(const ScoreItem &item)
{
    switch (item.kind) {
    case Kind::RepeatStart:
        startRepeat();
        return true;
    case Kind::RepeatEnd:
        endRepeat(item);
        return true;
    case Kind::Ending:
        if ((item.passes & 2) != 0 && hasStrainInEnding())
            beginGroup(strain_);
        if ((item.passes >> pass_ & 1) != 0)
            takeEnding();
        else
            skipEnding();
        return true;
    case Kind::EndingStop:
        ++at_;
        stopEnding();
        return true;
    case Kind::Part: // a heading ends an ending, too, but may stand within a section
        ++at_;
        if (isInEnding_)
            stopEnding();
        return true;
    default:
        ++at_;
        passMeasures(item.kind == Kind::Bar ? 1 : item.kind == Kind::Sound ? int(item.first) : 0);
        return false;
    }
}

void Walk::takeEnding()
{
    ++at_;
    isInEnding_ = true;
    measuresOfEnding_ = 0;
    strain_ = at_;
}

void Walk::passMeasures(int count)
{
    constexpr int mostCounted = 1'000'000; // a text that repeats without end comes here for as long
    measuresOfEnding_ = std::min(measuresOfEnding_ + std::min(count, mostCounted), mostCounted);
    if (count > 0 && measuresOfEnding_ == measuresOfLast_)
        strain_ = at_;
}

// Where the last ending has no bar line that ends it, "[2 … |", a repeat or a first ending far behind belongs to a
// strain of its own, which begins where the ending is as long as the one before.
bool Walk::hasStrainInEnding() const
{
    constexpr int shortestStrain = 4; // measures
    return isInEnding_ && measuresOfLast_ > 0 && measuresOfEnding_ >= measuresOfLast_ + shortestStrain;
}

// A repeat that began with a sign and that the next one meets unended was meant to end there. A sign before the second
// ending, ":| |: [2", begins nothing.
void Walk::startRepeat()
{
    if (isLaterEndingNext(ahead(at_))) {
        ++at_;
        return;
    }
    if (begun_ == Begun::BySign && pass_ == 1 && !isInEnding_ && soundsSinceStart())
        return goBack();
    beginGroup(++at_, Begun::BySign);
    isInEnding_ = false;
}

bool Walk::soundsSinceStart() const
{
    const auto begin = items_.begin();
    return std::any_of(begin + start_, begin + at_, [](const ScoreItem &item) { return item.kind == Kind::Sound; });
}

void Walk::endRepeat(const ScoreItem &item)
{
    if (pass_ < passesOfGroup(int(item.passes)))
        return goBack();
    if (hasStrainInEnding()) {
        beginGroup(strain_);
        return goBack();
    }
    beginGroup(++at_);
    isInEnding_ = false;
}

// Behind a double bar line that ends an ending something new begins; behind others, too, where a repeat may end that no
// sign begins (ABC standard 2.1, section 4.8).
void Walk::stopEnding()
{
    const bool mayBegin = isInEnding_ || (begun_ == Begun::Silently && !isFirstGroup_ && pass_ == 1);
    if (mayBegin && !isEndingNext(ahead(at_)))
        beginGroup(at_);
    isInEnding_ = false;
}

// An ending of other passes: to its end, a repeat's end, a thick bar line or the next ending.
void Walk::skipEnding()
{
    auto at = at_ + 1;
    const auto ends = [&](Kind kind) {
        return kind == Kind::RepeatEnd || kind == Kind::EndingStop || kind == Kind::Ending || kind == Kind::RepeatStart;
    };
    while (at < end_ && !ends(items_[int(at)].kind))
        ++at;
    const auto kind = at < end_ ? items_[int(at)].kind : Kind::Ending;
    const bool isOwnEnd = kind == Kind::RepeatEnd || kind == Kind::EndingStop;
    at_ = isOwnEnd ? at + 1 : at;
    if (isOwnEnd && !isEndingNext(ahead(at_)))
        beginGroup(at_);
}

// From the end, so that each item is looked at once. A group ends where the next begins, and at the end of a repeat
// that no ending follows.
void Walk::lookAhead()
{
    ahead_.resize(int(end_ - begin_) + 1);
    for (auto at = end_ - 1; at >= begin_; --at) {
        const auto &item = items_[int(at)];
        const auto &next = ahead(at + 1);
        auto &here = ahead_[int(at - begin_)];
        const bool isStray = item.kind == Kind::RepeatStart && isLaterEndingNext(next);
        const bool isSilent = item.kind == Kind::Bar || item.kind == Kind::Key || item.kind == Kind::Metre ||
                              item.kind == Kind::Tempo || item.kind == Kind::ChordName || isStray;
        here.nextEnding = item.kind == Kind::Ending ? item.passes : isSilent ? next.nextEnding : 0;
        const bool endsGroup =
            (item.kind == Kind::RepeatStart && !isStray) || (item.kind == Kind::RepeatEnd && !isEndingNext(next));
        const int own = item.kind == Kind::Ending ? std::bit_width(item.passes) - 1 : 0;
        here.passes = endsGroup ? quint8(0) : quint8(std::max(int(next.passes), own));
    }
}

// The greatest number of its endings says how often a group is played. Of a first ending alone the second is what
// follows.
int Walk::passesOfGroup(int withoutEndings) const
{
    const int passes = ahead(start_).passes;
    return passes > 1 ? passes : passes == 1 ? 2 : withoutEndings;
}

class Performer
{
public:
    Performer(const VoiceScore &score, GraceNotes graces, const std::stop_token &stop)
        : score_(score), items_(score.items), graces_(graces), stop_(stop)
    {
        performed_.notes.reserve(2 * int(score.notes.size())); // nearly all is repeated
        noteSigns();
    }

    PerformedVoice perform(const QString &partOrder)
    {
        if (partOrder.isEmpty())
            play(0, items_.size());
        else
            playParts(partOrder);
        loseTies();
        performed_.end = std::max(farthest_, now_).rounded();
        return std::move(performed_);
    }

private:
    struct OpenTie
    {
        int note = 0; // its index
        MusicTime end;
        int measure = 0;
        int layer = 0;
    };
    bool continues(const OpenTie &tie, const MusicTime &start) const;

    void play(qsizetype begin, qsizetype end);
    void playParts(const QString &order);
    void spend(qint64 cost);
    void noteSigns();
    void showSigns(const ScoreItem &item);
    void playItem(const ScoreItem &item);
    void sound(const ScoreItem &item);
    Fraction playGraces(const ScoreItem &item);
    void playNote(const ScoreNote &note, const MusicTime &start, const Fraction &length);
    int appendNote(int pitch, const MusicTime &start, const MusicTime &end);
    void loseTie(const OpenTie &tie) { performed_.report.add(ImportFinding::TieLost, tie.end.rounded()); }
    void loseTies();
    void endMeasure();

    const VoiceScore &score_;
    const QVector<ScoreItem> &items_;
    GraceNotes graces_;
    const std::stop_token &stop_;
    PerformedVoice performed_;
    struct Signs // that stand last before an item; null: none
    {
        const ScoreItem *key = nullptr;
        const ScoreItem *metre = nullptr;
    };
    QVector<Signs> signs_; // of each item, itself included; empty when there are none but at the begin
    Signs shown_;
    MusicTime now_;
    MusicTime measureStart_;
    int measure_ = 0;
    int layer_ = 0;      // 0: what stands first in the measure, then its overlays
    MusicTime farthest_; // of the overlays of this measure
    QHash<int, OpenTie> ties_;
    qint64 left_ = mostPlayed;
};

// A few signs may ask for any number of repeats.
void Performer::spend(qint64 cost)
{
    throwIfStopped(stop_);
    if ((left_ -= cost) < 0)
        throw QCoreApplication::translate("StandardAbc", "The tune is too long.");
}

void Performer::play(qsizetype begin, qsizetype end)
{
    spend(end - begin);
    Walk walk(items_, begin, end);
    while (const auto *const item = walk.next())
        playItem(*item);
    performed_.repeatsPlayed += walk.repeatsPlayed();
}

// Music before the first label comes first; of parts with one name the first that has music is meant.
void Performer::playParts(const QString &order)
{
    QHash<quint32, std::pair<qsizetype, qsizetype>> parts;
    const auto isPart = [](const ScoreItem &item) { return item.kind == Kind::Part; };
    const auto hasMusic = [](const ScoreItem &item) { return item.kind == Kind::Sound; };
    auto label = std::find_if(items_.begin(), items_.end(), isPart);
    play(0, label - items_.begin());
    while (label != items_.end()) {
        const auto next = std::find_if(label + 1, items_.end(), isPart);
        if (!parts.contains(label->first) && std::any_of(label, next, hasMusic))
            parts.insert(label->first, {label - items_.begin(), next - items_.begin()});
        label = next;
    }
    for (const auto letter : order) {
        if (const auto part = parts.constFind(letter.unicode()); part != parts.constEnd())
            play(part->first, part->second);
    }
}

void Performer::noteSigns()
{
    const auto isSign = [](const ScoreItem &item) { return item.kind == Kind::Key || item.kind == Kind::Metre; };
    const auto firstSound = std::find_if_not(items_.begin(), items_.end(), isSign);
    if (std::none_of(firstSound, items_.end(), isSign))
        return;
    Signs signs;
    signs_.reserve(items_.size());
    for (const auto &item : items_) {
        if (item.kind == Kind::Key)
            signs.key = &item;
        else if (item.kind == Kind::Metre)
            signs.metre = &item;
        signs_.append(signs);
    }
}

// The key and metre of the place where playing goes on hold there again, whatever came since.
void Performer::showSigns(const ScoreItem &item)
{
    if (signs_.isEmpty())
        return;
    const auto tick = now_.rounded();
    const auto shown = std::exchange(shown_, signs_[int(&item - items_.data())]);
    if (const auto *const key = shown_.key; key != shown.key && key != nullptr)
        performed_.changes.append(TrackEvent::key(tick, key->first, key->second));
    if (const auto *const metre = shown_.metre; metre != shown.metre && metre != nullptr)
        performed_.changes.append(TrackEvent::metre(tick, metre->first, metre->second));
}

void Performer::playItem(const ScoreItem &item)
{
    spend(1 + qint64(item.notes.count));
    showSigns(item);
    const auto tick = now_.rounded();
    switch (item.kind) {
    case Kind::Sound:
        sound(item);
        break;
    case Kind::Bar:
        endMeasure();
        break;
    case Kind::Overlay:
        farthest_ = std::max(farthest_, now_);
        now_ = measureStart_;
        ++layer_;
        break;
    case Kind::ChordName:
        if (layer_ == 0)
            performed_.chords.push_back({tick, item.text, int(item.first)});
        break;
    case Kind::Tempo:
        performed_.tempos.append(TrackEvent::tempo(tick, item.first, item.second, item.perMinute));
        break;
    default:
        break;
    }
}

// A short overlay is filled up with a rest.
void Performer::endMeasure()
{
    now_ = std::max(farthest_, now_);
    farthest_ = now_;
    measureStart_ = now_;
    ++measure_;
    layer_ = 0;
    if (now_.rounded() > 0)
        performed_.measures.push_back(now_.rounded());
}

void Performer::sound(const ScoreItem &item)
{
    const auto taken = playGraces(item);
    auto start = now_;
    start.advance(taken);
    for (const auto &note : score_.in(item.notes))
        playNote(note, start, taken.isZero() ? note.length : note.length - taken);
    now_.advance(item.duration);
}

// Each lasts a quarter of its written length; where that leaves nothing of the note they are left out.
Fraction Performer::playGraces(const ScoreItem &item)
{
    if (graces_ == GraceNotes::Drop || item.notes.count == 0 || item.graces.count == 0)
        return {};
    Fraction total;
    for (const auto &grace : score_.in(item.graces))
        total = total + grace.length * Fraction(1, 4);
    const auto isShorter = [&](const ScoreNote &note) { return note.length <= total; };
    const auto notes = score_.in(item.notes);
    if (item.duration <= total || std::any_of(notes.begin(), notes.end(), isShorter))
        return {};
    auto start = now_;
    for (const auto &grace : score_.in(item.graces)) {
        auto end = start;
        end.advance(grace.length * Fraction(1, 4));
        appendNote(grace.pitch, start, end);
        start = end;
    }
    return total;
}

// Within a measure no tie leads from one layer into another.
bool Performer::continues(const OpenTie &tie, const MusicTime &start) const
{
    return tie.end == start && (tie.measure != measure_ || tie.layer == layer_);
}

void Performer::playNote(const ScoreNote &note, const MusicTime &start, const Fraction &length)
{
    auto end = start;
    end.advance(length);
    if (ties_.isEmpty() && !note.isTied) {
        appendNote(note.pitch, start, end);
        return;
    }
    const auto tie = ties_.find(note.pitch);
    const bool isContinued = tie != ties_.end() && continues(*tie, start);
    const int index = isContinued ? tie->note : appendNote(note.pitch, start, end);
    if (isContinued) {
        auto &held = performed_.notes[index];
        held.setLength(end.rounded() - held.start());
    }
    if (tie != ties_.end() && !isContinued) {
        loseTie(*tie);
        ties_.erase(tie);
    }
    if (note.isTied && index >= 0)
        ties_.insert(note.pitch, {index, end, measure_, layer_});
    else if (isContinued)
        ties_.remove(note.pitch);
}

// In the order of time, whatever the table's is.
void Performer::loseTies()
{
    auto open = ties_.values();
    std::sort(open.begin(), open.end(), [](const OpenTie &a, const OpenTie &b) { return a.end < b.end; });
    for (const auto &tie : qAsConst(open))
        loseTie(tie);
}

// The index of the new note, -1 when it is too low to have a number.
int Performer::appendNote(int pitch, const MusicTime &start, const MusicTime &end)
{
    if (pitch < 0) {
        performed_.report.add(ImportFinding::OutOfRange, start.rounded());
        return -1;
    }
    const auto length = std::max<Ticks>(1, end.rounded() - start.rounded());
    performed_.notes.append(TrackEvent::note(quint32(pitch), start.rounded(), length));
    return int(performed_.notes.size()) - 1;
}

} // namespace

PerformedVoice perform(const VoiceScore &score, const QString &partOrder, GraceNotes graces,
                       const std::stop_token &stop)
{
    return Performer(score, graces, stop).perform(partOrder);
}
