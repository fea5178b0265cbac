#include "import/standard/TuneScore.h"

#include "base/Interrupted.h"
#include "import/standard/MusicLine.h"
#include "import/standard/PartOrder.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace {

constexpr int mostElements = 1'000'000; // notes, rests, bar lines and fields of all voices
constexpr std::size_t mostVoices = 1'000;

// A percent sign begins a comment unless a backslash stands before it.
QStringView withoutComment(QStringView line)
{
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line.at(i) == u'%' && (i == 0 || line.at(i - 1) != u'\\'))
            return line.left(i);
    }
    return line;
}

// As long as U: says nothing else (ABC standard 2.1, section 4.14).
const std::map<QString, QString> &usualSymbols()
{
    static const std::map<QString, QString> symbols{
        {QStringLiteral("."), QStringLiteral("staccato")},     {QStringLiteral("~"), QStringLiteral("roll")},
        {QStringLiteral("H"), QStringLiteral("fermata")},      {QStringLiteral("L"), QStringLiteral("accent")},
        {QStringLiteral("M"), QStringLiteral("lowermordent")}, {QStringLiteral("O"), QStringLiteral("coda")},
        {QStringLiteral("P"), QStringLiteral("uppermordent")}, {QStringLiteral("S"), QStringLiteral("segno")},
        {QStringLiteral("T"), QStringLiteral("trill")},        {QStringLiteral("u"), QStringLiteral("upbow")},
        {QStringLiteral("v"), QStringLiteral("downbow")}};
    return symbols;
}

ScoreItem itemOf(const KeySignature &key)
{
    ScoreItem item;
    item.kind = ScoreItem::Kind::Key;
    item.first = key.row;
    item.second = key.mode;
    return item;
}

// Without a metre: what counts as a measure.
ScoreItem itemOf(const HeaderFields::Metre &metre)
{
    ScoreItem item;
    item.kind = ScoreItem::Kind::Metre;
    item.first = metre.isNone() ? 4 : metre.numerator;
    item.second = metre.isNone() ? 4 : metre.denominator;
    return item;
}

class TuneReader : public MusicLineListener
{
public:
    explicit TuneReader(BareTempo bareTempo) : bareTempo_(bareTempo) {}

    TuneScore read(const TunebookTune &tune, const std::stop_token &stop);

    Voice &voice() override;
    void inlineField(QChar letter, QStringView value) override { readBodyField(letter, value); }
    void decoration(QStringView name) override;
    void unreadable(QStringView) override { ++score_.unreadable; }

private:
    void readHeaderField(QChar letter, QStringView value);
    void finishHeader();
    void readBodyLine(QStringView line);
    void readBodyField(QChar letter, QStringView value);
    void readKey(QStringView value);
    void readMetre(QStringView value);
    void readTempo(QStringView value);
    void readPart(QStringView value);
    void readSymbol(QStringView value);
    void readDirective(QStringView text);
    void readPlayDirective(const QStringList &words);
    Voice &voiceOf(QStringView value);
    void beginVoice(Voice &voice) const;
    void switchVoice(QStringView value);
    void refuseMacros(const TunebookTune &tune) const;
    // Where a directive speaks of one voice, or of all that come.
    VoiceSettings &settings() { return current_ ? current_->settings : score_.start; }

    BareTempo bareTempo_;
    TuneScore score_;
    std::map<QString, std::size_t> voiceIds_;
    Voice *current_ = nullptr;
    std::optional<Fraction> unitLength_;
    QString tempoText_;
    QString unnamedId_ = QStringLiteral("1"); // of the music before the first V:
    bool isVoiceNamed_ = false;
    QVector<QChar> parts_; // met so far in the body
    QStringList macros_;
    std::map<QString, QString> symbols_; // signs that U: makes stand for decorations, with their names
    int elements_ = 0;
};

TuneScore TuneReader::read(const TunebookTune &tune, const std::stop_token &stop)
{
    for (const auto line : tune.header) {
        if (line.startsWith(u"%%"))
            readDirective(line.mid(2));
        else if (isFieldLine(line, LinePlace::Header))
            readHeaderField(line.at(0), withoutComment(line.mid(2)).trimmed());
    }
    refuseMacros(tune);
    finishHeader();
    if (score_.voices.size() == 1)
        current_->expect(std::accumulate(tune.body.begin(), tune.body.end(), qsizetype(0),
                                         [](qsizetype sum, QStringView line) { return sum + line.size(); }));
    for (const auto line : tune.body) {
        throwIfStopped(stop);
        readBodyLine(line);
    }
    return std::move(score_);
}

// Asked for by everything in a line that adds to the voice.
Voice &TuneReader::voice()
{
    if (++elements_ > mostElements)
        throw QCoreApplication::translate("StandardAbc", "The tune is too long.");
    return *current_;
}

// Other signs mean nothing.
void TuneReader::decoration(QStringView name)
{
    const auto text = name.toString();
    for (const auto *symbols : {&std::as_const(symbols_), &usualSymbols()}) {
        if (const auto symbol = symbols->find(text); symbol != symbols->end()) {
            ++voice().decorations[symbol->second];
            return;
        }
    }
    if (text.size() > 1)
        ++voice().decorations[text];
}

// "T = !trill!"
void TuneReader::readSymbol(QStringView value)
{
    static const QRegularExpression definition(QStringLiteral("^(\\S)\\s*=\\s*[!+]([^!+]{1,40})[!+]"));
    if (const auto match = definition.match(value.toString()); match.hasMatch())
        symbols_[match.captured(1)] = match.captured(2);
}

// They stand for other text, which a reader of notes would take at its word.
void TuneReader::refuseMacros(const TunebookTune &tune) const
{
    for (const auto &macro : macros_) {
        const auto isUsed = [&](QStringView line) {
            return !macro.isEmpty() && !isFieldLine(line, LinePlace::Body) &&
                   withoutComment(line).toString().contains(macro);
        };
        if (std::any_of(tune.body.begin(), tune.body.end(), isUsed))
            throw QCoreApplication::translate("StandardAbc",
                                              "The tune uses the macro \"%1\" (m:), which cannot be read.")
                .arg(macro);
    }
}

void TuneReader::readHeaderField(QChar letter, QStringView value)
{
    switch (letter.unicode()) {
    case u'M':
        score_.start.metre = readMetreField(value);
        break;
    case u'L':
        unitLength_ = readUnitLengthField(value);
        score_.unreadable += unitLength_ ? 0 : 1;
        break;
    case u'Q':
        tempoText_ = value.toString();
        break;
    case u'K': {
        const auto key = readKeyField(value);
        score_.start.key = key.signature.value_or(KeySignature());
        score_.start.shift.take(key.shift);
        score_.unreadable += key.isReadable ? 0 : 1;
        break;
    }
    case u'P':
        score_.partOrder = expandPartOrder(value);
        break;
    case u'V':
        voiceOf(value);
        break;
    case u'I':
        readDirective(value);
        break;
    case u'U':
        readSymbol(value);
        break;
    case u'm':
        macros_.append(value.toString().section(u'=', 0, 0).trimmed().section(u'n', 0, 0));
        break;
    default:
        if (QStringLiteral("ABCDFGHNORSTZ").contains(letter) && !value.isEmpty())
            score_.texts[letter].append(value.toString());
    }
}

void TuneReader::finishHeader()
{
    score_.start.unitLength = unitLength_.value_or(defaultUnitLength(score_.start.metre));
    if (!tempoText_.isEmpty()) {
        score_.tempo = readTempoField(tempoText_, score_.start.unitLength, bareTempo_);
        score_.unreadable += score_.tempo ? 0 : 1;
    }
    if (score_.voices.empty())
        voiceOf(unnamedId_);
    else
        isVoiceNamed_ = true;
    for (auto &voice : score_.voices) {
        auto settings = score_.start;
        settings.shift.take(voice.settings.shift);
        voice.settings = settings;
        beginVoice(voice);
    }
    current_ = &score_.voices.front();
}

void TuneReader::readBodyLine(QStringView line)
{
    if (line.startsWith(u"%%")) {
        readDirective(line.mid(2));
        return;
    }
    const auto text = withoutComment(line);
    if (isFieldLine(text, LinePlace::Body))
        readBodyField(text.at(0), text.mid(2).trimmed());
    else
        readMusicLine(text, *this);
}

void TuneReader::readBodyField(QChar letter, QStringView value)
{
    switch (letter.unicode()) {
    case u'K':
        readKey(value);
        break;
    case u'M':
        readMetre(value);
        break;
    case u'L':
        if (const auto length = readUnitLengthField(value))
            current_->settings.unitLength = *length;
        else
            ++score_.unreadable;
        break;
    case u'Q':
        readTempo(value);
        break;
    case u'P':
        readPart(value);
        break;
    case u'V':
        switchVoice(value);
        break;
    case u'I':
        readDirective(value);
        break;
    case u'U':
        readSymbol(value);
        break;
    default: // words, remarks, titles
        break;
    }
}

void TuneReader::readKey(QStringView value)
{
    const auto key = readKeyField(value);
    score_.unreadable += key.isReadable ? 0 : 1;
    current_->settings.shift.take(key.shift);
    if (!key.signature)
        return;
    current_->changeKey(*key.signature);
    current_->append(itemOf(*key.signature));
}

void TuneReader::readMetre(QStringView value)
{
    const auto metre = readMetreField(value);
    current_->settings.metre = metre;
    current_->append(itemOf(metre));
}

void TuneReader::readTempo(QStringView value)
{
    const auto tempo = readTempoField(value, current_->settings.unitLength, bareTempo_);
    if (!tempo) {
        ++score_.unreadable;
        return;
    }
    ScoreItem item;
    item.kind = ScoreItem::Kind::Tempo;
    item.first = tempo->beatNumerator;
    item.second = tempo->beatDenominator;
    item.perMinute = tempo->bpm;
    current_->append(item);
}

// A part is one of the whole tune, so every voice begins it. "P:A (twice)" is one; words, "P:D.S.", are remarks.
void TuneReader::readPart(QStringView value)
{
    static const QRegularExpression label(QStringLiteral("^\\S(?:[.:]?(?:\\s|$)|\\()"));
    if (!label.match(value.toString()).hasMatch())
        return;
    ScoreItem item;
    item.kind = ScoreItem::Kind::Part;
    item.first = value.at(0).unicode();
    for (auto &voice : score_.voices)
        voice.append(item);
    parts_.append(value.at(0));
}

// What the header says holds wherever playing goes back to before a change.
void TuneReader::beginVoice(Voice &voice) const
{
    voice.append(itemOf(score_.start.key));
    voice.append(itemOf(score_.start.metre));
}

Voice &TuneReader::voiceOf(QStringView value)
{
    const auto text = value.toString();
    const auto id = text.section(u' ', 0, 0);
    const auto [known, isNew] = voiceIds_.try_emplace(id, score_.voices.size());
    if (isNew) {
        if (score_.voices.size() >= mostVoices)
            throw QCoreApplication::translate("StandardAbc", "Too many voices.");
        auto &voice = score_.voices.emplace_back();
        voice.settings = score_.start;
        if (current_ != nullptr) // the header is over
            beginVoice(voice);
        for (const auto part : std::as_const(parts_)) {
            ScoreItem item;
            item.kind = ScoreItem::Kind::Part;
            item.first = part.unicode();
            voice.append(item);
        }
    }
    auto &voice = score_.voices[known->second];
    static const QRegularExpression name(QStringLiteral("\\b(?:name|nm)=(?:\"([^\"]*)\"|(\\S+))"));
    if (const auto match = text.contains(u'=') ? name.match(text) : QRegularExpressionMatch(); match.hasMatch())
        voice.name = match.captured(1) + match.captured(2);
    if (voice.name.isEmpty() && isNew && text.size() > 0)
        voice.name = id;
    voice.settings.shift.take(readClefShift(value));
    return voice;
}

// Music before the first V: belongs to the voice that it names.
void TuneReader::switchVoice(QStringView value)
{
    if (value.isEmpty())
        return;
    if (!isVoiceNamed_) {
        isVoiceNamed_ = true;
        const auto id = value.toString().section(u' ', 0, 0);
        voiceIds_ = {{id, 0}};
        score_.voices.front().name = id;
    }
    current_ = &voiceOf(value);
}

void TuneReader::readDirective(QStringView text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s=]+"));
    const auto words = text.toString().split(separators, Qt::SkipEmptyParts);
    if (words.value(0) == u"propagate-accidentals") {
        const auto reach = words.value(1);
        settings().reach = reach == u"not"      ? AccidentalReach::Note
                           : reach == u"octave" ? AccidentalReach::Pitch
                                                : AccidentalReach::Letter;
    } else if (words.value(0) == u"MIDI") {
        readPlayDirective(words.mid(1));
    }
}

void TuneReader::readPlayDirective(const QStringList &words)
{
    bool isNumber = false;
    const int number = words.value(words.size() - 1).toInt(&isNumber);
    if (!isNumber)
        return;
    const auto &what = words.first();
    if (what == u"transpose" && qAbs(number) <= 96)
        settings().playedTranspose = number;
    else if (what == u"rtranspose" && qAbs(number) <= 96)
        settings().playedTranspose = qBound(-96, settings().playedTranspose + number, 96);
    else if (current_ && what == u"program" && number >= 0 && number <= 127)
        current_->program = current_->program.value_or(number);
    else if (current_ && what == u"channel" && number >= 1 && number <= 16)
        current_->channel = number;
}

} // namespace

TuneScore readTune(const TunebookTune &tune, BareTempo bareTempo, const std::stop_token &stop)
{
    return TuneReader(bareTempo).read(tune, stop);
}
