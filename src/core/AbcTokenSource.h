#pragma once

#include "core/AbcListener.h"
#include "core/AbcTokenizer.h"

#include <QString>

#include <stop_token>

// The tokens of a text, as far as they can be read. One that cannot be is told to the listener, and where there is none
// or it does not want to go on behind it, a QString says where it stands. Private to AbcParser.
class AbcTokenSource
{
public:
    AbcTokenSource(const QString &text, const std::stop_token &stop, AbcListener *listener)
        : tokens_(text), stop_(stop), listener_(listener)
    {
    }

    // Each reads the next token, and is false at the end of the text.
    bool nextInHeader();
    bool nextInBody();
    bool nextInChord(size_t notesBefore);

    // That was read last.
    const AbcToken &token() const { return token_; }
    bool inGraceNotes() const { return inGraceNotes_; }
    // Of the next token.
    int line() const { return tokens_.line(); }

    // Throws, or gives false, the answer to whether the token is read.
    bool refuse(AbcRefusal why) const;
    [[noreturn]] void failBehindToken() const; // the text ends within a chord

private:
    bool isReadableInHeader();
    bool isReadableInBody();
    bool isReadableInChord(size_t notesBefore);
    bool isChordReadable();
    bool goesOnBehind(AbcRefusal why, const AbcToken &last) const;

    AbcTokenizer tokens_;
    const std::stop_token &stop_;
    AbcListener *const listener_; // may be null
    AbcToken token_;
    bool inGraceNotes_ = false;
};
