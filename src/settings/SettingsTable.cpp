#include "settings/SettingsTable.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace SettingsTable {

const std::array<Row, settingCount> &rows()
{
    static constexpr std::array<Row, settingCount> table{{
        {RootPath, "kelvarion/rootPath", Type::Text, ""},
        {LoadMods, "instruments/loadMods", Type::Boolean, "false"},
        {DrawMeasureLines, "preview/drawMeasureLines", Type::Boolean, "false"},
        {DrawOctaveLines, "preview/drawOctaveLines", Type::Boolean, "true"},
        {NoteColor, "preview/noteColor", Type::Colour, "#ff2060ff"},
        {MidiMergeChannels, "midi/mergeChannels", Type::Boolean, "true"},
        {MidiAutoRealign, "midi/autoRealign", Type::Boolean, "true"},
        {MidiPitchBend, "midi/pitchBend", Type::Boolean, "true"},
        {MidiAutoDetectUnitLength, "midi/autoDetectUnitLength", Type::Boolean, "true"},
        {MidiProcessVolume, "midi/processVolume", Type::Boolean, "false"},
        {DefaultInstrument, "instruments/default", Type::Text, ""},
        {FindString, "findReplace/findString", Type::Text, ""},
        {ReplaceString, "findReplace/replaceString", Type::Text, ""},
        {MatchWholeWords, "findReplace/matchWholeWords", Type::Boolean, "false"},
        {MatchCase, "findReplace/matchWholeCase", Type::Boolean, "false"},
        {WrapAround, "findReplace/wrapAround", Type::Boolean, "true"},
        {SearchMode, "findReplace/searchMode", Type::Integer, "0"},
        {SearchDirection, "findReplace/direction", Type::Integer, "1"},
        {RealignRegular, "realign/regular", Type::Integer, "7"},
        {RealignTriplets, "realign/triplets", Type::Integer, "6"},
        {RealignQuintuplets, "realign/quintuplets", Type::Integer, "5"},
        {RealignSeptuplets, "realign/septuplets", Type::Integer, "5"},
        {RealignNonuplets, "realign/nonuplets", Type::Integer, "4"},
        {PianoRollVisible, "pianoroll/visible", Type::Boolean, "false"},
        {PianoRollHScale, "pianoroll/hScale", Type::Integer, "4"},
        {PianoRollVScale, "pianoroll/vScale", Type::Integer, "2"},
        {AbcOpenDir, "dirs/abc/open", Type::Text, ""},
        {AbcSaveDir, "dirs/abc/save", Type::Text, ""},
        {MidiOpenDir, "dirs/midi/open", Type::Text, ""},
        {WavSaveDir, "dirs/wav/save", Type::Text, ""},
        {DarkPalette, "window/darkPalette", Type::Boolean, "false"},
        {Language, "window/language", Type::Text, ""},          // its code, "de"; the system's
        {RecentFiles, "window/recentFiles", Type::History, ""}, // paths
        {MasterVolume, "window/masterVolume", Type::Integer, "100"},
        {WindowGeometry, "window/geometry", Type::Text, ""}, // Base64, as is the next
        {WindowState, "window/state", Type::Text, ""},
        {KeyboardPort, "sound/keyboard", Type::Text, ""},            // see MidiKeyboard
        {RecordingGrid, "sound/recordingGrid", Type::Integer, "16"}, // notes in a whole one
        {MidiVelocityGate, "midi/velocityGate", Type::Integer, "8"}, // notes struck softer are left out
        {MidiEndRestruck, "midi/endRestruck", Type::Boolean, "false"},
        {MidiSustainPedal, "midi/sustainPedal", Type::Boolean, "false"},
        {MidiSplitPrograms, "midi/splitPrograms", Type::Boolean, "false"},
        {MidiTrackNames, "midi/trackNames", Type::Boolean, "false"},
        {MidiFoldOctaves, "midi/foldOctaves", Type::Boolean, "false"},
        {MidiExactTempo, "midi/exactTempo", Type::Boolean, "false"},
        {MidiReadAllChunks, "midi/readAllChunks", Type::Boolean, "false"},
        {MidiMergedUnitLength, "midi/mergedUnitLength", Type::Boolean, "false"},
        {MidiCleanQuantise, "midi/cleanQuantise", Type::Boolean, "false"}, // instead of realigning
        {ChooseParts, "import/chooseParts", Type::Boolean, "true"},
        {ProgramInstrument, "instruments/forPrograms", Type::Text, ""}, // see ProgramInstruments.h
        {AbcForeign, "abc/foreign", Type::Integer, "0"},                // see ForeignAbc
        {AbcGraceNotes, "abc/graceNotes", Type::Boolean, "true"},
        {AbcPlayChordNames, "abc/playChordNames", Type::Boolean, "false"},
        {AbcTempoInQuarters, "abc/tempoInQuarters", Type::Boolean, "false"}, // what "Q:120" counts
        {MidiSaveDir, "dirs/midi/save", Type::Text, ""},
        {AudioSaveDir, "dirs/audio/save", Type::Text, ""},
        {ExportFormat, "export/format", Type::Integer, "0"}, // see SoundCoding
        {ExportQuality, "export/quality", Type::Integer, "7"},
        {ExportFiles, "export/files", Type::Integer, "0"}, // see RenderFiles
        {ExportNormalise, "export/normalise", Type::Boolean, "false"},
        {ExportOffsets, "export/startOffsets", Type::Boolean, "false"},
        {MetronomeOn, "practice/metronome", Type::Boolean, "false"},
        {MetronomeVolume, "practice/metronomeVolume", Type::Integer, "70"}, // percent
        {RehearsalSpread, "practice/rehearsalSpread", Type::Integer, "40"}, // milliseconds
        {CountInMeasures, "practice/countIn", Type::Integer, "0"},
        {SoundDevice, "sound/device", Type::Text, ""},                   // its name; the system's default
        {SoundBlock, "sound/blockFrames", Type::Integer, "0"},           // see OutputChoice
        {CheckSemitones, "check/mostSemitones", Type::Integer, "7"},     // see CheckOptions
        {CheckNotesAtOnce, "check/mostNotesAtOnce", Type::Integer, "0"}, // 0: any number
        {CheckCharacters, "check/mostCharacters", Type::Integer, "0"},
        {SoundEngine, "sound/engine", Type::Integer, "0"}, // see EngineKind
        {FmodFile, "sound/fmodFile", Type::Text, ""},      // empty: it is looked for
        {Shortcuts, "keys/shortcuts", Type::Text, ""},     // those that were changed; see Shortcuts.h
        {OpenInRunning, "window/openInRunning", Type::Boolean, "true"},
    }};
    return table;
}

QVariant defaultValue(Setting setting)
{
    const auto &row = rows()[setting];
    return parse(row, QLatin1String(row.defaultText)).value();
}

const Row *find(const QString &key)
{
    const auto *const row = std::find_if(rows().begin(), rows().end(),
                                         [&](const Row &candidate) { return key == QLatin1String(candidate.key); });
    return row != rows().end() ? row : nullptr;
}

std::optional<QVariant> parse(const Row &row, const QString &text)
{
    switch (row.type) {
    case Type::Text:
    case Type::History:
        return text;
    case Type::Boolean: {
        const auto words = QStringList{QStringLiteral("false"), QStringLiteral("true"), QStringLiteral("0"),
                                       QStringLiteral("1"),     QStringLiteral("off"),  QStringLiteral("on")};
        const auto index = words.indexOf(text.toLower());
        return index >= 0 ? std::optional<QVariant>(index % 2 == 1) : std::nullopt;
    }
    case Type::Integer: {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        return isNumber ? std::optional<QVariant>(number) : std::nullopt;
    }
    case Type::Colour: {
        static const QRegularExpression colour(QStringLiteral("\\A#(?:[0-9a-fA-F]{2}){3,4}\\z"));
        return colour.match(text).hasMatch() ? std::optional<QVariant>(text) : std::nullopt;
    }
    }
    return std::nullopt;
}

} // namespace SettingsTable
