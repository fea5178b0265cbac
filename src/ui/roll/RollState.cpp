#include "ui/roll/RollState.h"

#include "core/HeaderFields.h"
#include "edit/NoteText.h"
#include "ui/document/EditorDocument.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

bool hasSample(const NoteEntry &entry)
{
    return !entry.files.isEmpty() && std::isfinite(entry.rate) && entry.rate > 0;
}

} // namespace

RollNote RollDrag::applied(RollNote note) const
{
    if (kind == Kind::Resize) {
        note.length = std::max(Ticks(1), note.length + ticks);
    } else {
        note.start += ticks;
        note.pitch += semitones;
    }
    return note;
}

QRectF RollState::rect(const RollNote &note) const
{
    const auto left = geometry.x(note.start);
    const auto top = geometry.top(note.pitch);
    return {left, top, geometry.x(note.end()) - left, geometry.bottom(note.pitch) - top};
}

QString RollState::positionText(Ticks tick) const
{
    return NoteText::position(tick, measures);
}

QString RollState::pitchText(int pitch) const
{
    return NoteText::pitch(pitch, keyRow);
}

QString RollState::noteText(const RollNote &note) const
{
    return QCoreApplication::translate("RollState", "%1, %2, length %3")
        .arg(pitchText(note.pitch), positionText(note.start), NoteText::length(note.length));
}

void RollState::readTrack(const EditorDocument &document)
{
    const auto &track = document.track();
    measures = Measures(track);
    notes = RollNotes(track);
    length = track.length();
    const auto key = HeaderFields::findKey(track.headerField(QStringLiteral("K")));
    keyRow = key.value_or(HeaderFields::Key()).row;
    if (document.unitLength() > 0)
        snap.setUnit(document.unitLength());
    readFlags(document);
}

void RollState::readFlags(const EditorDocument &document)
{
    noteFlags.assign(size_t(notes.count()), 0);
    const auto mark = [this](int event, NoteFlag flag) {
        if (const auto note = notes.ofEvent(event); note >= 0)
            noteFlags[size_t(note)] |= quint8(flag);
    };
    for (const auto event : document.selectedNotes())
        mark(event, Selected);
    for (const auto event : document.playback().notes())
        mark(event, Sounding);
    mark(document.caret().note, AtCaret);
}

void RollState::readFindings(const EditorDocument &document)
{
    findings.clear();
    std::copy_if(document.findings().begin(), document.findings().end(), std::back_inserter(findings),
                 [](const Finding &finding) { return finding.tick >= 0; });
}

RollState::PitchSet RollState::readSounding(const EditorDocument &document)
{
    readFlags(document);
    PitchSet keys;
    for (const auto event : document.playback().notes()) {
        if (const auto note = notes.ofEvent(event); note >= 0)
            keys.set(size_t(notes[note].pitch));
    }
    return keys ^ std::exchange(soundingKeys, keys);
}

void RollState::readInstrument(const Instrument &instrument)
{
    const auto &entries = instrument.tuning.notes;
    silent.reset();
    for (quint32 pitch = 0; pitch < silent.size() && !entries.isEmpty(); ++pitch) {
        const auto entry = entries.constFind(pitch);
        silent.set(pitch, entry == entries.constEnd() || !hasSample(*entry));
    }
}
