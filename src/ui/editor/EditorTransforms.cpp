#include "ui/editor/EditorTransforms.h"

#include "base/ErrorText.h"
#include "core/HeaderFields.h"
#include "edit/notes/NoteEdits.h"
#include "edit/plan/FieldChange.h"
#include "edit/plan/RewriteLoss.h"
#include "import/ChangeKey.h"
#include "import/Realign.h"
#include "import/Transpose.h"
#include "import/UnitLength.h"
#include "import/quantise/CleanQuantise.h"
#include "ui/Dialogs.h"
#include "ui/document/EditorDocument.h"
#include "ui/editor/RewriteQuestion.h"
#include "ui/transform/DialogFrame.h"
#include "ui/transform/KeyDialog.h"
#include "ui/transform/RealignNotesDialog.h"
#include "ui/transform/TransposeDialog.h"
#include "ui/transform/UnitLengthDialog.h"

EditorTransforms::EditorTransforms(EditorDocument &document, Settings &settings, Dialogs &dialogs, QWidget &window)
    : QObject(&window), document_(document), settings_(settings), dialogs_(dialogs), window_(window)
{
}

bool EditorTransforms::apply()
{
    QString error;
    if (document_.apply(&error))
        return true;
    emit refused();
    dialogs_.message(&window_, Dialogs::Severity::Warning, tr("The changes cannot be applied"), error);
    return false;
}

bool EditorTransforms::settlePendingChanges()
{
    if (document_.isApplied())
        return true;
    const auto answer = dialogs_.askOrCancel(&window_, tr("ABC Editor"),
                                             tr("There are unapplied changes. Would you like to apply these first?"));
    return answer && (*answer == Dialogs::Answer::No || apply());
}

EditorTransforms::Closing EditorTransforms::settleBeforeClosing()
{
    if (document_.isApplied())
        return Closing::Close;
    try {
        document_.exactTrack();
    } catch (...) {
        return askAboutErrors(currentErrorText());
    }
    return settlePendingChanges() ? Closing::Close : Closing::Stay;
}

QString EditorTransforms::questionAboutErrors(const QString &error)
{
    return tr("The text cannot be applied, since it has errors:\n%1\n\nA draft stays with the song as it is, to go on "
              "with later. Until then the part plays as it was applied last.")
        .arg(error);
}

EditorTransforms::Closing EditorTransforms::askAboutErrors(const QString &error)
{
    switch (dialogs_.askAboutDraft(&window_, tr("ABC Editor"), questionAboutErrors(error))) {
    case Dialogs::DraftAnswer::KeepAsDraft:
        return Closing::KeepDraft;
    case Dialogs::DraftAnswer::Discard:
        return Closing::Close;
    case Dialogs::DraftAnswer::Fix:
        break;
    }
    return Closing::Stay;
}

bool EditorTransforms::mayRewrite(const RewriteLoss &loss)
{
    return mayRewriteText(dialogs_, &window_, tr("ABC Editor"), loss);
}

void EditorTransforms::become(Track track, const QString &name)
{
    document_.replaceText(track.toAbc(), name);
    apply();
}

// Whether the text had to change for it.
bool EditorTransforms::restoreApplied(const QString &name)
{
    if (document_.isApplied())
        return false;
    auto applied = document_.appliedTrack();
    document_.replaceText(applied.toAbc(), name);
    return true;
}

void EditorTransforms::changeNotes(const QString &name, const EditMaker &makeEdit)
{
    const bool isRestored = restoreApplied(name);
    document_.update();
    const auto selected = document_.selectedNotes();
    const auto edit = makeEdit(document_.track(), selected);
    const auto specs = NoteEdits::after(edit, document_.track(), selected);
    const bool isChanged =
        isRestored ? document_.editInLastStep(edit, name, specs) : document_.editAndSelect(edit, name, specs);
    if (isChanged || isRestored)
        apply();
}

AbcReading EditorTransforms::appliedReading()
{
    auto applied = document_.appliedTrack();
    return readAbc(applied.toAbc());
}

// Where the text cannot be changed in place, the user is asked.
void EditorTransforms::changeField(const QString &name, const std::optional<QString> &text, const Track &otherwise)
{
    if (text) {
        document_.replaceText(*text, name);
        apply();
    } else if (mayRewrite(lostInRewriting(document_.text()->toPlainText()))) {
        become(otherwise, name);
    }
}

void EditorTransforms::quickRealign()
{
    if (settlePendingChanges())
        changeNotes(tr("Quick Realign"), [](const Track &track, const QVector<int> &notes) {
            return NoteEdits::between(track, realign(track, SnapGrid::quick()), notes);
        });
}

void EditorTransforms::realignNotes()
{
    if (!settlePendingChanges())
        return;
    RealignNotesDialog dialog(settings_, &window_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SnapGrid grid(dialog.grids());
    const auto name = tr("Realign Notes");
    if (!keepsText(dialog))
        become(realign(document_.appliedTrack(), grid), name);
    else
        changeNotes(name, [&](const Track &track, const QVector<int> &notes) {
            return NoteEdits::between(track, realign(track, grid), notes);
        });
}

void EditorTransforms::cleanQuantise()
{
    if (settlePendingChanges())
        changeNotes(tr("Clean Quantise"), [](const Track &track, const QVector<int> &notes) {
            return NoteEdits::between(track, cleanQuantised(track), notes);
        });
}

void EditorTransforms::transposeNotes()
{
    if (!settlePendingChanges())
        return;
    TransposeDialog dialog(&window_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto name = tr("Transpose");
    if (!keepsText(dialog))
        become(transpose(document_.appliedTrack(), dialog.semitones()), name);
    else
        changeNotes(name, [&](const Track &track, const QVector<int> &notes) {
            return NoteEdits::transposition(track, notes, dialog.semitones());
        });
}

void EditorTransforms::changeUnitLength()
{
    if (!settlePendingChanges())
        return;
    UnitLengthDialog dialog(&window_);
    dialog.preset(document_.appliedTrack().headerField(QStringLiteral("L")));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto changed = ::changeUnitLength(document_.appliedTrack(), dialog.result());
    const auto name = tr("Change Unit Length");
    auto applied = document_.appliedTrack();
    const auto reading = appliedReading();
    const auto unitLength = changed.headerField(QStringLiteral("L"));
    if (!keepsText(dialog))
        become(changed, name);
    else if (HeaderFields::parseUnitLength(unitLength) != reading.unitLength)
        changeField(name, FieldChange::inUnitLength(applied.toAbc(), reading, unitLength), changed);
}

void EditorTransforms::changeKey()
{
    if (!settlePendingChanges())
        return;
    KeyDialog dialog(dialogs_, &window_);
    auto applied = document_.appliedTrack();
    const auto oldKey = applied.headerField(QStringLiteral("K"));
    dialog.preset(oldKey);
    const auto presetKey = dialog.key();
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto name = tr("Change Key");
    if (!keepsText(dialog))
        become(::changeKey(applied, dialog.key()), name);
    else if (dialog.key() != presetKey)
        changeField(name, FieldChange::inKey(applied.toAbc(), appliedReading(), dialog.key()),
                    ::changeKey(applied, dialog.key()));
}
