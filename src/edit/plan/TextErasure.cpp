#include "edit/plan/TextErasure.h"

#include "core/AbcTokenizer.h"
#include "edit/AbcReading.h"

#include <algorithm>
#include <map>

namespace {

// Calls visit(token, range) for the tokens of a text.
template<typename Visit>
void forEachToken(const QString &text, Visit visit)
{
    const auto lines = lineOffsets(text);
    AbcTokenizer tokens(text);
    AbcToken token;
    while (tokens.next(token))
        visit(token, TextRange{lines[token.line] + token.column, int(token.text.size())});
}

bool isField(AbcTokenType type)
{
    return type == AbcTokenType::FieldLine || type == AbcTokenType::InlineField;
}

bool isMusic(AbcTokenType type)
{
    return !isField(type) && type != AbcTokenType::Comment && type != AbcTokenType::Instruction &&
           type != AbcTokenType::LineContinuation;
}

// Says the same for all that comes behind it, up to the next of its kind.
bool isState(const AbcToken &token)
{
    return isField(token.type) && QStringLiteral("KLMQ").contains(token.part(AbcPart::Name)[0]);
}

} // namespace

void TextErasure::erase(TextRange range)
{
    std::fill_n(isErased_.begin() + range.offset, range.length, true);
}

void TextErasure::insert(int offset, const QString &text)
{
    offset_ = offset;
    inserted_ = text;
}

void TextErasure::moveBack(TextRange range, int offset)
{
    const auto isKept = [&](int begin, int end) {
        return std::any_of(isErased_.begin() + begin, isErased_.begin() + end, [](bool isErased) { return !isErased; });
    };
    const auto line = int(text_.indexOf(u'\n', offset)) + 1;
    const bool staysThere = line > 0 && line < range.offset && isKept(line, range.offset);
    erase({offset, 1});
    if (staysThere)
        std::fill_n(isErased_.begin() + range.offset, range.length, false);
    else
        insert(offset, text_.mid(range.offset, range.length));
}

void TextErasure::eraseMusic(int begin, int end)
{
    const auto isInside = [&](const TextRange &range) { return range.offset >= begin && range.end() <= end; };
    std::vector<TextRange> openSlurs;
    std::map<QChar, TextRange> states;
    TextRange blanks;
    forEachToken(text_, [&](const AbcToken &token, TextRange range) {
        if (token.type == AbcTokenType::SlurStart) {
            openSlurs.push_back(range);
        } else if (token.type == AbcTokenType::SlurEnd && !openSlurs.empty()) {
            if (isInside(openSlurs.back()) != isInside(range)) {
                erase(openSlurs.back());
                erase(range);
            }
            openSlurs.pop_back();
        }
        if (!isInside(range))
            return;
        if (isMusic(token.type))
            erase(range);
        if (isState(token)) {
            auto &earlier = states[token.part(AbcPart::Name)[0]];
            erase(earlier);
            earlier = range;
        }
        if (token.type == AbcTokenType::Comment)
            std::fill_n(isErased_.begin() + blanks.offset, blanks.length, false);
        blanks = token.type == AbcTokenType::WhiteSpace ? range : TextRange();
    });
    eraseBlankLines(begin, end);
}

// Lines of which nothing is left, and blanks that now begin one.
void TextErasure::eraseBlankLines(int begin, int end)
{
    for (auto line = begin == 0 ? 0 : int(text_.lastIndexOf(u'\n', begin - 1)) + 1; line < end;) {
        const auto feed = int(text_.indexOf(u'\n', line));
        const auto lineEnd = feed < 0 ? int(text_.size()) : feed;
        eraseLine(line, lineEnd);
        line = lineEnd + 1;
    }
}

// Where it goes, and no line behind it continues the one before, that one ends there.
void TextErasure::eraseLine(int begin, int end)
{
    auto first = begin;
    while (first < end && (isErased_[size_t(first)] || text_[first].isSpace()))
        ++first;
    if (std::find(isErased_.begin() + begin, isErased_.begin() + first, true) == isErased_.begin() + first)
        return;
    const bool isContinued = first < end && text_[first] == u'\\';
    const bool isBlank = first == end || isContinued;
    erase({begin, (isBlank ? std::min(int(text_.size()), end + 1) : first) - begin});
    const bool continues = begin > 1 && text_[begin - 2] == u'\\';
    if (isBlank && continues && !isContinued)
        erase({begin - 2, 1});
}

QString TextErasure::text() const
{
    QString result;
    result.reserve(text_.size() + inserted_.size());
    for (int i = 0; i <= text_.size(); ++i) {
        if (i == offset_)
            result += inserted_;
        if (i < text_.size() && !isErased_[size_t(i)])
            result += text_[i];
    }
    return result;
}
