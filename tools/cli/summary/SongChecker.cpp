#include "summary/SongChecker.h"

#include "check/PartCheck.h"
#include "check/findings/FindingKinds.h"
#include "edit/AbcReading.h"
#include "song/SongParts.h"
#include "summary/PartInstruments.h"

#include <QJsonArray>

#include <algorithm>

namespace {

QString counted(int count, const char *one, const char *several)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : several));
}

CheckedPart partOf(const ReadSong &song, int index)
{
    CheckedPart part;
    part.track = song.tracks[index];
    part.text = part.track.toAbc();
    const auto songPart = song.songParts.value(index, SongParts::partOf(part.track, QStringLiteral("T1")));
    part.name = songPart.name;
    part.instrument = songPart.instrument;
    return part;
}

class FindingJson
{
public:
    explicit FindingJson(const CheckedPart &part)
        : lines_(lineOffsets(part.text)), measures_(part.track), textSize_(int(part.text.size()))
    {
    }

    QJsonObject of(const Finding &finding) const
    {
        QJsonObject object{
            {QStringLiteral("kind"), FindingKinds::name(finding.kind)},
            {QStringLiteral("severity"), FindingKinds::severityName(FindingKinds::severity(finding.kind))},
            {QStringLiteral("sentence"), sentenceOf(finding)},
            {QStringLiteral("fixable"), !finding.fix.isEmpty()}};
        if (!finding.range.isEmpty())
            addPlace(object, finding.range);
        if (finding.tick >= 0) {
            object[QStringLiteral("tick")] = finding.tick;
            object[QStringLiteral("measure")] = measures_.at(finding.tick).number;
        }
        return object;
    }

private:
    void addPlace(QJsonObject &object, const TextRange &range) const
    {
        const auto behind = std::upper_bound(lines_.begin(), lines_.end(), std::min(range.offset, textSize_));
        const auto line = int(behind - lines_.begin());
        object[QStringLiteral("line")] = line;
        object[QStringLiteral("column")] = range.offset - lines_[line - 1] + 1;
        object[QStringLiteral("length")] = range.length;
    }

    QVector<int> lines_;
    Measures measures_;
    int textSize_;
};

} // namespace

void FindingCounts::add(const QVector<Finding> &findings)
{
    for (const auto &finding : findings) {
        const auto severity = FindingKinds::severity(finding.kind);
        ++(severity == Severity::Error ? errors : severity == Severity::Warning ? warnings : notes);
    }
}

void FindingCounts::add(const FindingCounts &other)
{
    errors += other.errors;
    warnings += other.warnings;
    notes += other.notes;
}

QString FindingCounts::text() const
{
    QStringList texts;
    if (errors > 0)
        texts.append(counted(errors, "error", "errors"));
    if (warnings > 0)
        texts.append(counted(warnings, "warning", "warnings"));
    if (!isAnythingWrong())
        texts.append(QStringLiteral("nothing is wrong"));
    if (notes > 0)
        texts.append(counted(notes, "note", "notes"));
    return texts.join(QStringLiteral(", "));
}

QJsonObject FindingCounts::json() const
{
    return {
        {QStringLiteral("errors"), errors}, {QStringLiteral("warnings"), warnings}, {QStringLiteral("notes"), notes}};
}

QVector<CheckedPart> checkReadSong(const ReadSong &song, const Arguments &arguments, const InstrumentSet &instruments)
{
    const auto options = checkOptions([&](auto setting) { return arguments.setting(setting); });
    QVector<CheckedPart> parts;
    QVector<PartFacts> facts;
    for (int i = 0; i < song.tracks.size(); ++i) {
        auto part = partOf(song, i);
        if (part.instrument.isEmpty() && !instruments.isEmpty()) {
            const auto songPart = song.songParts.value(i, SongParts::partOf(part.track, QStringLiteral("T1")));
            part.instrument = instrumentOf({songPart, part.track, song.parts[i]}, arguments, instruments).name;
        }
        const auto check = checkPart(part.text, part.instrument, instruments, options);
        part.findings = check.findings;
        part.length = check.facts.length;
        facts.append(check.facts);
        parts.append(part);
    }
    const auto together = checkSong(facts, [&parts](int part) { return parts[part].text; });
    for (int i = 0; i < parts.size(); ++i)
        parts[i].findings += together[i];
    return parts;
}

QJsonObject jsonOf(const CheckedPart &part)
{
    const FindingJson findingJson(part);
    QJsonArray findings;
    for (const auto &finding : part.findings)
        findings.append(findingJson.of(finding));
    FindingCounts counts;
    counts.add(part.findings);
    auto object = counts.json();
    object[QStringLiteral("name")] = part.name;
    object[QStringLiteral("instrument")] = part.instrument;
    object[QStringLiteral("findings")] = findings;
    return object;
}
