#pragma once

#include "check/findings/CheckOptions.h"
#include "check/findings/Finding.h"
#include "core/AbcListener.h"
#include "core/Track.h"

#include <array>

// What the rules of one text share while it is read, and what they found.
class TextFindings
{
public:
    TextFindings(const QString &text, const CheckOptions &options);

    const QString &text() const { return text_; }
    const QVector<int> &lines() const { return lines_; } // where they begin
    TextRange rangeOf(const AbcToken &token) const
    {
        return {lines_[token.line] + token.column, int(token.text.size())};
    }

    Ticks position = 0; // where the music stands that is read

    int mostFindings() const { return mostFindings_; } // of a kind

    // Whether the kind has room for one more, so that nobody makes words in vain.
    bool hasRoomFor(FindingKind kind) const { return counts_[size_t(kind)] < mostFindings_; }
    void add(Finding finding);
    // Of what stands behind the element that is read and has no end yet: its time is told with that.
    void addBehindElement(Finding finding);
    void elementBegins() { hasElement_ = true; }
    void elementSounds(Ticks end);
    QVector<Finding> take(); // in the order of the text

private:
    const QString &text_;
    QVector<int> lines_;
    int mostFindings_;
    std::array<int, findingKindCount> counts_{};
    QVector<Finding> findings_;
    bool hasElement_ = false;
    QVector<Finding> waiting_; // for its end
};

// A check of the text of one part: it hears what an AbcListener hears, in the same order. A rule defines the calls that
// it needs, which are found without virtual functions; the text is long and the rules are many. A new rule takes its
// place among the rules of TextCheck.cpp.
class TextRule
{
public:
    explicit TextRule(TextFindings &out) : out_(out) {}

    void bodyBegins(int /*line*/, quint32 /*keyRow*/) {}
    void token(const AbcToken &) {}
    void elementBegins(const AbcToken & /*first*/) {}
    void note(const AbcToken &, const AbcPitch &) {}
    void elementSounds(Ticks /*end*/) {}
    void barLine(const AbcToken &, Ticks /*position*/) {} // out_.position is still the one before it
    void keyChange(const AbcToken &, quint32 /*keyRow*/) {}
    void tieLost(const TrackEvent & /*note*/) {}
    void refused(AbcRefusal, const AbcToken & /*first*/, const AbcToken & /*last*/) {}
    void textEnds(const Track &) {} // all of it is read

protected:
    TextFindings &out_;
};
