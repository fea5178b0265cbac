#include "import/MmlImport.h"

#include "base/Interrupted.h"
#include "import/ImportLimits.h"
#include "import/UnitLength.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>
#include <map>
#include <optional>

namespace {

constexpr quint32 highestNoteNumber = 127;

class MmlParser
{
public:
    MmlParser(const QString &text, const MmlImportOptions &options, const std::stop_token &stop)
        : text_(text.toLatin1().toLower()), options_(options), stop_(stop), limits_(text_.size())
    {
    }

    ImportResult parse();

private:
    void command(char c);
    void noteCommand(char letter);
    void restCommand();
    void numberedNoteCommand();
    void lengthCommand();
    void tempoCommand();
    void octaveCommand();
    void slashCommand();
    void separateTracks();
    void finish(Track &track);

    char peek(int offset = 0) const { return at_ + offset < text_.size() ? text_[int(at_ + offset)] : '\0'; }
    bool take(char c);
    std::optional<quint32> takeNumber();
    Ticks takeLength();
    void writeNote(quint32 pitch, Ticks length);
    void writePendingTie();
    void beginTrack();
    void endTrack();

    QByteArray text_;
    MmlImportOptions options_;
    const std::stop_token &stop_;
    ImportLimits limits_;
    ImportResult result_;
    qsizetype at_ = 0;

    Track track_;
    bool trackHasNotes_ = false;
    PartReport found_; // in the track
    quint32 octave_ = 0;
    Ticks defaultLength_ = 0;
    Ticks time_ = 0;
    Ticks tieLength_ = 0; // of a tied note that is not written yet; 0 = none
    quint32 tiePitch_ = 0;
    std::map<Ticks, quint32> tempos_; // beats per minute, shared by all tracks
};

bool MmlParser::take(char c)
{
    if (peek() != c)
        return false;
    ++at_;
    return true;
}

std::optional<quint32> MmlParser::takeNumber()
{
    std::optional<quint64> number;
    for (; peek() >= '0' && peek() <= '9'; ++at_)
        number =
            std::min<quint64>(number.value_or(0) * 10 + quint64(peek() - '0'), std::numeric_limits<quint32>::max());
    return number ? std::optional(quint32(*number)) : std::nullopt;
}

// A length number and a dot, each optional; a length number of 0 is ignored.
Ticks MmlParser::takeLength()
{
    const auto number = takeNumber().value_or(0);
    const auto length = number != 0 ? ticksPerWholeNote / number : defaultLength_;
    return take('.') ? length + length / 2 : length;
}

void MmlParser::writeNote(quint32 pitch, Ticks length)
{
    track_.appendEvent(TrackEvent::note(pitch, time_, length));
    trackHasNotes_ = true;
    time_ += length;
}

void MmlParser::writePendingTie()
{
    if (tieLength_ != 0)
        writeNote(tiePitch_, tieLength_);
    tieLength_ = 0;
}

void MmlParser::noteCommand(char letter)
{
    static constexpr int semitones[] = {9, 11, 0, 2, 4, 5, 7}; // a to g
    int semitone = semitones[letter - 'a'];
    if (take('+') || take('#'))
        ++semitone;
    else if (take('-'))
        --semitone;
    const auto pitch = quint32(int(octave_ + 1) * 12 + semitone);

    if (pitch != tiePitch_)
        writePendingTie();
    const auto length = takeLength() + tieLength_;
    if (take('&')) {
        tieLength_ = length;
        tiePitch_ = pitch;
    } else {
        tieLength_ = 0;
        writeNote(pitch, length);
    }
}

void MmlParser::restCommand()
{
    writePendingTie();
    time_ += takeLength();
    take('&');
}

void MmlParser::numberedNoteCommand()
{
    const auto number = takeNumber();
    if (!number)
        return;
    if (*number > highestNoteNumber)
        found_.add(ImportFinding::OutOfRange, time_);
    else
        writeNote(*number, defaultLength_);
}

void MmlParser::octaveCommand()
{
    if (const auto number = takeNumber())
        octave_ = std::clamp(*number, 1U, 7U);
}

void MmlParser::lengthCommand()
{
    if (const auto number = takeNumber(); number.value_or(0) != 0) {
        defaultLength_ = ticksPerWholeNote / *number;
        if (peek() == '.')
            defaultLength_ += defaultLength_ / 2;
    }
}

void MmlParser::tempoCommand()
{
    if (const auto number = takeNumber())
        tempos_[time_] = *number;
}

// "//" begins a comment to the end of the line. "/*" begins one that ends at the first "*", or at the first character
// before a "/"; reading goes on two characters behind that.
void MmlParser::slashCommand()
{
    if (take('/')) {
        const auto lineEnd = text_.indexOf('\n', int(at_));
        at_ = lineEnd < 0 ? text_.size() : lineEnd;
    } else if (take('*')) {
        while (at_ < text_.size() && peek() != '*' && peek(1) != '/')
            ++at_;
        at_ = std::min<qsizetype>(at_ + 2, text_.size());
    }
}

// A pending tie is carried into the new track.
void MmlParser::separateTracks()
{
    endTrack();
    beginTrack();
}

void MmlParser::beginTrack()
{
    octave_ = 4;
    defaultLength_ = ticksPerQuarter;
    time_ = 0;
    // A list that grows by doubling would need twice the memory for a moment.
    const auto isTrackEnd = [](char c) { return c == ',' || c == ';'; };
    const auto isNote = [](char c) { return (c >= 'a' && c <= 'g') || c == 'n'; };
    const auto begin = text_.cbegin() + at_;
    track_.editEvents().reserve(int(std::count_if(begin, std::find_if(begin, text_.cend(), isTrackEnd), isNote)));
}

void MmlParser::endTrack()
{
    if (trackHasNotes_) {
        limits_.addTrack();
        found_.notes = track_.noteCount();
        result_.parts.append(found_);
        result_.tracks.append(track_);
    } else {
        result_.elsewhere.add(found_);
    }
    track_ = {};
    found_ = {};
    trackHasNotes_ = false;
}

void MmlParser::command(char c)
{
    switch (c) {
    case 'r':
        return restCommand();
    case 'n':
        return numberedNoteCommand();
    case 'o':
        return octaveCommand();
    case '<':
        octave_ = std::max(octave_ - 1, 1U);
        return;
    case '>':
        octave_ = std::min(octave_ + 1, 7U);
        return;
    case 'l':
        return lengthCommand();
    case 't':
        return tempoCommand();
    case 'v':
        takeNumber();
        return;
    case ',':
    case ';':
        return separateTracks();
    case '/':
        return slashCommand();
    default:
        if (c >= 'a' && c <= 'g')
            noteCommand(c);
    }
}

void MmlParser::finish(Track &track)
{
    limits_.addCopies(qint64(tempos_.size()));
    const auto tempoField = QStringLiteral("Q");
    track.setHeaderField(tempoField, QStringLiteral("1/4=120"));
    for (const auto &[time, bpm] : tempos_) {
        if (time == 0) {
            track.setHeaderField(tempoField, QStringLiteral("1/4=%1").arg(bpm));
            track.setTempo(qint64(bpm / 4) * ticksPerWholeNote); // truncated to whole notes a minute
        } else {
            track.appendEvent(TrackEvent::tempo(time, 1, 4, bpm));
        }
    }
    const auto denominator = options_.autoDetectUnitLength ? detectUnitLength(track) : 4;
    track.setHeaderField(QStringLiteral("L"), unitLengthText(denominator));
    track.normalize();
}

ImportResult MmlParser::parse()
{
    beginTrack();
    while (at_ < text_.size()) {
        throwIfStopped(stop_);
        command(text_[int(at_++)]);
    }
    if (tieLength_ != 0)
        found_.add(ImportFinding::Unterminated, time_);
    endTrack();
    for (auto &track : result_.tracks) {
        throwIfStopped(stop_);
        finish(track);
    }
    for (const auto &part : qAsConst(result_.parts))
        addNotes(result_.report, part);
    addNotes(result_.report, result_.elsewhere);
    return std::move(result_);
}

} // namespace

bool looksLikeMml(const QString &text)
{
    // Possessive, so that a long text is looked through once.
    static const QRegularExpression commands(
        QStringLiteral("\\A(?:[a-g][-+#]?+[0-9]*+\\.?+&?+|r[0-9]*+\\.?+&?+|[ntlov][0-9]++\\.?+|[<>,;\\s]|"
                       "/\\*[^*/]*+\\*/|//[^\\n]*+)*+\\z"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression setting(QStringLiteral("[tlov][0-9]"), QRegularExpression::CaseInsensitiveOption);
    return commands.match(text).hasMatch() && setting.match(text).hasMatch();
}

ImportResult importMml(const QString &text, const MmlImportOptions &options, const std::stop_token &stop)
{
    return MmlParser(text, options, stop).parse();
}
