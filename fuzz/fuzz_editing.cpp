// Any text: the editor's reader finds problems exactly where the strict one refuses the text, and an edit in notes
// gives a text that reads as the edited notes.
#include "core/AbcParser.h"
#include "edit/AbcReading.h"
#include "edit/plan/NoteEditPlan.h"

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

bool isRefused(const QString &text)
{
    try {
        parseAbc(text);
        return false;
    } catch (const QString &) {
        return true;
    }
}

// An edit that the bytes choose.
NoteEdit anyEdit(const Track &track, const uint8_t *data, size_t size)
{
    const auto byte = [&](size_t at) { return Ticks(data[at % size]); };
    NoteEdit edit;
    const NoteSpec note{byte(1) * 630, byte(2) * 630, 21 + quint32(byte(3)) % 88};
    const auto some = track.events().isEmpty() ? 0 : int(byte(4) * 7919 % track.events().size());
    switch (byte(0) % 3) {
    case 0:
        edit.inserted.append(note);
        break;
    case 1:
        edit.removed.append(some);
        break;
    default:
        edit.changed.append(NoteEdit::Change{some, note});
        break;
    }
    return edit;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const auto text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    const auto reading = readAbc(text);
    require(reading.problems.isEmpty() != isRefused(text));

    const auto edit = NoteEditPlan::cleaned(reading.track, anyEdit(reading.track, data, size));
    auto wanted = NoteEditPlan::editedTrack(reading.track, edit);
    for (const auto reach : {EditReach::Notes, EditReach::Measures}) {
        const auto changes = NoteEditPlan::textChanges(text, reading, edit, reach);
        if (!changes)
            continue;
        int at = 0;
        for (const auto &change : *changes) {
            require(change.range.offset >= at && change.range.length >= 0 && change.range.end() <= text.size());
            at = change.range.end();
        }
        readAbc(applyChanges(text, *changes));
    }
    require(readAbc(wanted.toAbc()).problems.isEmpty());
    return 0;
}
