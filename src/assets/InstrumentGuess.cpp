#include "assets/InstrumentGuess.h"

#include "assets/ProgramInstruments.h"

#include <algorithm>
#include <array>

namespace {

enum Kind { Keyboard, Bars, Organ, Guitar, Harp, Bass, Bowed, Voice, Brass, Reed, Pipe, Percussion, kindCount };

struct KindRow
{
    Kind kind;
    Kind next;   // the kind that sounds most like it
    int program; // the General MIDI program that is used most, as ProgramInstruments counts
    const char *words;
};

// Rows in the order of the kinds; words and pairs of words in the singular, with bars between.
constexpr std::array<KindRow, kindCount> kinds{{
    {Keyboard, Harp, 0, "piano|harpsichord|clavinet|clavichord|keyboard|celesta|virginal|spinet"},
    {Bars, Keyboard, 11,
     "glockenspiel|vibraphone|marimba|xylophone|bell|chime|music box|kalimba|steel drum|crystal|carillon"},
    {Organ, Pipe, 19, "organ|accordion|harmonica|concertina|melodica|hurdy gurdy"},
    {Guitar, Harp, 24, "guitar|lute|mandolin|banjo|ukulele|bouzouki|oud|sitar|shamisen|theorbo|cittern"},
    {Harp, Guitar, 46, "harp|lyre|koto|dulcimer|zither|psaltery|guzheng"},
    {Bass, Guitar, 32, "bass|contrabass|bassline"},
    {Bowed, Voice, 48, "violin|viola|cello|fiddle|string|orchestra|ensemble|pad|viol|erhu"},
    {Voice, Bowed, 52, "choir|voice|vocal|ooh|aah|singer|chorus|soprano|tenor"},
    {Brass, Reed, 61, "trumpet|trombone|tuba|horn|brass|cornet|flugelhorn|bugle|sackbut"},
    {Reed, Pipe, 68, "sax|saxophone|oboe|english horn|bassoon|clarinet|bagpipe|shanai|shawm|soprano sax|tenor sax"},
    {Pipe, Reed, 73, "flute|piccolo|recorder|pan flute|panpipe|whistle|ocarina|shakuhachi|bottle|lead|pipe|fife"},
    {Percussion, Percussion, ProgramInstruments::percussion,
     "percussion|drum|drumkit|taiko|timpani|tom|woodblock|agogo|cymbal|tambourine|conga|kit"},
}};

// " acoustic guitar nylon " of "Acoustic Guitars (nylon)": lower case, letters only, singular.
QString plainWords(const QString &text)
{
    QString letters;
    for (const auto c : text)
        letters += c.isLetter() ? c.toLower() : QChar(u' ');
    auto words = letters.split(u' ', Qt::SkipEmptyParts);
    for (auto &word : words) {
        if (word.size() > 3 && word.endsWith(u's') && !word.endsWith(QLatin1String("ss")))
            word.chop(1);
    }
    return u' ' + words.join(u' ') + u' ';
}

// The kind of the longest words of the table in the text, the first of equals.
std::optional<Kind> kindOf(const QString &plain)
{
    std::optional<Kind> best;
    int longest = 0;
    int earliest = 0;
    for (const auto &row : kinds) {
        for (const auto &words : QString(QLatin1String(row.words)).split(u'|')) {
            const auto at = int(plain.indexOf(u' ' + words + u' '));
            const auto length = int(words.count(u' ')); // two words say more than one
            if (at < 0 || (best && (length < longest || (length == longest && at >= earliest))))
                continue;
            best = row.kind;
            longest = length;
            earliest = at;
        }
    }
    return best;
}

std::optional<Kind> kindOf(const QStringList &plainTitles)
{
    for (const auto &title : plainTitles) {
        if (const auto kind = kindOf(title))
            return kind;
    }
    return std::nullopt;
}

class Guesser
{
public:
    Guesser(const QMap<quint32, int> &pitchCounts, const InstrumentSet &instruments)
        : pitchCounts_(pitchCounts), instruments_(instruments)
    {
        for (const auto &name : instruments.names())
            plainNames_.append(plainWords(name));
    }

    QString named(const QString &plainTitle) const;
    QString ofKind(Kind kind) const
    {
        return best([this, kind](int i) { return kindOf(plainNames_[i]) == kind; });
    }
    QString melodic() const
    {
        return best([this](int i) { return kindOf(plainNames_[i]) != Percussion; });
    }

private:
    template<typename Suits>
    QString best(Suits suits) const;
    int playable(const QString &name) const;

    const QMap<quint32, int> &pitchCounts_;
    const InstrumentSet &instruments_;
    QStringList plainNames_; // in the order of the set's names
};

int Guesser::playable(const QString &name) const
{
    const auto &notes = instruments_.instrument(name).tuning.notes;
    int count = 0;
    for (auto pitch = pitchCounts_.begin(); pitch != pitchCounts_.end(); ++pitch)
        count += notes.contains(pitch.key()) ? pitch.value() : 0;
    return count;
}

template<typename Suits>
QString Guesser::best(Suits suits) const
{
    QString best;
    int most = -1;
    for (int i = 0; i < plainNames_.size(); ++i) {
        const auto &name = instruments_.names()[i];
        if (const int count = suits(i) ? playable(name) : -1; count > most) {
            best = name;
            most = count;
        }
    }
    return best;
}

// The longest name whose words all stand in the title.
QString Guesser::named(const QString &plainTitle) const
{
    QString best;
    int longest = 0;
    for (int i = 0; i < plainNames_.size(); ++i) {
        const auto words = plainNames_[i].split(u' ', Qt::SkipEmptyParts);
        const bool standsThere = std::all_of(
            words.begin(), words.end(), [&](const QString &word) { return plainTitle.contains(u' ' + word + u' '); });
        if (standsThere && !words.isEmpty() && plainNames_[i].size() > longest) {
            best = instruments_.names()[i];
            longest = int(plainNames_[i].size());
        }
    }
    return best;
}

std::optional<InstrumentGuess> guessOf(const QString &name, GuessBasis basis)
{
    return name.isEmpty() ? std::nullopt : std::optional(InstrumentGuess{name, basis});
}

} // namespace

std::optional<InstrumentGuess> guessInstrument(const QStringList &titles, const QMap<quint32, int> &pitchCounts,
                                               const InstrumentSet &instruments)
{
    const Guesser guesser(pitchCounts, instruments);
    QStringList plainTitles;
    for (const auto &title : titles)
        plainTitles.append(plainWords(title));
    for (const auto &title : qAsConst(plainTitles)) {
        if (const auto name = guesser.named(title); !name.isEmpty())
            return guessOf(name, GuessBasis::Name);
    }
    const auto kind = kindOf(plainTitles);
    if (!kind)
        return guessOf(guesser.melodic(), GuessBasis::Range);
    auto name = guesser.ofKind(*kind);
    if (name.isEmpty())
        name = guesser.ofKind(kinds[*kind].next);
    if (!name.isEmpty() || *kind == Percussion)
        return guessOf(name, GuessBasis::Kind);
    return guessOf(guesser.melodic(), GuessBasis::Range);
}

std::optional<int> usualProgram(const QString &name)
{
    const auto kind = kindOf(plainWords(name));
    return kind ? std::optional(kinds[*kind].program) : std::nullopt;
}
