#include "import/standard/Performance.h"

#include "base/Interrupted.h"
#include "import/standard/RepeatWalk.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <utility>

namespace {

using Kind = ScoreItem::Kind;

constexpr qint64 mostPlayed = 4'000'000; // items and notes

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
    RepeatWalk walk(items_, begin, end);
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
    if (!signs_.isEmpty())
        showSigns(item);
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
            performed_.chords.push_back({now_.rounded(), item.text, int(item.first)});
        break;
    case Kind::Tempo:
        performed_.tempos.append(TrackEvent::tempo(now_.rounded(), item.first, item.second, item.perMinute));
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
    const auto taken = item.graces.count > 0 ? playGraces(item) : Fraction();
    if (taken.isZero()) {
        for (const auto &note : score_.in(item.notes))
            playNote(note, now_, note.length);
    } else {
        auto start = now_;
        start.advance(taken);
        for (const auto &note : score_.in(item.notes))
            playNote(note, start, note.length - taken);
    }
    now_.advance(item.duration);
}

// Each lasts a quarter of its written length; where that leaves nothing of the note they are left out.
Fraction Performer::playGraces(const ScoreItem &item)
{
    if (graces_ == GraceNotes::Drop || item.notes.count == 0)
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
    const auto tick = start.rounded();
    if (pitch < 0) {
        performed_.report.add(ImportFinding::OutOfRange, tick);
        return -1;
    }
    performed_.notes.append(TrackEvent::note(quint32(pitch), tick, std::max<Ticks>(1, end.rounded() - tick)));
    return int(performed_.notes.size()) - 1;
}

} // namespace

PerformedVoice perform(const VoiceScore &score, const QString &partOrder, GraceNotes graces,
                       const std::stop_token &stop)
{
    return Performer(score, graces, stop).perform(partOrder);
}
