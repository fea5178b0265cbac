#pragma once

#include <QString>
#include <QVariant>

#include <array>
#include <optional>

// Every preference with its key in the settings file, its type and its default; the rows stand in the order of the
// enumeration.
namespace SettingsTable {

enum Setting {
    RootPath,
    LoadMods,
    DrawMeasureLines,
    DrawOctaveLines,
    NoteColor,
    MidiMergeChannels,
    MidiAutoRealign,
    MidiPitchBend,
    MidiAutoDetectUnitLength,
    MidiProcessVolume,
    DefaultInstrument,
    FindString,
    ReplaceString,
    MatchWholeWords,
    MatchCase,
    WrapAround,
    SearchMode,
    SearchDirection,
    RealignRegular,
    RealignTriplets,
    RealignQuintuplets,
    RealignSeptuplets,
    RealignNonuplets,
    PianoRollVisible,
    PianoRollHScale,
    PianoRollVScale,
    AbcOpenDir,
    AbcSaveDir,
    MidiOpenDir,
    WavSaveDir,
    DarkPalette,
    Language,
    RecentFiles,
    MasterVolume,
    WindowGeometry,
    WindowState,
    KeyboardPort,
    RecordingGrid,
    MidiVelocityGate,
    MidiEndRestruck,
    MidiSustainPedal,
    MidiSplitPrograms,
    MidiTrackNames,
    MidiFoldOctaves,
    MidiExactTempo,
    MidiReadAllChunks,
    MidiMergedUnitLength,
    MidiCleanQuantise,
    ChooseParts,
    ProgramInstrument,
    AbcForeign,
    AbcGraceNotes,
    AbcPlayChordNames,
    AbcTempoInQuarters,
    MidiSaveDir,
    AudioSaveDir,
    ExportFormat,
    ExportQuality,
    ExportFiles,
    ExportNormalise,
    ExportOffsets,
    MetronomeOn,
    MetronomeVolume,
    RehearsalSpread,
    CountInMeasures,
    SoundDevice,
    SoundBlock,
    CheckSemitones,
    CheckNotesAtOnce,
    CheckCharacters,
    SoundEngine,
    FmodFile,
    Shortcuts,
    OpenInRunning,
    settingCount
};

// A history is a text of entries, one a line, the last used first.
enum class Type { Text, History, Boolean, Integer, Colour };

constexpr int longestHistory = 10; // entries

struct Row
{
    Setting setting;
    const char *key;
    Type type;
    const char *defaultText; // as parse() reads it; a colour is "#AARRGGBB"
};

const std::array<Row, settingCount> &rows();

QVariant defaultValue(Setting setting);

// The row of a key; null when there is none.
const Row *find(const QString &key);

// A value of the row's type from text ("true" and "false", "1" and "0", "on" and "off" for a boolean); nothing when the
// text is none.
std::optional<QVariant> parse(const Row &row, const QString &text);

} // namespace SettingsTable
