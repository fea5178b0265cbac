#include "ui/song/TrackVisualizationWidget.h"

#include "core/Measures.h"
#include "ui/song/NotePicture.h"
#include "ui/timeline/SpokenPosition.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const QColor lineColour(0xFF, 0xFF, 0xFF, 0xE6);
const QColor mutedVeil(0x00, 0x00, 0x00, 0x88);
constexpr int mostEventsAtOnce = 3000; // a window of such rows is painted in a few milliseconds

} // namespace

struct TrackVisualizationWidget::Drawing
{
    NoteLayout layout;
    QImage picture;

    static Drawing of(const Track &track, const NoteLayout &layout, const NotePictureStyle &style, double ratio)
    {
        Drawing drawing{layout, drawNotePicture(track, layout, style)};
        drawing.picture.setDevicePixelRatio(ratio);
        return drawing;
    }
};

TrackVisualizationWidget::TrackVisualizationWidget(Settings &settings, QWidget *parent)
    : QWidget(parent), settings_(settings)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    readSettings();
    connect(&settings, &Settings::settingChanged, this, &TrackVisualizationWidget::onSettingChanged);
}

TrackVisualizationWidget::~TrackVisualizationWidget() = default;

void TrackVisualizationWidget::setTrack(const Track &track)
{
    track_ = track;
    pressed_.clear();
    drawing_.cancel();
    discardPicture();
}

void TrackVisualizationWidget::setShadow(const std::shared_ptr<const Track> &shadow)
{
    if (shadow == shadow_)
        return;
    shadow_ = shadow;
    drawing_.cancel();
    discardPicture();
}

void TrackVisualizationWidget::setSpan(const TimeSpan &span)
{
    if (span == span_)
        return;
    span_ = span;
    discardPicture();
}

void TrackVisualizationWidget::setPosition(Ticks ticks)
{
    const auto before = lineQuarters();
    const auto rectBefore = lineRect();
    position_ = ticks;
    if (lineQuarters() != before)
        update(rectBefore | lineRect());
}

void TrackVisualizationWidget::notePressed(int eventIndex)
{
    if (eventIndex < 0 || eventIndex >= track_.events().size() || !track_.events()[eventIndex].isNote() ||
        pressed_.contains(eventIndex))
        return;
    pressed_.insert(eventIndex);
    updateNote(eventIndex);
}

void TrackVisualizationWidget::noteReleased(int eventIndex)
{
    if (pressed_.remove(eventIndex))
        updateNote(eventIndex);
}

void TrackVisualizationWidget::releaseAllNotes()
{
    for (const auto pressed = std::exchange(pressed_, {}); const int eventIndex : pressed)
        updateNote(eventIndex);
}

void TrackVisualizationWidget::setMuted(bool muted)
{
    if (muted == isMuted_)
        return;
    isMuted_ = muted;
    update();
}

void TrackVisualizationWidget::onSettingChanged(Settings::Setting setting)
{
    if (setting != Settings::NoteColor && setting != Settings::DrawMeasureLines && setting != Settings::DrawOctaveLines)
        return;
    readSettings();
    discardPicture();
}

void TrackVisualizationWidget::readSettings()
{
    noteColour_ = settings_.value(Settings::NoteColor).value<QColor>();
    drawsMeasureLines_ = settings_.value(Settings::DrawMeasureLines).toBool();
    drawsOctaveLines_ = settings_.value(Settings::DrawOctaveLines).toBool();
}

void TrackVisualizationWidget::discardPicture()
{
    isAskedFor_ = false;
    layout_.reset();
    update();
}

// One picture at a time; when something changed meanwhile, the next follows it.
void TrackVisualizationWidget::ensurePicture()
{
    const auto ratio = devicePixelRatioF();
    const auto pixels = (QSizeF(size()) * ratio).toSize();
    const bool fits = !layout_ || layout_->size() == pixels;
    if (drawing_.isRunning() || (isAskedFor_ && fits))
        return;
    isAskedFor_ = true;
    layout_.reset();
    const auto draw = [=, track = track_, span = span_,
                       style = NotePictureStyle{noteColour_, drawsMeasureLines_, drawsOctaveLines_, shadow_}] {
        return Drawing::of(track, NoteLayout(track, span, pixels, ratio), style, ratio);
    };
    if (track_.events().size() + (shadow_ ? shadow_->events().size() : 0) <= mostEventsAtOnce)
        return take(draw());
    const auto deliver = [this](const Drawing &drawing) {
        take(drawing);
        update();
    };
    drawing_.start([draw](const TaskControl &) { return draw(); }, deliver,
                   [](const QString &error) { qWarning("%s", qUtf8Printable(error)); });
}

void TrackVisualizationWidget::take(const Drawing &drawing)
{
    picture_ = drawing.picture;
    pictured_ = drawing.layout.span();
    if (isAskedFor_)
        layout_ = std::make_unique<NoteLayout>(drawing.layout);
    ++pictureCount_;
}

double TrackVisualizationWidget::lineWidth() const
{
    return std::max(1.0, devicePixelRatioF());
}

// Where the line stands, in quarters of a device pixel: fine enough to move smoothly, and still only when needed. At
// the end of the span it stands within the picture, before and behind that out of sight.
int TrackVisualizationWidget::lineQuarters() const
{
    const double width = this->width() * devicePixelRatioF();
    if (position_ < span_.begin)
        return int(std::lround(-4 * lineWidth()));
    if (position_ > span_.end() && span_.begin > 0)
        return int(std::lround(4 * width));
    return int(std::lround(std::max(0.0, std::min(span_.x(position_, width), width - lineWidth())) * 4));
}

QRect TrackVisualizationWidget::lineRect() const
{
    return logicalRect(QRectF(lineQuarters() / 4.0, 0, lineWidth(), height() * devicePixelRatioF()));
}

QRect TrackVisualizationWidget::noteRect(int eventIndex) const
{
    return logicalRect(layout_->noteRect(track_.events()[eventIndex]));
}

// Without a layout all of it will be painted.
void TrackVisualizationWidget::updateNote(int eventIndex)
{
    if (layout_)
        update(noteRect(eventIndex));
}

QRect TrackVisualizationWidget::logicalRect(const QRectF &pixels) const
{
    const auto ratio = devicePixelRatioF();
    return QRectF(pixels.topLeft() / ratio, pixels.size() / ratio).toAlignedRect();
}

void TrackVisualizationWidget::paintPressed(QPainter &painter, const QRect &dirty)
{
    const auto ratio = devicePixelRatioF();
    const auto sounding = soundingNoteColour(noteColour_);
    for (const int eventIndex : std::as_const(pressed_)) {
        if (!layout_->shows(track_.events()[eventIndex]))
            continue;
        const QRectF pixels = layout_->noteRect(track_.events()[eventIndex]);
        const QRectF note(pixels.topLeft() / ratio, pixels.size() / ratio);
        if (note.intersects(dirty))
            painter.fillRect(note, sounding);
    }
}

void TrackVisualizationWidget::paintPicture(QPainter &painter, const QRect &dirty) const
{
    constexpr double mostStretched = 100;
    if (layout_)
        return painter.drawImage(0, 0, picture_);
    painter.fillRect(dirty, Qt::black);
    const auto left = span_.x(pictured_.begin, width());
    const auto stretchedWidth = span_.x(pictured_.end(), width()) - left;
    if (!picture_.isNull() && stretchedWidth > 0 && stretchedWidth <= mostStretched * width())
        painter.drawImage(QRectF(left, 0, stretchedWidth, height()), picture_);
}

void TrackVisualizationWidget::paintLine(QPainter &painter, const QRect &dirty) const
{
    const auto ratio = devicePixelRatioF();
    const QRectF line(lineQuarters() / 4.0 / ratio, 0, lineWidth() / ratio, height());
    if (!line.intersects(dirty))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(line, lineColour);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TrackVisualizationWidget::paintEvent(QPaintEvent *event)
{
    ensurePicture();
    const auto &dirty = event->rect();
    QPainter painter(this);
    paintPicture(painter, dirty);
    if (layout_)
        paintPressed(painter, dirty);
    if (isMuted_)
        painter.fillRect(dirty, mutedVeil);
    paintLine(painter, dirty);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight).lighter(130), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void TrackVisualizationWidget::resizeEvent(QResizeEvent *event)
{
    discardPicture();
    QWidget::resizeEvent(event);
}

void TrackVisualizationWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit seek(tickAt(event->pos().x()));
    else
        event->ignore();
}

void TrackVisualizationWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        emit seek(tickAt(event->pos().x()));
}

void TrackVisualizationWidget::keyPressEvent(QKeyEvent *event)
{
    const Measures measures(track_);
    const auto seekTo = [this](Ticks ticks) { emit seek(std::max(ticks, Ticks(0))); };
    switch (event->key()) {
    case Qt::Key_Left:
        seekTo(position_ - measures.sectionAt(position_ - 1).measure);
        break;
    case Qt::Key_Right:
        seekTo(position_ + measures.sectionAt(position_).measure);
        break;
    case Qt::Key_Home:
        seekTo(0);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

QString TrackVisualizationWidget::spokenValue() const
{
    return SpokenPosition::text(Measures(track_), position_);
}

std::optional<SpokenWidget::Range> TrackVisualizationWidget::spokenRange() const
{
    return SpokenPosition::range(Measures(track_), position_, std::max(track_.length(), span_.end()));
}

void TrackVisualizationWidget::setSpokenValue(double measure)
{
    emit seek(SpokenPosition::tick(Measures(track_), measure));
}

void TrackVisualizationWidget::focusInEvent(QFocusEvent *)
{
    update();
}

void TrackVisualizationWidget::focusOutEvent(QFocusEvent *)
{
    update();
}
