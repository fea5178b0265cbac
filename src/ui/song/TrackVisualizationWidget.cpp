#include "ui/song/TrackVisualizationWidget.h"

#include "core/Measures.h"
#include "ui/song/NotePicture.h"

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

void TrackVisualizationWidget::setCommonLength(Ticks length)
{
    if (length == commonLength_)
        return;
    commonLength_ = length;
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

Ticks TrackVisualizationWidget::tickAt(int x) const
{
    if (width() <= 0 || commonLength_ <= 0)
        return 0;
    return scaled(commonLength_, quint64(std::clamp(x, 0, width())), quint64(width()));
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
    const auto draw = [=, track = track_, length = commonLength_,
                       style = NotePictureStyle{noteColour_, drawsMeasureLines_, drawsOctaveLines_}] {
        return Drawing::of(track, NoteLayout(track, length, pixels, ratio), style, ratio);
    };
    if (track_.events().size() <= mostEventsAtOnce)
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
    if (isAskedFor_)
        layout_ = std::make_unique<NoteLayout>(drawing.layout);
    ++pictureCount_;
}

double TrackVisualizationWidget::lineWidth() const
{
    return std::max(1.0, devicePixelRatioF());
}

// Where the line stands, in quarters of a device pixel: fine enough to move smoothly, and still only when needed.
int TrackVisualizationWidget::lineQuarters() const
{
    if (commonLength_ <= 0)
        return 0;
    const double share = std::clamp(double(position_) / double(commonLength_), 0.0, 1.0);
    const double last = width() * devicePixelRatioF() - lineWidth();
    return int(std::lround(std::max(0.0, std::min(share * width() * devicePixelRatioF(), last)) * 4));
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
        const QRectF pixels = layout_->noteRect(track_.events()[eventIndex]);
        const QRectF note(pixels.topLeft() / ratio, pixels.size() / ratio);
        if (note.intersects(dirty))
            painter.fillRect(note, sounding);
    }
}

void TrackVisualizationWidget::paintEvent(QPaintEvent *event)
{
    ensurePicture();
    const auto &dirty = event->rect();
    QPainter painter(this);
    if (layout_)
        painter.drawImage(0, 0, picture_);
    else if (!picture_.isNull())
        painter.drawImage(rect(), picture_);
    else
        painter.fillRect(dirty, Qt::black);
    if (layout_)
        paintPressed(painter, dirty);
    if (isMuted_)
        painter.fillRect(dirty, mutedVeil);

    const auto ratio = devicePixelRatioF();
    const QRectF line(lineQuarters() / 4.0 / ratio, 0, lineWidth() / ratio, height());
    if (line.intersects(dirty)) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(line, lineColour);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight).lighter(130));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
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

void TrackVisualizationWidget::keyPressEvent(QKeyEvent *event)
{
    const Measures measures(track_);
    const auto seekTo = [this](Ticks ticks) {
        emit seek(std::clamp(ticks, Ticks(0), std::max(commonLength_, Ticks(0))));
    };
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

void TrackVisualizationWidget::focusInEvent(QFocusEvent *)
{
    update();
}

void TrackVisualizationWidget::focusOutEvent(QFocusEvent *)
{
    update();
}
