#pragma once

#include "base/Task.h"
#include "core/Track.h"
#include "settings/Settings.h"

#include <QColor>
#include <QImage>
#include <QSet>
#include <QWidget>

#include <memory>

class NoteLayout;
class QPainter;

// The notes of a track over the time that all tracks share, with the playing position and the notes that sound. The
// notes are kept as a picture in device pixels, made anew only when the widget is next shown after the track, the
// shared length, the size or a drawing setting changed; what moves is painted over it. The picture of a long track is
// made beside the interface thread, and the one before shown until then. On the interface thread.
class TrackVisualizationWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TrackVisualizationWidget(Settings &settings, QWidget *parent = nullptr); // settings outlive the widget
    ~TrackVisualizationWidget() override;

    void setTrack(const Track &track); // forgets the pressed notes
    Ticks commonLength() const { return commonLength_; }
    void setCommonLength(Ticks length);
    Ticks position() const { return position_; }
    void setPosition(Ticks ticks);
    bool isMuted() const { return isMuted_; }

    // By index into the track's events; one that is no note is ignored.
    void notePressed(int eventIndex);
    void noteReleased(int eventIndex);
    void releaseAllNotes();
    const QSet<int> &pressedNotes() const { return pressed_; }

    // At a horizontal position in logical pixels; 0 while the shared length is 0.
    Ticks tickAt(int x) const;

    // How often the picture was made.
    int pictureCount() const { return pictureCount_; }

    QSize sizeHint() const override { return {400, 64}; }
    QSize minimumSizeHint() const override { return {80, 40}; }

signals:
    void seek(qint64 ticks); // by a click; by the arrow keys (a measure back or forth) and Home

public slots:
    void setMuted(bool muted);
    void onSettingChanged(Settings::Setting setting);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void readSettings();
    struct Drawing;
    void discardPicture();
    void ensurePicture();
    void take(const Drawing &drawing);
    void paintPressed(QPainter &painter, const QRect &dirty);
    void updateNote(int eventIndex);
    int lineQuarters() const;
    double lineWidth() const;
    QRect lineRect() const;
    QRect noteRect(int eventIndex) const;
    QRect logicalRect(const QRectF &pixels) const;

    Settings &settings_;
    Track track_;
    Ticks commonLength_ = 0;
    Ticks position_ = 0;
    QSet<int> pressed_;
    bool isMuted_ = false;

    QColor noteColour_;
    bool drawsMeasureLines_ = false;
    bool drawsOctaveLines_ = false;

    QImage picture_;                     // null until it is needed
    std::unique_ptr<NoteLayout> layout_; // of the picture, when that is what is to be shown
    bool isAskedFor_ = false;            // what is to be shown
    Task drawing_;
    int pictureCount_ = 0;
};
