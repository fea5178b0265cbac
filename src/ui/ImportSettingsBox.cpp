#include "ui/ImportSettingsBox.h"

#include "ui/WrappedCheckBox.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

enum class ImportSettingsBox::Group { Rules, Choices, StandardAbc };

struct ImportSettingsBox::Row
{
    Settings::Setting setting;
    Group group;
    const char *name;
    const char *text;
    const char *tip;
};

const QVector<ImportSettingsBox::Row> &ImportSettingsBox::rows()
{
    static const QVector<Row> table{
        {Settings::MidiMergeChannels, Group::Rules, "chkMergeChannels",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Create one track per MIDI channel"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "If checked, all notes playing on the same channel will be merged into "
                                                "a single track, even if they are in "
                                                "separate tracks in the MIDI.")},
        {Settings::MidiAutoRealign, Group::Rules, "chkRealign",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Automatically re-align notes after importing"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "If checked, all notes will automatically be re-aligned after importing a MIDI.")},
        {Settings::MidiPitchBend, Group::Rules, "chkPitchBend",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Process pitch bending"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "If checked, pitch bending in MIDIs will be approximated with additional notes")},
        {Settings::MidiAutoDetectUnitLength, Group::Rules, "chkOptimizeUnitLength",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Auto-detect default note length to minimize ABC size"),
         QT_TRANSLATE_NOOP(
             "ImportSettingsBox",
             "If checked, the unit length (L: header) of imported tracks will be optimized to produce the smallest ABC "
             "size. Otherwise the default of 1/4 will be used.")},
        {Settings::MidiProcessVolume, Group::Rules, "chkNoteVolume",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Process note volume (Will not work in Kelvarion!)"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "If checked, the volume of notes will be imported as well. Do note that this will only "
                           "affect the preview, "
                           "the generated ABC is not affected as Kelvarin does not support volume changes.")},
        {Settings::MidiEndRestruck, Group::Choices, "chkEndRestruck",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "End notes that are struck again"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "A note that is struck again while it sounds ends there, instead of being lost")},
        {Settings::MidiSustainPedal, Group::Choices, "chkSustainPedal",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Use the sustain pedal"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Notes sound on while the pedal is down")},
        {Settings::MidiSplitPrograms, Group::Choices, "chkSplitPrograms",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "One part for each program of a channel"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "A channel that changes its instrument becomes several parts")},
        {Settings::MidiTrackNames, Group::Choices, "chkTrackNames",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Use the names of MIDI tracks"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Parts are named after the tracks that they are from")},
        {Settings::MidiFoldOctaves, Group::Choices, "chkFoldOctaves",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Move notes out of range by octaves"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "Notes that are too low or too high to be written are moved, instead of "
                           "being left out")},
        {Settings::MidiExactTempo, Group::Choices, "chkExactTempo",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Keep the tempo exactly"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "The tempo is not rounded to whole beats a minute")},
        {Settings::MidiReadAllChunks, Group::Choices, "chkReadAllChunks",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Read tracks that the file does not count"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "All tracks are read, however many the beginning of the file speaks of")},
        {Settings::MidiMergedUnitLength, Group::Choices, "chkMergedUnitLength",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Auto-detect the note length of channels, too"),
         QT_TRANSLATE_NOOP("ImportSettingsBox",
                           "The note length is also detected where there is one track per channel")},
        {Settings::MidiCleanQuantise, Group::Choices, "chkCleanQuantise",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Quantise cleanly instead of re-aligning"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Notes move to the grid that the music is on, measure by measure, and "
                                                "get lengths that are simple to write")},
        {Settings::MidiVelocityGate, Group::Choices, "spnVelocityGate",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Leave out notes softer than"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "How hard a note must be struck to be meant: 0 to 127")},
        {Settings::AbcGraceNotes, Group::StandardAbc, "chkGraceNotes",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Play grace notes"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "They sound in time taken from the note behind them, instead of being "
                                                "left out")},
        {Settings::AbcPlayChordNames, Group::StandardAbc, "chkPlayChordNames",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Play chord names as an accompaniment"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "Chord names over the music become a part of their own, instead of a "
                                                "remark in its header")},
        {Settings::AbcTempoInQuarters, Group::StandardAbc, "chkTempoInQuarters",
         QT_TRANSLATE_NOOP("ImportSettingsBox", "A tempo without a beat counts quarter notes"),
         QT_TRANSLATE_NOOP("ImportSettingsBox", "\"Q:120\" is 120 quarter notes a minute, instead of 120 of the "
                                                "unit length of the tune")},
    };
    return table;
}

const QVector<ImportSettingsBox::Group> &ImportSettingsBox::groupsOf(ImportKind kind)
{
    static const QVector<Group> midi{Group::Rules, Group::Choices};
    static const QVector<Group> standardAbc{Group::StandardAbc};
    return kind == ImportKind::Midi ? midi : standardAbc;
}

QString ImportSettingsBox::titleOf(Group group)
{
    switch (group) {
    case Group::Rules:
        return tr("Import Settings");
    case Group::Choices:
        return tr("By Choice");
    case Group::StandardAbc:
        break;
    }
    return tr("Converted ABC");
}

ImportSettingsBox::ImportSettingsBox(const QVector<ImportKind> &kinds, const Settings &settings,
                                     const QHash<Settings::Setting, QVariant> &values, QWidget *parent)
    : QWidget(parent), settings_(settings), changes_(values)
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (const auto kind : kinds) {
        for (const auto group : groupsOf(kind))
            column->addWidget(frameOf(group));
    }
    column->addStretch();
}

QWidget *ImportSettingsBox::frameOf(Group group)
{
    auto *const frame = new QGroupBox(titleOf(group));
    auto *const controls = new QVBoxLayout(frame);
    for (const auto &row : rows()) {
        if (row.group == group)
            addRow(row, *controls);
    }
    return frame;
}

void ImportSettingsBox::addRow(const Row &row, QVBoxLayout &column)
{
    const bool isNumber = SettingsTable::rows()[row.setting].type == SettingsTable::Type::Integer;
    auto *const control = isNumber ? numberBox(row) : checkBox(row);
    control->setObjectName(QLatin1String(row.name));
    control->setToolTip(tr(row.tip));
    if (!isNumber) {
        column.addWidget(control);
        return;
    }
    auto *const label = new QLabel(tr(row.text));
    label->setBuddy(control);
    label->setWordWrap(true);
    label->setToolTip(control->toolTip());
    auto *const line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(control);
    line->addStretch();
    column.addLayout(line);
}

QWidget *ImportSettingsBox::checkBox(const Row &row)
{
    auto *const box = new WrappedCheckBox(tr(row.text));
    box->setChecked(value(row.setting).toBool());
    connect(box, &QCheckBox::toggled, this, [=, this, setting = row.setting](bool is) { change(setting, is); });
    return box;
}

QWidget *ImportSettingsBox::numberBox(const Row &row)
{
    auto *const box = new QSpinBox;
    box->setRange(0, 127);
    box->setValue(value(row.setting).toInt());
    box->setAccessibleName(tr(row.text));
    connect(box, qOverload<int>(&QSpinBox::valueChanged), this,
            [=, this, setting = row.setting](int number) { change(setting, number); });
    return box;
}

void ImportSettingsBox::change(Settings::Setting setting, const QVariant &value)
{
    changes_.insert(setting, value);
    emit changed(setting, value);
}

QVariant ImportSettingsBox::value(Settings::Setting setting) const
{
    const auto change = changes_.constFind(setting);
    return change != changes_.constEnd() ? *change : settings_.value(setting);
}

void ImportSettingsBox::store(Settings &settings) const
{
    for (auto change = changes_.constBegin(); change != changes_.constEnd(); ++change)
        settings.setValue(change.key(), change.value());
}
