#include "import/standard/Tunebook.h"

#include <QCoreApplication>

#include <utility>

namespace {

// Each tune gets the file's header, so both are bounded.
constexpr int mostTunes = 10'000;
constexpr int longestFileHeader = 200; // lines

bool isDirective(QStringView line)
{
    return line.startsWith(u'%');
}

// One line after the other; CR, LF and both together end one.
class Lines
{
public:
    explicit Lines(const QString &text) : rest_(text) {}

    bool isAtEnd() const { return rest_.isEmpty(); }
    QStringView next()
    {
        qsizetype end = 0;
        while (end < rest_.size() && rest_.at(end) != u'\n' && rest_.at(end) != u'\r')
            ++end;
        const auto line = rest_.left(end);
        if (end < rest_.size())
            end += rest_.mid(end).startsWith(u"\r\n") ? 2 : 1;
        rest_ = rest_.mid(end);
        return line;
    }

private:
    QStringView rest_;
};

class TunebookSplitter
{
public:
    explicit TunebookSplitter(const QString &text) : lines_(text) {}

    QVector<TunebookTune> split()
    {
        while (!lines_.isAtEnd())
            take(lines_.next());
        return tunes_;
    }

private:
    enum class Place { FileHeader, FreeText, Header, BodyOrHeader, Body };

    void take(QStringView line);
    void takeOutside(QStringView line);
    void takeHeader(QStringView line);
    void endHeader(QStringView key);
    void addToFileHeader(QStringView line);
    void beginTune();

    Lines lines_;
    QVector<QStringView> fileHeader_;
    QVector<TunebookTune> tunes_;
    Place place_ = Place::FileHeader;
    QString skippedBlock_; // "%%end…" that ends a block of text
};

void TunebookSplitter::take(QStringView line)
{
    if (!skippedBlock_.isEmpty()) {
        if (line.startsWith(skippedBlock_))
            skippedBlock_.clear();
        return;
    }
    for (const auto *block : {"%%begintext", "%%beginps", "%%beginsvg"}) {
        if (isDirective(line) && line.startsWith(QLatin1String(block))) {
            skippedBlock_ = QStringLiteral("%%end") + line.mid(7).toString().section(u' ', 0, 0);
            return;
        }
    }
    const bool isEmpty = line.trimmed().isEmpty();
    if (isEmpty)
        place_ = place_ == Place::FileHeader && fileHeader_.isEmpty() ? place_ : Place::FreeText;
    else if (line.startsWith(u"X:") || place_ == Place::FileHeader || place_ == Place::FreeText)
        takeOutside(line);
    else if (place_ == Place::Header)
        takeHeader(line);
    else if (place_ == Place::BodyOrHeader && line.startsWith(u"K:"))
        endHeader(line);
    else
        tunes_.last().body.append(line);
}

void TunebookSplitter::beginTune()
{
    if (tunes_.size() >= mostTunes)
        throw QCoreApplication::translate("StandardAbc", "Too many tunes.");
    tunes_.append(TunebookTune());
    tunes_.last().header = fileHeader_;
    place_ = Place::Header;
}

void TunebookSplitter::takeOutside(QStringView line)
{
    if (line.startsWith(u"X:")) {
        beginTune();
        tunes_.last().number = line.mid(2).trimmed().toString();
        return;
    }
    if (isDirective(line)) {
        addToFileHeader(line);
        return;
    }
    if (!isFieldLine(line, LinePlace::Header))
        return;
    // Without X: a tune may begin with its title or, at the latest, its key.
    const bool isTuneField = line.startsWith(u"T:") || line.startsWith(u"K:");
    if (isTuneField) {
        beginTune();
        takeHeader(line);
    } else {
        addToFileHeader(line);
    }
}

void TunebookSplitter::addToFileHeader(QStringView line)
{
    if (place_ == Place::FileHeader && fileHeader_.size() < longestFileHeader)
        fileHeader_.append(line);
}

void TunebookSplitter::takeHeader(QStringView line)
{
    auto &tune = tunes_.last();
    if (!isFieldLine(line, LinePlace::Header) && !isDirective(line)) {
        place_ = Place::BodyOrHeader;
        tune.body.append(line);
        return;
    }
    tune.header.append(line);
    if (line.startsWith(u"T:") && tune.title.isEmpty())
        tune.title = line.mid(2).trimmed().toString();
    if (line.startsWith(u"K:"))
        place_ = Place::Body;
}

// What looked like music without a key was text, such as the rest of a long title, and fields.
void TunebookSplitter::endHeader(QStringView key)
{
    auto &tune = tunes_.last();
    for (const auto line : std::exchange(tune.body, {})) {
        if (isFieldLine(line, LinePlace::Header) || isDirective(line))
            takeHeader(line);
    }
    takeHeader(key);
}

} // namespace

bool isFieldLine(QStringView line, LinePlace place)
{
    const auto isLetter = [](QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'+'; };
    if (line.size() < 2 || !isLetter(line.at(0)) || line.at(1) != u':')
        return false;
    const bool mayBeBarLine = line.size() > 2 && (line.at(2) == u'|' || line.at(2) == u':');
    const auto ofMusic = QStringLiteral("ABCDEFGabcdefgxyzXZ");
    const auto decorations = QStringLiteral("HLMOPSTuv");
    const bool mayBeMusic =
        ofMusic.contains(line.at(0)) || (place == LinePlace::Body && decorations.contains(line.at(0)));
    return !(mayBeBarLine && mayBeMusic);
}

QVector<TunebookTune> splitTunebook(const QString &text)
{
    return TunebookSplitter(text).split();
}
