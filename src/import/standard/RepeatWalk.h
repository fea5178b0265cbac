#pragma once

#include "import/standard/ScoreItem.h"

#include <vector>

// The order in which items are played, with repeats and endings: it walks through a stretch of items and tells each
// that is reached.
class RepeatWalk
{
public:
    RepeatWalk(const QVector<ScoreItem> &items, qsizetype begin, qsizetype end)
        : items_(items), end_(end), at_(begin), begin_(begin), start_(begin)
    {
        lookAhead();
    }

    // The next item to play, null at the end.
    const ScoreItem *next()
    {
        while (at_ < end_) {
            const auto &item = items_[int(at_)];
            if (item.kind == ScoreItem::Kind::Sound && item.first == 0) { // nearly all
                ++at_;
                return &item;
            }
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
    const Ahead &ahead(qsizetype at) const { return ahead_[std::size_t(at - begin_)]; }
    int passesOfGroup(int withoutEndings) const;

    const QVector<ScoreItem> &items_;
    qsizetype end_;
    qsizetype at_;
    qsizetype begin_;
    qsizetype start_;          // where a repeat goes back to
    std::vector<Ahead> ahead_; // of each item, and of the end
    int pass_ = 1;
    Begun begun_ = Begun::Silently; // whether |: stands at the start
    bool isFirstGroup_ = true;      // which begins with the music, wherever double bar lines are
    bool isInEnding_ = false;
    int measuresOfEnding_ = 0; // so far
    int measuresOfLast_ = 0;   // of the ending that was played before; 0: none was
    qsizetype strain_ = 0;     // where this ending is as long as that
    int repeatsPlayed_ = 0;
};
