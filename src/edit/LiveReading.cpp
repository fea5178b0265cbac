#include "edit/LiveReading.h"

#include <algorithm>
#include <utility>

void LiveReading::take(AbcReading reading)
{
    reading_ = std::move(reading);
    typing_.clear();
}

void LiveReading::addTyping(int position, int removed, int added)
{
    typing_.append({position, removed, added});
}

TextRange LiveReading::sinceReading(TextRange range) const
{
    for (const auto &typing : typing_) {
        if (typing.position + typing.removed <= range.offset)
            range.offset += typing.added - typing.removed;
        else if (typing.position < range.end())
            return {};
    }
    return range;
}

int LiveReading::beforeTyping(int offset) const
{
    for (auto typing = typing_.rbegin(); typing != typing_.rend(); ++typing) {
        if (offset >= typing->position + typing->added)
            offset += typing->removed - typing->added;
        else
            offset = std::min(offset, typing->position);
    }
    return offset;
}

TextRange LiveReading::textOf(int note) const
{
    return note >= 0 && note < reading_.noteTexts.size() ? sinceReading(reading_.noteTexts[note]) : TextRange();
}

int LiveReading::noteAt(int offset) const
{
    const auto at = beforeTyping(offset);
    const auto token = reading_.layout.tokenAt(at);
    if (token < 0 || reading_.layout.tokens[token].range.end() < at)
        return -1;
    return reading_.layout.tokens[token].event;
}

QVector<int> LiveReading::notesWithin(TextRange range) const
{
    const auto begin = beforeTyping(range.offset);
    const auto end = beforeTyping(range.end());
    QVector<int> notes;
    const auto &tokens = reading_.layout.tokens;
    for (auto i = reading_.layout.tokenAt(begin - 1) + 1; i < tokens.size() && tokens[i].range.end() <= end; ++i) {
        if (tokens[i].event >= 0)
            notes.append(tokens[i].event);
    }
    return notes;
}

TextCaret LiveReading::caretAt(int offset) const
{
    const auto &elements = reading_.layout.elements;
    const auto at = beforeTyping(offset);
    const auto element = reading_.layout.elementAt(at);
    TextCaret caret{offset, noteAt(offset)};
    if (element >= 0 && at <= elements[element].range.end())
        caret.tick = elements[element].start;
    else if (element + 1 < elements.size())
        caret.tick = elements[element + 1].start;
    else if (!elements.isEmpty())
        caret.tick = elements.last().end();
    const bool isBehindElement = element >= 0 && at == elements[element].range.end();
    caret.insertion = isBehindElement ? elements[element].end() : caret.tick;
    return caret;
}
