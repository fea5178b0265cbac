#pragma once

#include "ui/SpokenWidget.h"
#include "ui/song/MeterChannel.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPixmap>
#include <QVector>
#include <QWidget>

#include <optional>

// The levels of one or more channels as bars on a decibel scale from -48 to +6: a bright bar for the RMS level in front
// of a dark one for the peak, and a mark that holds the highest peak. A light at the end of a bar says that its channel
// was too loud, until a click puts it out. While the mouse is over it, it shows the level at the mouse. On the
// interface thread.
class VUMeter : public QWidget, public SpokenWidget
{
    Q_OBJECT

public:
    // A vertical meter grows upwards, a horizontal one to the right.
    explicit VUMeter(Qt::Orientation orientation, QWidget *parent = nullptr);

    int channelCount() const { return int(channels_.size()); }
    void setChannelCount(int count); // 2 at first
    const MeterChannel &channel(int index) const { return channels_[index]; }

    // Linear amplitudes. A channel that is not there is ignored.
    void setLevels(int channel, float rms, float peak);

    bool hasClipped() const;
    void forgetClips();

    // What the read-out shows; empty without a mouse.
    QString hoverText() const;

    QAccessible::Role spokenRole() const override { return QAccessible::ProgressBar; }
    QString spokenValue() const override; // of the loudest channel: "-12.0 dB"
    std::optional<Range> spokenRange() const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isVertical() const { return orientation_ == Qt::Vertical; }
    QRect barsRect() const;
    QRect barRect(int channel) const;
    QRect partOfBar(int channel, double from, double to) const;
    double positionAt(QPoint point) const;
    double peakDecibels() const;

    void ensurePictures();
    QPixmap facePicture() const;
    QPixmap litPicture(int darkness) const;
    void paintScale(QPainter &painter) const;
    void paintChannel(QPainter &painter, int channel) const;
    void paintClip(QPainter &painter, int channel) const;
    void paintHover(QPainter &painter) const;

    Qt::Orientation orientation_;
    QVector<MeterChannel> channels_;
    QBasicTimer timer_;
    QElapsedTimer clock_;
    qint64 lastDecay_ = 0; // on clock_
    std::optional<QPoint> mouse_;

    // The whole widget without light, and lit to the top as peak and RMS bars; null until they are needed.
    QPixmap face_;
    QPixmap peakLight_;
    QPixmap rmsLight_;
};
