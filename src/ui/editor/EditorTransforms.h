#pragma once

#include "core/Track.h"

#include <QObject>

#include <functional>

class Dialogs;
class EditorDocument;
class QWidget;
class Settings;

// The commands that make a new tune of the whole tune. Each works on the applied state, after asking what is to become
// of changes that are not applied, and its result is applied at once, as one step to undo.
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

public slots:
    void quickRealign();
    void realignNotes();
    void cleanQuantise();
    void transposeNotes();
    void changeUnitLength();
    void changeKey();

private:
    Closing askAboutErrors(const QString &error);
    void become(Track track, const QString &name);

    EditorDocument &document_;
    Settings &settings_;
    Dialogs &dialogs_;
    QWidget &window_;
};
