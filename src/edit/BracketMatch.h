#pragma once

#include <utility>

class QTextDocument;

// The offsets of the bracket that begins or ends at the caret and of its partner: chords, slurs, grace notes and inline
// fields. The state of the lines' blocks is an AbcLineState, if any. Both are -1 when there is none, or none within
// some thousand characters. A tuplet's bracket has no partner.
std::pair<int, int> matchBracket(const QTextDocument &text, int caret);
