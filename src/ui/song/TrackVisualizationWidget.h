#pragma once

#include "base/Task.h"
#include "core/Track.h"
#include "settings/Settings.h"
#include "ui/SpokenWidget.h"
#include "ui/timeline/TimeSpan.h"

#include <QColor>
#include <QImage>
#include <QSet>
#include <QWidget>

#include <memory>

class NoteLayout;
class QPainter;

// The notes of a track over the time that all tracks share, with the playing position and the notes that sound. The
// notes are kept as a picture in device pixels, made anew only when the widget is next shown after the track, the
// shown time, the size or a drawing setting changed; what moves is painted over it. The picture of a long track is made
// beside the interface thread, and until then the one before is shown, moved to where it belongs. On the interface
// thread.
class TrackVisualizationWidget : public QWidget, public SpokenWidget
{
    Q_OBJECT

public:
    explicit TrackVisualizationWidget(Settings &settings, QWidget *parent = nullptr); // settings outlive the widget
    ~TrackVisualizationWidget() override;

    void setTrack(const Track &track); // forgets the pressed notes
    // Another track whose notes stand behind these; may be null.
    void setShadow(const std::shared_ptr<const Track> &shadow);
    bool hasShadow() const { return shadow_ != nullptr; }
    const TimeSpan &span() const { return span_; }
    void setSpan(const TimeSpan &span);
    Ticks position() const { return position_; }
    void setPosition(Ticks ticks);
    bool isMuted() const { return isMuted_; }

    // By index into the track's events; one that is no note is ignored.
    void notePressed(int eventIndex);
    void noteReleased(int eventIndex);
    void releaseAllNotes();
    const QSet<int> &pressedNotes() const { return pressed_; }

    // At a horizontal position in logical pixels.
    Ticks tickAt(int x) const { return span_.tickAt(x, width()); }

    // How often the picture was made.
    int pictureCount() const { return pictureCount_; }

    QAccessible::Role spokenRole() const override { return QAccessible::Slider; }
    QString spokenValue() const override;
    std::optional<Range> spokenRange() const override;
    void setSpokenValue(double measure) override;

    QSize sizeHint() const override { return {400, 64}; }
    QSize minimumSizeHint() const override { return {80, 40}; }

signals:
    void seek(qint64 ticks); // by a click or drag; by the arrow keys (a measure back or forth) and Home

public slots:
    void setMuted(bool muted);
    void onSettingChanged(Settings::Setting setting);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void readSettings();
    struct Drawing;
    void discardPicture();
    void ensurePicture();
    void take(const Drawing &drawing);
    void paintPicture(QPainter &painter, const QRect &dirty) const;
    void paintPressed(QPainter &painter, const QRect &dirty);
    void paintLine(QPainter &painter, const QRect &dirty) const;
    void updateNote(int eventIndex);
    int lineQuarters() const;
    double lineWidth() const;
    QRect lineRect() const;
    QRect noteRect(int eventIndex) const;
    QRect logicalRect(const QRectF &pixels) const;

    Settings &settings_;
    Track track_;
    std::shared_ptr<const Track> shadow_;
    TimeSpan span_;
    Ticks position_ = 0;
    QSet<int> pressed_;
    bool isMuted_ = false;

    QColor noteColour_;
    bool drawsMeasureLines_ = false;
    bool drawsOctaveLines_ = false;

    QImage picture_; // null until it is needed
    TimeSpan pictured_;
    std::unique_ptr<NoteLayout> layout_; // of the picture, when that is what is to be shown
    bool isAskedFor_ = false;            // what is to be shown
    Task drawing_;
    int pictureCount_ = 0;
};
