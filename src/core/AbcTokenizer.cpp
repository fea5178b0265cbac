#include "core/AbcTokenizer.h"

#include "core/AbcScanner.h"

#include <QStringList>

#include <string>

AbcTokenizer::AbcTokenizer(QStringView text, AbcSymbols symbols)
    : textEnd_(text.utf16() + text.size()), symbols_(symbols)
{
    beginLine(text.utf16());
}

void AbcTokenizer::beginLine(const char16_t *begin)
{
    lineBegin_ = at_ = begin;
    const auto *const lineFeed = std::char_traits<char16_t>::find(begin, size_t(textEnd_ - begin), u'\n');
    lineEnd_ = lineFeed != nullptr ? lineFeed : textEnd_;
}

bool AbcTokenizer::next(AbcToken &token)
{
    while (at_ == lineEnd_) {
        if (lineEnd_ == textEnd_)
            return false;
        beginLine(lineEnd_ + 1);
        ++line_;
    }
    AbcScanner scanner(lineBegin_, at_, lineEnd_, token);
    token.type = scanner.scan(symbols_);
    token.line = line_;
    token.column = int(at_ - lineBegin_);
    token.text = QStringView(at_, scanner.end() - at_);
    at_ = scanner.end();
    if (token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::InlineField)
        applyInstructionField(token);
    return true;
}

void AbcTokenizer::applyInstructionField(const AbcToken &token)
{
    if (token.part(AbcPart::Name) != u"I")
        return;
    const auto words = token.part(AbcPart::Value).toString().simplified().split(u' ');
    if (words.first() == u"linebreak" && words.size() > 1) {
        symbols_.dollarBreaksLines = words.contains(QStringLiteral("$"));
        symbols_.bangBreaksLines = words.contains(QStringLiteral("!"));
    } else if (words.first() == u"decoration") {
        symbols_.bangDecorates = words.size() > 1 && words[1] == u"!";
    }
}
