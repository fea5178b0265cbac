#pragma once

#include "song/SongTrack.h"
#include "ui/SpokenWidget.h"

#include <QFrame>

#include <memory>
#include <optional>

class Dialogs;
class DragHandle;
class InstrumentComboBox;
class InstrumentSetModel;
class QCheckBox;
class QLabel;
class QMenu;
class QToolButton;
class Settings;
class TitleLabel;
class TrackVisualizationWidget;
class ValueDial;
class VUMeter;
struct TimeSpan;

// One row of the track list: shows a track, and says by signals what the user wants of it. It knows neither the player
// nor the undo history nor files, and shares the track with the list: what is wanted is there when the list has it and
// shows it here. The set… functions announce nothing. On the interface thread.
class TrackWidget : public QFrame, public SpokenWidget
{
    Q_OBJECT

public:
    // All but the track must outlive the widget.
    TrackWidget(const std::shared_ptr<const SongTrack> &track, InstrumentSetModel &instruments, Settings &settings,
                Dialogs &dialogs, QWidget *parent = nullptr);

    const std::shared_ptr<const SongTrack> &shown() const { return shown_; }
    // The pressed notes of the same notes stay; the position does in any case.
    void setTrack(const std::shared_ptr<const SongTrack> &track);

    bool isSelected() const;
    void setSelected(bool selected);
    void setHasDraft(bool hasDraft); // its editor holds text that is not applied

    // How many things are wrong with the track, and what; 0: nothing.
    void setFindings(int count, const QString &what);

    // That its file holds something else.
    void setDiffersFromFile(bool differs);
    // It was chosen to sound alone, maybe with others.
    void setSoloed(bool isSoloed);
    // What sounds when the catalogue has no instrument of this name; empty: nothing.
    void setStandIn(const QString &instrument);

    // What the controls say: what is shown, and while its signal is announced what the user wants.
    bool isMuted() const;
    int volumePercent() const; // 0..100
    int panPercent() const;    // -100 left … 100 right
    // One that the catalogue lacks is shown with what sounds instead, and comes back when a later catalogue has it.
    QString instrumentName() const;

    // What the player says.
    void setPosition(Ticks ticks);
    void setLevels(float leftRms, float rightRms, float leftPeak, float rightPeak);
    void notePressed(int eventIndex);
    void noteReleased(int eventIndex);
    void releaseAllNotes();
    void forgetClips();

    // Another track whose notes stand behind those of the overview; may be null.
    void setShadow(const std::shared_ptr<const Track> &shadow);
    // The time that the overviews of all tracks share.
    void setSpan(const TimeSpan &span);
    // Where it lies in the row.
    QRect overviewRect() const;

    std::unique_ptr<QMenu> contextMenu();

    QAccessible::Role spokenRole() const override { return QAccessible::Grouping; }
    QString spokenDescription() const override; // all that the row shows, but its title and its notes

    // What the row is moved by in the list.
    DragHandle *dragHandle() const { return dragHandle_; }
    // The controls that Tab reaches, in its order.
    QVector<QWidget *> tabStops() const;

signals:
    void trackRemoved();
    void trackChanged(const QString &step, const Track &wanted);        // step: its name in the history, "Rename Track"
    void trackTransposed(int semitones);                                // is to be
    void trackSelected(bool selected, Qt::KeyboardModifiers modifiers); // with Shift: from the one before to this
    void trackMuteChanged();
    void trackSolo();
    void trackInstrumentChanged();
    void trackVolumeChanged();
    void trackPanChanged();
    void startOffsetChosen(int milliseconds);
    void trackMoveUp();
    void trackMoveDown();
    void trackSeek(qint64 ticks);
    void trackPlay(); // this and the next three are for the editor of this track, by whoever opens it
    void trackStop();
    void previewNote(int semitone);
    void stopPreview();
    void editorRequested(); // the ABC editor is to open on this track
    void saveRequested();
    void saveAsRequested();
    void copyRequested();     // as a file
    void dragged();           // where it has no controls
    void findingsRequested(); // what is wrong is to be shown
    void overviewMoved();

public slots:
    void onSave();
    void onSaveAs();
    void onSelectChanged();
    void onMuteClicked();
    void onRemoveClicked();
    void onChangeTitle();
    void onEditABCClicked();
    void onTrackChanged(const Track &track); // the editor's track is to take this one's place
    void onTransposeUp();
    void onTransposeDown();
    void onChooseStartOffset();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createChildren();
    void layOut();
    void connectChildren();
    const Track &track() const { return *shown_->track; }
    void showTrack();
    void showMix();
    void showStartOffset();
    void showInstrument();
    void showMissingInstrument(bool isMissing);
    void showSelection();
    void showTheme();
    void showMuted(bool isMuted);
    void onInstrumentChosen(int row);

    InstrumentSetModel &instruments_;
    Settings &settings_;
    Dialogs &dialogs_;
    std::shared_ptr<const SongTrack> shown_;
    QString standIn_;
    std::optional<QPoint> pressedAt_; // where a drag may begin

    DragHandle *dragHandle_ = nullptr;
    QCheckBox *chkSelect_;
    TitleLabel *lblTitle_;
    QLabel *lblDraft_;
    QLabel *lblOffset_;
    QToolButton *btnFindings_;
    InstrumentComboBox *cboInstrument_;
    QToolButton *btnEdit_;
    QToolButton *btnDelete_;
    QToolButton *btnUp_;
    QToolButton *btnDown_;
    QCheckBox *btnMute_;
    QToolButton *btnSolo_;
    ValueDial *dlVolume_;
    ValueDial *dlPan_;
    TrackVisualizationWidget *wVis_;
    VUMeter *vuMeter_;
};
