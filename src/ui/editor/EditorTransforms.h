#pragma once

#include "core/Track.h"
#include "edit/AbcReading.h"
#include "edit/NoteEdit.h"

#include <QObject>

#include <functional>
#include <optional>

struct RewriteLoss;
class Dialogs;
class EditorDocument;
class QWidget;
class Settings;

// The commands that change the whole tune, or its selected notes. Each works on the applied state, after asking what is
// to become of changes that are not applied, and its result is applied at once, as one step to undo. What is no note
// stays in the text, unless its dialog says otherwise; where nothing would change, nothing happens.
class EditorTransforms : public QObject
{
    Q_OBJECT

public:
    // All must outlive this object; `window` owns it.
    EditorTransforms(EditorDocument &document, Settings &settings, Dialogs &dialogs, QWidget &window);

    // Shows why the text cannot be applied, if so.
    bool apply();
    // Whether to go on: there are no changes that are not applied, or the user said what to do with them.
    bool settlePendingChanges();

    // What the user wants of the changes before the editor closes.
    enum class Closing { Stay, Close, KeepDraft };
    Closing settleBeforeClosing();
    static QString questionAboutErrors(const QString &error);

    // Whether the user agrees to lose what stands in the text beside the notes.
    bool mayRewrite(const RewriteLoss &loss);

signals:
    void refused(); // the text has errors

public slots:
    void quickRealign();
    void realignNotes();
    void cleanQuantise();
    void transposeNotes();
    void changeUnitLength();
    void changeKey();

private:
    Closing askAboutErrors(const QString &error);
    // The notes that are meant, by their index; none for all.
    using EditMaker = std::function<NoteEdit(const Track &, const QVector<int> &)>;
    void changeNotes(const QString &name, const EditMaker &makeEdit);
    bool restoreApplied(const QString &name);
    void changeField(const QString &name, const std::optional<QString> &text, const Track &otherwise);
    AbcReading appliedReading();
    void become(Track track, const QString &name);

    EditorDocument &document_;
    Settings &settings_;
    Dialogs &dialogs_;
    QWidget &window_;
};
