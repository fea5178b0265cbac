#include "song/JsonWriter.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

class Writer
{
public:
    Writer(JsonLayout layout, const QStringList &order) : layout_(layout)
    {
        for (int place = 0; place < order.size(); ++place) {
            if (!places_.contains(order[place]))
                places_.insert(order[place], place);
        }
    }

    QByteArray take(const QJsonObject &object)
    {
        writeObject(object);
        return std::move(bytes_);
    }

private:
    void writeValue(const QJsonValue &value);
    void writeObject(const QJsonObject &object);
    void writeArray(const QJsonArray &array);
    void writeString(const QString &text);
    void writeEscape(QChar c);
    void newLine();
    QStringList ordered(QStringList names) const;

    // writeElement(i) for every element, with what stands between.
    template<typename WriteElement>
    void writeList(char open, char close, int size, WriteElement writeElement)
    {
        bytes_ += open;
        ++depth_;
        for (int i = 0; i < size; ++i) {
            if (i > 0)
                bytes_ += ',';
            newLine();
            writeElement(i);
        }
        --depth_;
        if (size > 0)
            newLine();
        bytes_ += close;
    }

    JsonLayout layout_;
    QHash<QString, int> places_;
    QByteArray bytes_;
    int depth_ = 0;
};

// Without the brackets of the array that the library wants around it.
QByteArray plain(const QJsonValue &value)
{
    const auto array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

bool isOfNumbers(const QJsonArray &array)
{
    return !array.isEmpty() &&
           std::all_of(array.begin(), array.end(), [](const QJsonValue &each) { return each.isDouble(); });
}

void Writer::newLine()
{
    if (layout_ == JsonLayout::Lines)
        bytes_ += '\n' + QByteArray(2 * depth_, ' ');
}

void Writer::writeValue(const QJsonValue &value)
{
    if (value.isObject())
        writeObject(value.toObject());
    else if (value.isArray() && !isOfNumbers(value.toArray())) // those stand in one line
        writeArray(value.toArray());
    else if (value.isString())
        writeString(value.toString());
    else
        bytes_ += plain(value);
}

QStringList Writer::ordered(QStringList names) const
{
    const auto place = [this](const QString &name) { return places_.value(name, int(places_.size())); };
    std::stable_sort(names.begin(), names.end(), [&](const auto &a, const auto &b) { return place(a) < place(b); });
    return names;
}

void Writer::writeObject(const QJsonObject &object)
{
    const auto names = ordered(object.keys());
    writeList('{', '}', int(names.size()), [&](int i) {
        writeString(names[i]);
        bytes_ += layout_ == JsonLayout::Lines ? ": " : ":";
        writeValue(object[names[i]]);
    });
}

void Writer::writeArray(const QJsonArray &array)
{
    writeList('[', ']', int(array.size()), [&](int i) { writeValue(array[i]); });
}

bool mustEscape(const QString &text, int at)
{
    const auto c = text[at];
    if (c.isHighSurrogate())
        return at + 1 == text.size() || !text[at + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return at == 0 || !text[at - 1].isHighSurrogate();
    return c.unicode() < 0x20 || c == u'"' || c == u'\\' || c.unicode() == 0x7F;
}

void Writer::writeEscape(QChar c)
{
    static const QHash<ushort, char> letters{{u'"', '"'},  {u'\\', '\\'}, {u'\b', 'b'}, {u'\f', 'f'},
                                             {u'\n', 'n'}, {u'\r', 'r'},  {u'\t', 't'}};
    const auto letter = letters.constFind(c.unicode());
    if (letter != letters.constEnd())
        bytes_ += QByteArray("\\") + *letter;
    else
        bytes_ += "\\u" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
}

void Writer::writeString(const QString &text)
{
    bytes_ += '"';
    int written = 0;
    for (int at = 0; at < text.size(); ++at) {
        if (!mustEscape(text, at))
            continue;
        bytes_ += text.mid(written, at - written).toUtf8();
        writeEscape(text[at]);
        written = at + 1;
    }
    bytes_ += text.mid(written).toUtf8() + '"';
}

} // namespace

QByteArray writeJson(const QJsonObject &object, JsonLayout layout, const QStringList &order)
{
    return Writer(layout, order).take(object);
}
