#pragma once

#include "ui/SpokenWidget.h"
#include "ui/roll/RollActions.h"
#include "ui/roll/RollCommands.h"
#include "ui/roll/RollMouse.h"
#include "ui/roll/RollPainter.h"
#include "ui/roll/RollScroller.h"

#include <QAbstractScrollArea>
#include <QTimer>

class RollKeyboard;
class RollRuler;
class Settings;

// A document's notes as bars over time, beside a keyboard and under the measures. Shows and changes the document's
// selection, and edits its notes by mouse and keys.
class PianoRoll : public QAbstractScrollArea, public SpokenWidget
{
    Q_OBJECT

public:
    // Both must outlive the roll. Zoom comes from the settings and goes back to them.
    PianoRoll(EditorDocument &document, Settings &settings, QWidget *parent = nullptr);
    ~PianoRoll() override;

    const RollState &state() const { return state_; }
    RollActions &actions() { return *actions_; }
    RollCommands &commands() { return commands_; }
    const RollMouse &mouse() const { return mouse_; }

    // Notes of other parts, which lie behind the document's own and are only seen.
    void setGhosts(std::vector<RollNotes> ghosts);

    // Counted in steps of the settings; what is at the middle of the view stays there.
    void zoomTime(int steps);
    void zoomPitch(int steps);
    void zoomNormal();

    QAccessible::Role spokenRole() const override { return QAccessible::Canvas; }
    QString spokenValue() const override; // where the cursor is
    std::optional<Range> spokenRange() const override;
    void setSpokenValue(double measure) override;

    QSize sizeHint() const override { return {900, 420}; }

signals:
    void previewNote(int pitch);
    void stopPreview();
    void playRequested(Ticks tick);
    void playOrStopRequested(Ticks tick); // the cursor's
    // What is under the mouse or at the cursor; empty when there is nothing to say.
    void statusChanged(const QString &status);
    void lengthsChanged(); // the grid, or the length of new notes

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void connectDocument();
    void connectParts();
    void connectActions();
    void readTrack();
    void readInstrument();
    void readColours();
    void updateActions();
    void showLengths();
    void updateAll();
    void updateNotes(const QVector<int> &notes);
    void updateLine(Ticks tick); // cursor or playing position
    void onSelectionChanged();
    void onSoundingChanged();
    void onPlayPositionChanged(Ticks tick);
    void onCaretChanged();
    void onCursorPlaced(Ticks tick, int pitch);
    void showSelected();
    void soundBriefly(int pitch);
    void setKeyUnderMouse(std::optional<int> pitch);
    void setSnap(int choice);
    void cancelOrSelectNone();
    void centreOnce();
    void dragBeyondEdge();
    void zoom(int hScale, int vScale, const QPoint &anchor);
    void wheelZoom(const QWheelEvent &event);
    void layOut();
    QString statusAt(const QPoint &position) const;
    void updateAccessibleText();

    EditorDocument &document_;
    Settings &settings_;
    RollState state_;
    RollCommands commands_;
    RollMouse mouse_;
    RollScroller scroller_;
    RollPainter painter_;
    RollActions *actions_;
    RollKeyboard *keyboard_;
    RollRuler *ruler_;
    QTimer previewEnd_;
    QTimer edgeScroll_;
    QPoint mousePosition_;
    Qt::KeyboardModifiers mouseModifiers_;
    std::optional<QPoint> panFrom_;
    int wheelRest_ = 0;
    QVector<int> shownSounding_;
    bool isCentred_ = false;
};
