#include "ui/editor/StepEntry.h"

#include "core/AbcParser.h"
#include "edit/EnteredNotes.h"
#include "ui/document/EditorDocument.h"
#include "ui/roll/PianoRoll.h"
#include "ui/text/AbcTextEdit.h"

#include <utility>

StepEntry::StepEntry(EditorDocument &document, AbcTextEdit &text, PianoRoll &roll, QObject *parent)
    : QObject(parent), document_(document), text_(text), roll_(roll),
      action_(new QAction(tr("Enter Notes from the MIDI &Keyboard"), this))
{
    action_->setObjectName(QStringLiteral("actionStepEntry"));
    action_->setCheckable(true);
    action_->setShortcut(keyRow().usual);
    nameKeyOf(*action_, keyRow().id);
    action_->setToolTip(tr("Write what you play at the caret, note by note; keys that are down together are a chord"));
    action_->setStatusTip(action_->toolTip());
}

KeyRow StepEntry::keyRow()
{
    return {QStringLiteral("editor.actionStepEntry"), KeyScope::Editor,
            plainText(tr("Enter Notes from the MIDI &Keyboard")), QKeySequence(QStringLiteral("Ctrl+Alt+K"))};
}

void StepEntry::press(int pitch)
{
    if (!action_->isChecked() || !isPlayable(pitch))
        return;
    held_.insert(pitch);
    if (!chord_.contains(quint32(pitch)))
        chord_.append(quint32(pitch));
}

void StepEntry::release(int pitch)
{
    if (held_.remove(pitch) && held_.isEmpty())
        enter();
}

void StepEntry::enter()
{
    const auto chord = std::exchange(chord_, {});
    if (text_.hasFocus())
        enterInText(chord);
    else
        roll_.commands().insertChordAtCursor(chord);
}

// Behind a note that the caret stands in.
void StepEntry::enterInText(const QVector<quint32> &chord)
{
    document_.update();
    const auto &layout = document_.reading().layout;
    auto offset = std::max(text_.textCursor().selectionStart(), layout.bodyOffset);
    if (const auto before = layout.elementAt(offset); before >= 0 && layout.elements[before].range.offset < offset)
        offset = std::max(offset, layout.elements[before].range.end());
    auto notes = enteredNotes(document_.reading(), offset, chord, roll_.commands().newNoteLength());
    const auto previous = document_.text()->characterAt(offset - 1);
    if (layout.tailNeedsLine && offset == document_.text()->characterCount() - 1)
        notes.prepend(u'\n');
    else if (offset > 0 && previous != QChar::ParagraphSeparator && !previous.isSpace())
        notes.prepend(u' ');
    document_.replaceRange({offset, 0}, notes, tr("Enter Notes"));
    auto caret = text_.textCursor();
    caret.setPosition(offset + int(notes.size()));
    text_.setTextCursor(caret);
}
