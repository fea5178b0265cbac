#include "ui/song/VUMeter.h"

#include <QEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int decayIntervalMs = 20;
constexpr int margin = 2;         // around the bars
constexpr int clipLight = 5;      // its length
constexpr int verticalScale = 20; // pixels beside the bars for the labels
constexpr int horizontalScale = 12;

constexpr int peakDarkness = 200; // as QColor::darker() takes it
constexpr int rmsDarkness = 150;

const QColor background(0x14, 0x16, 0x18);
const QColor unlit(0x24, 0x27, 0x2A);
const QColor quiet(0x38, 0xE0, 0x58);
const QColor loud(0xFF, 0x40, 0x30);
const QColor holdColour(0xF4, 0xF6, 0xF8);
const QColor clipColour(0xFF, 0x18, 0x18);
const QColor labelColour(0xB8, 0xBE, 0xC6);

QFont tahoma()
{
    return QFont(QStringLiteral("Tahoma"), 7);
}

// The larger font wherever a scale of four labels finds room for it.
QFont scaleFont(int length)
{
    return length >= 48 ? tahoma() : QFont(QStringLiteral("Monospace"), 4);
}

} // namespace

VUMeter::VUMeter(Qt::Orientation orientation, QWidget *parent)
    : QWidget(parent), orientation_(orientation), channels_(2)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setSizePolicy(isVertical() ? QSizePolicy::Fixed : QSizePolicy::Preferred,
                  isVertical() ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    clock_.start();
}

void VUMeter::setChannelCount(int count)
{
    channels_ = QVector<MeterChannel>(std::max(count, 0));
    face_ = {};
    update();
}

void VUMeter::setLevels(int channel, float rms, float peak)
{
    if (channel < 0 || channel >= channelCount())
        return;
    const auto now = clock_.elapsed();
    channels_[channel].receive(rms, peak, now);
    if (!timer_.isActive() && !channels_[channel].isSilent()) {
        lastDecay_ = now;
        timer_.start(decayIntervalMs, Qt::CoarseTimer, this);
    }
    update(barsRect());
}

void VUMeter::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != timer_.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    const auto now = clock_.elapsed();
    bool changed = false;
    for (auto &channel : channels_)
        changed |= channel.decay(now - lastDecay_, now);
    lastDecay_ = now;
    if (std::ranges::all_of(channels_, &MeterChannel::isSilent))
        timer_.stop();
    if (changed)
        update(barsRect());
}

bool VUMeter::hasClipped() const
{
    return std::ranges::any_of(channels_, &MeterChannel::hasClipped);
}

void VUMeter::forgetClips()
{
    if (!hasClipped())
        return;
    for (auto &channel : channels_)
        channel.forgetClip();
    update(barsRect());
}

void VUMeter::mousePressEvent(QMouseEvent *event)
{
    forgetClips();
    event->ignore(); // it is a click on what the meter is in, too
}

QString VUMeter::hoverText() const
{
    if (!mouse_)
        return {};
    return tr("%L1 dB").arg(MeterScale::decibelsAt(positionAt(*mouse_)), 0, 'f', 1);
}

double VUMeter::peakDecibels() const
{
    float loudest = 0;
    for (const auto &channel : channels_)
        loudest = std::max(loudest, channel.shownPeak());
    return MeterScale::decibels(double(loudest));
}

QString VUMeter::spokenValue() const
{
    const auto level = peakDecibels() < MeterScale::lowest ? tr("silent") : tr("%L1 dB").arg(peakDecibels(), 0, 'f', 1);
    return hasClipped() ? tr("%1, it was too loud", "a level").arg(level) : level;
}

std::optional<SpokenWidget::Range> VUMeter::spokenRange() const
{
    return Range{std::max(peakDecibels(), MeterScale::lowest), MeterScale::lowest, MeterScale::highest, 0};
}

void VUMeter::mouseMoveEvent(QMouseEvent *event)
{
    mouse_ = event->pos();
    update();
}

void VUMeter::leaveEvent(QEvent *event)
{
    mouse_.reset();
    update();
    QWidget::leaveEvent(event);
}

void VUMeter::resizeEvent(QResizeEvent *event)
{
    face_ = {};
    QWidget::resizeEvent(event);
}

QSize VUMeter::sizeHint() const
{
    return isVertical() ? QSize(44, 64) : QSize(260, 30);
}

QSize VUMeter::minimumSizeHint() const
{
    return isVertical() ? QSize(44, 40) : QSize(120, 26);
}

QRect VUMeter::barsRect() const
{
    return isVertical() ? rect().adjusted(margin, margin, -margin - verticalScale, -margin)
                        : rect().adjusted(margin, margin, -margin, -margin - horizontalScale);
}

QRect VUMeter::barRect(int channel) const
{
    const auto bars = barsRect();
    const int across = isVertical() ? bars.width() : bars.height();
    const int from = channel * (across + 1) / channelCount();
    const int to = (channel + 1) * (across + 1) / channelCount() - 1; // one pixel between two bars
    return isVertical() ? QRect(bars.left() + from, bars.top(), to - from, bars.height())
                        : QRect(bars.left(), bars.top() + from, bars.width(), to - from);
}

QRect VUMeter::partOfBar(int channel, double from, double to) const
{
    const auto bar = barRect(channel);
    if (isVertical()) {
        const int top = bar.height() - int(std::lround(to * bar.height()));
        const int bottom = bar.height() - int(std::lround(from * bar.height()));
        return {bar.left(), bar.top() + top, bar.width(), bottom - top};
    }
    const int left = int(std::lround(from * bar.width()));
    return {bar.left() + left, bar.top(), int(std::lround(to * bar.width())) - left, bar.height()};
}

double VUMeter::positionAt(QPoint point) const
{
    const auto bars = barsRect();
    const auto position = isVertical() ? double(bars.top() + bars.height() - point.y()) / std::max(bars.height(), 1)
                                       : double(point.x() - bars.left()) / std::max(bars.width(), 1);
    return std::clamp(position, 0.0, 1.0);
}

void VUMeter::ensurePictures()
{
    if (!face_.isNull() && face_.devicePixelRatio() == devicePixelRatioF())
        return;
    face_ = facePicture();
    peakLight_ = litPicture(peakDarkness);
    rmsLight_ = litPicture(rmsDarkness);
}

QPixmap VUMeter::facePicture() const
{
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(background);
    QPainter painter(&picture);
    for (int i = 0; i < channelCount(); ++i)
        painter.fillRect(barRect(i), unlit);
    paintScale(painter);
    return picture;
}

QPixmap VUMeter::litPicture(int darkness) const
{
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(background);
    const QRectF bars = barsRect();
    QLinearGradient light(bars.bottomLeft(), isVertical() ? bars.topLeft() : bars.bottomRight());
    const auto change = MeterScale::position(0.0);
    light.setColorAt(change - 0.05, quiet.darker(darkness));
    light.setColorAt(change + 0.05, loud.darker(darkness));
    QPainter(&picture).fillRect(bars, light);
    return picture;
}

void VUMeter::paintScale(QPainter &painter) const
{
    const auto bars = barsRect();
    const int length = isVertical() ? bars.height() : bars.width();
    painter.setFont(scaleFont(length));
    painter.setPen(labelColour);
    const auto metrics = painter.fontMetrics();
    const int labelLength = isVertical() ? metrics.ascent() : metrics.horizontalAdvance(QStringLiteral("-36")) + 4;
    const double pixelsPerDecibel = length / (MeterScale::highest - MeterScale::lowest);
    const int step = pixelsPerDecibel * 6 >= labelLength ? 6 : 12;
    for (int level = 0; level > int(MeterScale::lowest); level -= step) {
        const auto at = int(std::lround(MeterScale::position(level) * length));
        const auto text = QString::number(level);
        const auto ink = metrics.tightBoundingRect(text);
        if (isVertical()) {
            const int y = bars.top() + bars.height() - at;
            painter.drawText(width() - margin - ink.width() - ink.left(), y + ink.height() / 2, text);
        } else {
            const int x = bars.left() + at;
            painter.drawLine(x, bars.bottom() + 2, x, bars.bottom() + 3);
            painter.drawText(x - ink.center().x(), bars.bottom() + 4 + ink.height(), text);
        }
    }
}

void VUMeter::paintEvent(QPaintEvent *)
{
    ensurePictures();
    QPainter painter(this);
    painter.drawPixmap(0, 0, face_);
    for (int i = 0; i < channelCount(); ++i)
        paintChannel(painter, i);
    if (mouse_)
        paintHover(painter);
}

void VUMeter::paintChannel(QPainter &painter, int channel) const
{
    const auto positionOf = [](float level) { return MeterScale::position(MeterScale::decibels(double(level))); };
    const auto lightUp = [&](const QPixmap &light, float level) {
        const auto part = partOfBar(channel, 0.0, positionOf(level));
        painter.save();
        painter.setClipRect(part);
        painter.drawPixmap(0, 0, light);
        painter.restore();
    };
    const auto &levels = channels_[channel];
    lightUp(peakLight_, levels.shownPeak());
    lightUp(rmsLight_, levels.shownRms());
    if (levels.hasClipped())
        paintClip(painter, channel);
    const auto hold = positionOf(levels.hold());
    if (hold <= 0.0)
        return;
    auto mark = partOfBar(channel, 0.0, hold);
    if (isVertical())
        mark.setHeight(1);
    else
        mark.setLeft(mark.right());
    painter.fillRect(mark, holdColour);
}

void VUMeter::paintClip(QPainter &painter, int channel) const
{
    auto light = barRect(channel);
    if (isVertical())
        light.setHeight(clipLight);
    else
        light.setLeft(light.right() - clipLight + 1);
    painter.fillRect(light, clipColour);
}

void VUMeter::paintHover(QPainter &painter) const
{
    painter.setFont(tahoma());
    const auto text = hoverText();
    QRect box(QPoint(), painter.fontMetrics().size(Qt::TextSingleLine, text) + QSize(2, 0));
    box.moveCenter(isVertical() ? QPoint(width() / 2, mouse_->y()) : QPoint(mouse_->x(), height() / 2));
    box.moveLeft(std::clamp(box.left(), 0, std::max(0, width() - box.width())));
    box.moveTop(std::clamp(box.top(), 0, std::max(0, height() - box.height())));
    painter.fillRect(box, background);
    painter.setPen(holdColour);
    painter.drawText(box, Qt::AlignCenter, text);
}
