#include "song/ReadingOptions.h"

namespace {

struct MidiFlag
{
    SettingsTable::Setting setting;
    bool MidiImportOptions::*member;
};
constexpr MidiFlag midiFlags[] = {
    {SettingsTable::MidiMergeChannels, &MidiImportOptions::mergeChannels},
    {SettingsTable::MidiAutoRealign, &MidiImportOptions::autoRealign},
    {SettingsTable::MidiPitchBend, &MidiImportOptions::pitchBend},
    {SettingsTable::MidiAutoDetectUnitLength, &MidiImportOptions::autoDetectUnitLength},
    {SettingsTable::MidiProcessVolume, &MidiImportOptions::processVolume},
    {SettingsTable::MidiEndRestruck, &MidiImportOptions::endRestruck},
    {SettingsTable::MidiSustainPedal, &MidiImportOptions::sustainPedal},
    {SettingsTable::MidiSplitPrograms, &MidiImportOptions::splitPrograms},
    {SettingsTable::MidiTrackNames, &MidiImportOptions::trackNames},
    {SettingsTable::MidiFoldOctaves, &MidiImportOptions::foldOctaves},
    {SettingsTable::MidiExactTempo, &MidiImportOptions::exactTempo},
    {SettingsTable::MidiReadAllChunks, &MidiImportOptions::readAllChunks},
    {SettingsTable::MidiMergedUnitLength, &MidiImportOptions::mergedUnitLength},
};

QVariant abcSettingOf(const StandardAbcOptions &options, SettingsTable::Setting setting)
{
    switch (setting) {
    case SettingsTable::AbcGraceNotes:
        return options.graces == GraceNotes::TakeTime;
    case SettingsTable::AbcPlayChordNames:
        return options.chordNames == ChordNames::Play;
    case SettingsTable::AbcTempoInQuarters:
        return options.bareTempo == BareTempo::Quarters;
    default:
        return {};
    }
}

QVariant settingOf(const ReadingOptions &options, SettingsTable::Setting setting)
{
    if (const auto abc = abcSettingOf(options.standardAbc, setting); abc.isValid())
        return abc;
    for (const auto &flag : midiFlags) {
        if (flag.setting == setting)
            return options.midi.*flag.member;
    }
    if (setting == SettingsTable::MidiVelocityGate)
        return options.midi.velocityGate;
    return setting == SettingsTable::MidiCleanQuantise ? QVariant(options.cleanQuantise)
                                                       : SettingsTable::defaultValue(setting);
}

} // namespace

ReadingOptions readingOptions(const std::function<QVariant(SettingsTable::Setting)> &setting)
{
    ReadingOptions options;
    for (const auto &flag : midiFlags)
        options.midi.*flag.member = setting(flag.setting).toBool();
    options.midi.velocityGate = setting(SettingsTable::MidiVelocityGate).toInt();
    options.cleanQuantise = setting(SettingsTable::MidiCleanQuantise).toBool();
    options.mml.autoDetectUnitLength = options.midi.autoDetectUnitLength;
    const auto choose = [&](SettingsTable::Setting which, auto yes, auto no) {
        return setting(which).toBool() ? yes : no;
    };
    auto &abc = options.standardAbc;
    abc.graces = choose(SettingsTable::AbcGraceNotes, GraceNotes::TakeTime, GraceNotes::Drop);
    abc.chordNames = choose(SettingsTable::AbcPlayChordNames, ChordNames::Play, ChordNames::Note);
    abc.bareTempo = choose(SettingsTable::AbcTempoInQuarters, BareTempo::Quarters, BareTempo::UnitNotes);
    return options;
}

ReadingOptions readingOptions(const QJsonObject &settings)
{
    return readingOptions([&](SettingsTable::Setting setting) {
        const auto value = settings[QLatin1String(SettingsTable::rows()[setting].key)];
        return value.isUndefined() ? SettingsTable::defaultValue(setting) : value.toVariant();
    });
}

QJsonObject importSettings(const ReadingOptions &options)
{
    return importSettings([&](SettingsTable::Setting setting) { return settingOf(options, setting); });
}

QJsonObject importSettings(const std::function<QVariant(SettingsTable::Setting)> &setting)
{
    QJsonObject settings;
    for (const auto &row : SettingsTable::rows()) {
        const auto key = QLatin1String(row.key);
        const bool isOfAbc = abcSettingOf({}, row.setting).isValid();
        if (key.startsWith(QLatin1String("midi/")) || isOfAbc)
            settings[key] = QJsonValue::fromVariant(setting(row.setting));
    }
    return settings;
}
