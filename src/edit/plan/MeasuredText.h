#pragma once

#include "core/Measures.h"
#include "edit/AbcLayout.h"

#include <functional>
#include <optional>

// Music that is written in measures: rests end with beats, what is shorter than a beat stands together within it, and
// new measures get bar lines. Private to the planner of edits.
class MeasuredText
{
public:
    // Begins in front of an element at the tick. The layout and the measures must outlive this object.
    MeasuredText(const AbcLayout &layout, const Measures &measures, Ticks unitLength, Ticks start);

    // Bar lines are written from here on, the first one at the tick; so many measures stand on the line.
    using BarLineWritten = std::function<void()>;
    void writeBarLinesFrom(Ticks tick, int measuresOfLine, const BarLineWritten &written);
    // Goes on behind an element of the text.
    void continueBehind(const AbcTextElement &element);

    Ticks cursor() const { return cursor_; }
    void addRests(Ticks until);
    // Before an element that begins at the cursor.
    void separate(Ticks advance);
    void add(const QString &text) { text_ += text; }
    void pass(Ticks advance); // the element that was added

    QString take() { return std::move(text_); }
    // Nothing stands between the element before and the first that was written.
    bool isJoined() const { return isJoined_; }

private:
    Ticks groupAt(Ticks tick) const;
    bool isInGroup(Ticks start, Ticks advance) const;
    bool joins(Ticks advance) const;
    bool writesGroups() const;
    Ticks restEnd(Ticks until) const;
    void addBarLine();

    const AbcLayout &layout_;
    const Measures &measures_;
    Ticks unitLength_;
    Ticks cursor_;
    std::optional<Ticks> barLine_; // the next
    BarLineWritten barLineWritten_;
    int measuresOfLine_ = 0;
    bool isShort_ = false; // the element before, and in the group of the cursor
    bool isJoined_ = false;
    bool isBehindBarLine_ = false;
    QString text_;
};
