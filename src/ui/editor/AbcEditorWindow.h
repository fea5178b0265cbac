#pragma once

#include "ui/document/EditorDocument.h"

#include <QMainWindow>

class AbcTextEdit;
class Dialogs;
class EditorActions;
class EditorCleanUp;
class EditorPlayback;
class EditorStatus;
class EditorTransforms;
class FindBar;
class GhostParts;
class PianoRoll;
class ProblemList;
class QLabel;
class QSlider;
class QToolBar;
class QToolButton;
class Settings;
class StepEntry;
class TrackPlayer;

// The editor of one track: its ABC text, the same notes as a piano roll, and playback of both. Nothing reaches the song
// before it is applied.
class AbcEditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    // All must outlive the window.
    AbcEditorWindow(Settings &settings, Dialogs &dialogs, TrackPlayer &player, QWidget *parent = nullptr);
    ~AbcEditorWindow() override;

    // Begins with a track. Changes that were not applied are gone.
    void setTrack(const Track &track);
    // Those that the text may name.
    void setInstruments(const QStringList &names);
    void setInstrument(const Instrument &instrument) { document_.setInstrument(instrument); }

    EditorDocument &document() { return document_; }
    EditorPlayback &playback() { return *playback_; }
    StepEntry &stepEntry() { return *stepEntry_; }
    GhostParts &ghosts() { return *ghosts_; }

signals:
    void applied(const Track &track);
    void saveRequested();                              // what has no errors is applied
    void closing(const std::optional<QString> &draft); // the text that is to be kept without being applied

protected:
    void closeEvent(QCloseEvent *event) override; // asks about changes that are not applied

private:
    void createViews();
    void createMenus();
    void createNotesMenu();
    void createToolBar();
    void addTempoControl(QToolBar &bar);
    void addLengthControls(QToolBar &bar);
    void showLengths();
    void connectActions();
    void connectEditing();
    void connectCleanUp();
    void connectPlaying();
    void connectViews();
    void connectDocument();
    void followCheckOptions();
    void save();
    void revert();
    void goToLine();
    void stepBack();
    void stepForward();
    void showTitle();
    void showPlaying();
    void showTempo(int percent);
    void showRoll(bool visible);
    void showProblems(bool visible);
    void openProblems();
    void goToError();
    void switchView();

    Settings &settings_;
    Dialogs &dialogs_;
    EditorDocument document_;
    EditorPlayback *playback_;
    EditorTransforms *transforms_;
    AbcTextEdit *text_;
    EditorActions *actions_;
    PianoRoll *roll_;
    StepEntry *stepEntry_;
    GhostParts *ghosts_;
    FindBar *findBar_;
    ProblemList *problems_;
    EditorStatus *status_;
    EditorCleanUp *cleanUp_;
    bool mayOpenProblems_ = true;
    QToolButton *noteLength_ = nullptr;
    QToolButton *grid_ = nullptr;
    QSlider *tempo_ = nullptr;
    QLabel *tempoLabel_ = nullptr;
};
