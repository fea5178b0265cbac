#pragma once

#include "core/AbcTokenizer.h"

// Scans the one token that begins at a position of a line. Private to AbcTokenizer.
class AbcScanner
{
public:
    AbcScanner(const char16_t *lineBegin, const char16_t *at, const char16_t *lineEnd, AbcToken &token)
        : at_(at), lineEnd_(lineEnd), atLineBegin_(at == lineBegin), token_(token)
    {
    }

    AbcTokenType scan(AbcSymbols symbols);
    const char16_t *end() const { return p_; }

private:
    using Type = AbcTokenType;
    using Part = AbcPart;

    // Kinds of token: each begins anew at the position and says whether it is there.
    bool note();
    bool rest();
    bool chordEnd();
    bool tie();
    bool fieldLine();
    bool inlineField();
    bool instruction();
    bool barLine();
    bool variantEnding();
    bool tuplet();
    bool annotation();
    bool chordSymbol();
    bool decoration(char16_t delimiter);
    bool slur(char16_t bracket);
    bool graceStart();
    bool comment();
    bool run(char16_t c, int limit);
    bool one();
    bool whiteSpace();

    // First characters that leave a choice of kinds.
    Type letter();
    Type bracket();
    Type dot();
    Type bang(AbcSymbols symbols);

    // Elements: each takes what is there and moves on.
    void begin(qsizetype limit)
    {
        p_ = at_;
        end_ = lineEnd_ - at_ < limit ? lineEnd_ : at_ + limit;
        token_.parts.fill({});
    }
    bool take(char16_t c)
    {
        if (!peek(c))
            return false;
        ++p_;
        return true;
    }
    bool takeRun(char16_t c)
    {
        const auto *const from = p_;
        while (take(c)) {
        }
        return p_ > from;
    }
    bool takeDigits()
    {
        const auto *const from = p_;
        while (p_ < end_ && *p_ >= u'0' && *p_ <= u'9')
            ++p_;
        return p_ > from;
    }
    void takeNumberList();
    bool takeUpTo(char16_t delimiter);
    void skipSpace();
    void takeLength();
    bool takeTie();
    bool peek(char16_t c) const { return p_ < end_ && *p_ == c; }

    void record(AbcPart part, const char16_t *from) { token_.parts[size_t(part)] = {int(from - at_), int(p_ - at_)}; }

    char16_t charAt(int offset) const { return lineEnd_ - at_ > offset ? at_[offset] : u'\0'; }

    const char16_t *at_;
    const char16_t *lineEnd_;
    bool atLineBegin_;
    AbcToken &token_;
    const char16_t *p_ = nullptr;   // scanned up to here
    const char16_t *end_ = nullptr; // and no further than here
};
