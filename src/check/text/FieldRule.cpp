#include "check/text/FieldRule.h"

#include "core/HeaderFields.h"

#include <algorithm>
#include <array>

namespace {

bool isNothing(const QString &value)
{
    return value.isEmpty() || value.compare(u"none", Qt::CaseInsensitive) == 0 ||
           value.compare(u"free", Qt::CaseInsensitive) == 0;
}

struct Field
{
    char16_t name;
    bool (*isReadable)(const QString &value);
    const char *example;
};

constexpr std::array fields{
    Field{u'K', [](const QString &value) { return HeaderFields::findKey(value).has_value(); }, "K:D, K:Am, K:G mix"},
    Field{u'L', [](const QString &value) { return HeaderFields::findUnitLength(value).has_value(); }, "L:1/8"},
    Field{u'M', [](const QString &value) { return !HeaderFields::parseMetre(value).isNone(); }, "M:3/4"},
    Field{u'Q', [](const QString &value) { return HeaderFields::parseTempo(value).readable; }, "Q:1/4=120"},
};

quint32 unitLengthOf(const AbcToken &field)
{
    return HeaderFields::parseUnitLength(field.part(AbcPart::Value).trimmed());
}

} // namespace

// What stands in the header nobody tells.
void FieldRule::bodyBegins(int line, quint32)
{
    const auto end = line < out_.lines().size() ? out_.lines()[line] : int(out_.text().size());
    AbcTokenizer tokens(QStringView(out_.text()).left(end));
    AbcToken token;
    while (tokens.next(token)) {
        if (token.type != AbcTokenType::FieldLine)
            continue;
        if (token.part(AbcPart::Name) == u"L")
            unitLength_ = unitLengthOf(token);
        judge(token);
    }
}

void FieldRule::token(const AbcToken &token)
{
    if (token.type != AbcTokenType::FieldLine && token.type != AbcTokenType::InlineField)
        return;
    const auto name = token.part(AbcPart::Name)[0];
    if (name == u'X')
        add(FindingKind::SecondTune, token);
    else if (name == u'L' && unitLengthOf(token) != unitLength_) // whoever reads it, hears the same
        add(FindingKind::IgnoredField, token, {token.text.toString()});
    else
        judge(token);
}

void FieldRule::judge(const AbcToken &token)
{
    const auto name = token.part(AbcPart::Name)[0];
    const auto value = token.part(AbcPart::Value).trimmed().toString();
    const auto *const field =
        std::find_if(fields.begin(), fields.end(), [name](const Field &each) { return each.name == name; });
    if (field == fields.end() || isNothing(value) || field->isReadable(value))
        return;
    add(FindingKind::UnreadableField, token, {name + QStringLiteral(":") + value, QLatin1String(field->example)});
}

void FieldRule::add(FindingKind kind, const AbcToken &token, const QStringList &values)
{
    if (out_.hasRoomFor(kind))
        out_.addBehindElement({kind, out_.rangeOf(token), -1, values});
}
