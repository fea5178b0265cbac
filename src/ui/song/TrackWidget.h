#pragma once

#include "core/Track.h"

#include <QFrame>

#include <memory>

class Dialogs;
class DragHandle;
class InstrumentComboBox;
class InstrumentSetModel;
class QCheckBox;
class QMenu;
class QToolButton;
class Settings;
class TitleLabel;
class TrackVisualizationWidget;
class ValueDial;
class VUMeter;

// One row of the track list: shows and edits one track. It knows neither the player nor the undo history: what the user
// changes is shown at once and announced by a signal, whose receiver reads the new state here. The set… functions, for
// undo and for commands on many tracks, announce nothing. On the interface thread.
class TrackWidget : public QFrame
{
    Q_OBJECT

public:
    // All but the track must outlive the widget. No instrument is chosen until setInstrumentName().
    TrackWidget(const Track &track, InstrumentSetModel &instruments, Settings &settings, Dialogs &dialogs,
                QWidget *parent = nullptr);

    const Track &track() const { return track_; }
    void setTrack(const Track &track); // keeps the position, forgets the pressed notes

    // What the latest trackChanged() was about, as the name of a step to undo: "Rename Track".
    const QString &changeName() const { return changeName_; }

    bool isSelected() const;
    void setSelected(bool selected);
    bool isMuted() const { return isMuted_; }
    void setMuted(bool muted);
    int volumePercent() const; // 0..100
    void setVolumePercent(int percent);
    double volume() const { return volumePercent() / 100.0; } // linear gain
    int panPercent() const;                                   // -100 left … 100 right
    void setPanPercent(int percent);
    double pan() const { return panPercent() / 100.0; }

    // One that the catalogue lacks shows an empty box, and comes back when a later catalogue has it.
    const QString &instrumentName() const { return instrumentName_; }
    void setInstrumentName(const QString &name);

    // What the player says.
    void setPosition(Ticks ticks);
    void setLevels(float leftRms, float rightRms, float leftPeak, float rightPeak);
    void notePressed(int eventIndex);
    void noteReleased(int eventIndex);
    void releaseAllNotes();

    // The length that the overviews of all tracks share.
    void setCommonLength(Ticks length);

    // Whether the file was written: not after a failure, which was shown, nor after a cancelled dialog.
    bool save();
    bool saveAs();

    std::unique_ptr<QMenu> contextMenu();

    // What the row is moved by in the list.
    DragHandle *dragHandle() const { return dragHandle_; }
    // The controls that Tab reaches, in its order.
    QVector<QWidget *> tabStops() const;

signals:
    void trackRemoved();
    void trackChanged();
    void trackSelected(bool selected);
    void trackMuteChanged();
    void trackSolo();
    void trackInstrumentChanged();
    void trackVolumeChanged();
    void trackPanChanged();
    void trackMoveUp();
    void trackMoveDown();
    void trackSeek(qint64 ticks);
    void trackPlay(); // this and the next three are for the editor of this track, by whoever opens it
    void trackStop();
    void previewNote(int semitone);
    void stopPreview();
    void editorRequested(); // the ABC editor is to open on this track
    void trackSaved(const QString &path);

public slots:
    void onSave() { save(); }
    void onSaveAs() { saveAs(); }
    void onSelectChanged();
    void onMuteClicked();
    void onRemoveClicked();
    void onChangeTitle();
    void onEditABCClicked();
    void onTrackChanged(const Track &track); // the editor's track takes this one's place and is announced
    void onTransposeUp();
    void onTransposeDown();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createChildren();
    void layOut();
    void connectChildren();
    void showTrack();
    void showInstrument();
    void showSelection();
    void onInstrumentChosen(int row);
    void applyChange(const QString &name, const Track &track);
    bool writeFile(const QString &failure); // failure: what to say then
    QString shownTitle() const;

    InstrumentSetModel &instruments_;
    Settings &settings_;
    Dialogs &dialogs_;
    Track track_;
    QString instrumentName_;
    QString changeName_;
    bool isMuted_ = false;

    DragHandle *dragHandle_ = nullptr;
    QCheckBox *chkSelect_;
    TitleLabel *lblTitle_;
    InstrumentComboBox *cboInstrument_;
    QToolButton *btnEdit_;
    QToolButton *btnDelete_;
    QToolButton *btnUp_;
    QToolButton *btnDown_;
    QCheckBox *btnMute_;
    ValueDial *dlVolume_;
    ValueDial *dlPan_;
    TrackVisualizationWidget *wVis_;
    VUMeter *vuMeter_;
};
