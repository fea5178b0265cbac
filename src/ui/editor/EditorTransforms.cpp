#include "ui/editor/EditorTransforms.h"

#include "base/ErrorText.h"
#include "import/ChangeKey.h"
#include "import/Realign.h"
#include "import/Transpose.h"
#include "import/UnitLength.h"
#include "import/quantise/CleanQuantise.h"
#include "ui/Dialogs.h"
#include "ui/document/EditorDocument.h"
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

void EditorTransforms::become(Track track, const QString &name)
{
    document_.replaceText(track.toAbc(), name);
    apply();
}

void EditorTransforms::quickRealign()
{
    if (settlePendingChanges())
        become(realign(document_.appliedTrack(), SnapGrid::quick()), tr("Quick Realign"));
}

void EditorTransforms::realignNotes()
{
    if (!settlePendingChanges())
        return;
    RealignNotesDialog dialog(settings_, &window_);
    if (dialog.exec() == QDialog::Accepted)
        become(realign(document_.appliedTrack(), SnapGrid(dialog.grids())), tr("Realign Notes"));
}

void EditorTransforms::cleanQuantise()
{
    if (settlePendingChanges())
        become(cleanQuantised(document_.appliedTrack()), tr("Clean Quantise"));
}

void EditorTransforms::transposeNotes()
{
    if (!settlePendingChanges())
        return;
    TransposeDialog dialog(&window_);
    if (dialog.exec() == QDialog::Accepted)
        become(transpose(document_.appliedTrack(), dialog.semitones()), tr("Transpose"));
}

void EditorTransforms::changeUnitLength()
{
    if (!settlePendingChanges())
        return;
    UnitLengthDialog dialog(&window_);
    dialog.preset(document_.appliedTrack().headerField(QStringLiteral("L")));
    if (dialog.exec() == QDialog::Accepted)
        become(::changeUnitLength(document_.appliedTrack(), dialog.result()), tr("Change Unit Length"));
}

void EditorTransforms::changeKey()
{
    if (!settlePendingChanges())
        return;
    KeyDialog dialog(dialogs_, &window_);
    dialog.preset(document_.appliedTrack().headerField(QStringLiteral("K")));
    if (dialog.exec() == QDialog::Accepted)
        become(::changeKey(document_.appliedTrack(), dialog.key()), tr("Change Key"));
}
