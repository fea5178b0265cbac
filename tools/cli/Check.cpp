#include "Check.h"

#include "Instruments.h"
#include "base/ErrorText.h"
#include "check/findings/FindingKinds.h"
#include "input/Input.h"
#include "streams/Messages.h"
#include "summary/SongSummary.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <map>

namespace {

struct CheckedInput
{
    QString path;
    QStringList failures; // why it, or some of it, could not be read
    QVector<CheckedPart> parts;
    SongSummary summary = {};

    bool isReadable() const { return failures.isEmpty(); }
    FindingCounts counts() const
    {
        FindingCounts counts;
        for (const auto &part : parts)
            counts.add(part.findings);
        return counts;
    }
};

CheckedInput checkInput(const InputReading &reading, const Arguments &arguments, const InstrumentSet &instruments)
{
    CheckedInput checked{reading.path, reading.failures, {}};
    try {
        auto song = reading.song;
        applyTransforms(song, arguments);
        checked.parts = checkReadSong(song, arguments, instruments);
        checked.summary = summaryOf(reading.path, song, checked.parts);
    } catch (...) {
        checked.failures.append(currentErrorText());
    }
    return checked;
}

QString placesOf(const std::vector<const Finding *> &findings, const Measures &measures)
{
    constexpr int mostPlaces = 5;
    QStringList places;
    for (const auto *finding : findings) {
        if (finding->tick < 0)
            continue;
        const auto measure = QString::number(measures.at(finding->tick).number);
        if (!places.contains(measure))
            places.append(measure);
        if (places.size() > mostPlaces) {
            places.last() = QStringLiteral("…");
            break;
        }
    }
    if (places.isEmpty())
        return {};
    return QLatin1String(places.size() == 1 ? ", measure " : ", measures ") + places.join(QStringLiteral(", "));
}

// A line for each kind of finding, with the words of the first.
void printPart(const CheckedInput &song, const CheckedPart &part)
{
    std::map<FindingKind, std::vector<const Finding *>> kinds;
    for (const auto &finding : part.findings)
        kinds[finding.kind].push_back(&finding);
    const Measures measures(part.track);
    for (const auto &[kind, findings] : kinds) {
        const auto count = findings.size() > 1 ? QStringLiteral(" (and %1 more)").arg(findings.size() - 1) : QString();
        printLine(QStringLiteral("%1: %2%3: %4: %5%6 [%7]")
                      .arg(song.path, part.name, placesOf(findings, measures),
                           FindingKinds::severityName(FindingKinds::severity(kind)), sentenceOf(*findings.front()),
                           count, FindingKinds::name(kind)));
    }
}

QJsonObject jsonOf(const CheckedInput &song)
{
    auto object = song.counts().json();
    QJsonArray parts;
    for (const auto &part : song.parts)
        parts.append(jsonOf(part));
    object[QStringLiteral("input")] = song.path;
    object[QStringLiteral("parts")] = parts;
    if (!song.isReadable())
        object[QStringLiteral("failures")] = QJsonArray::fromStringList(song.failures);
    return object;
}

class Checking
{
public:
    explicit Checking(const Arguments &arguments) : arguments_(arguments) {}

    int run()
    {
        if (!runOrPrint(arguments_.game, [this] { instruments_ = scanGame(arguments_); }))
            return 1;
        forEachInput<CheckedInput>(
            arguments_,
            [this](const QString &path) {
                return checkInput(readOne(path, arguments_, ReadingOptions::Refused::IsPassedOver), arguments_,
                                  instruments_);
            },
            [this](const CheckedInput &song) { take(song); });
        if (arguments_.json)
            isAnythingWrong_ |= !runOrPrint(QStringLiteral("standard output"), [this] { printJson(); });
        else if (arguments_.summary)
            report_.printTable();
        return isAnythingWrong_ ? 1 : 0;
    }

private:
    void take(const CheckedInput &song)
    {
        isAnythingWrong_ |= !song.isReadable() || song.counts().isAnythingWrong();
        for (const auto &failure : song.failures)
            printFailure(song.path, failure);
        auto summary = song.summary;
        summary.path = song.path;
        summary.failures = song.failures;
        report_.add(summary);
        if (arguments_.json) {
            songs_.append(jsonOf(song));
            return;
        }
        for (const auto &part : song.parts)
            printPart(song, part);
        if (!song.parts.isEmpty())
            printLine(QStringLiteral("%1: %2 in %3 %4")
                          .arg(song.path, song.counts().text(), QString::number(song.parts.size()),
                               QLatin1String(song.parts.size() == 1 ? "part" : "parts")));
    }

    void printJson() const
    {
        StandardOutput out;
        out.device().write(QJsonDocument(QJsonObject{{QStringLiteral("songs"), songs_}}).toJson());
        out.finish();
    }

    const Arguments &arguments_;
    SongReport report_{arguments_};
    InstrumentSet instruments_;
    QJsonArray songs_;
    bool isAnythingWrong_ = false;
};

} // namespace

int check(const Arguments &arguments)
{
    return Checking(arguments).run();
}
