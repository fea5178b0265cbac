#include "ui/roll/RollNoteBrush.h"

#include <cmath>

namespace {

constexpr qreal cornerRadius = 2.5;
constexpr qreal leastRoundedHeight = 6;

} // namespace

void RollNoteBrush::prepare(const RollColours &colours, qreal height, qreal devicePixelRatio)
{
    const std::array noteColours{colours.note, colours.faded, colours.selected, colours.sounding, colours.ghost};
    const bool isKept = height == height_ && devicePixelRatio == ratio_;
    height_ = height;
    ratio_ = devicePixelRatio;
    pixel_ = 1 / ratio_;
    line_ = std::max(1.0, std::round(ratio_)) / ratio_;
    end_ = std::ceil((cornerRadius + 1) * ratio_) / ratio_;
    for (size_t look = 0; look < looks_.size(); ++look) {
        auto &ends = looks_[look];
        if (isKept && ends.colours.fill == noteColours[look].fill)
            continue;
        ends.colours = noteColours[look];
        makeEnds(ends);
    }
}

void RollNoteBrush::makeEnds(Ends &ends) const
{
    const QSizeF size(2 * end_, height_);
    QPixmap whole((size * ratio_).toSize());
    if (whole.isNull())
        return;
    whole.fill(Qt::transparent);
    whole.setDevicePixelRatio(ratio_);
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer({0, 0}, size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ends.colours.edge);
    painter.drawRoundedRect(outer, cornerRadius, cornerRadius);
    painter.setBrush(ends.colours.fill);
    const auto inner = outer.adjusted(line_, line_, -line_, -line_);
    painter.drawRoundedRect(inner, cornerRadius - line_ / 2, cornerRadius - line_ / 2);
    painter.end();
    const QSize half(whole.width() / 2, whole.height());
    ends.left = whole.copy({{0, 0}, half});
    ends.right = whole.copy({{half.width(), 0}, half});
}

void RollNoteBrush::paint(const QRectF &rect, int pitch, Look look)
{
    if (rect.width() >= 2 * end_ + pixel_ && rect.height() >= leastRoundedHeight)
        paintRounded(rect, looks_[size_t(look)]);
    else
        paintFlat(rect, pitch, look);
}

void RollNoteBrush::paintRounded(const QRectF &rect, const Ends &ends)
{
    const auto right = rect.right() - pixel_;
    const QRectF middle(rect.left() + end_, rect.top(), right - rect.left() - 2 * end_, rect.height());
    painter_->drawPixmap(rect.topLeft(), ends.left);
    painter_->fillRect(middle, ends.colours.edge);
    painter_->fillRect(middle.adjusted(0, line_, 0, -line_), ends.colours.fill);
    painter_->drawPixmap(QPointF(right - end_, rect.top()), ends.right);
}

void RollNoteBrush::paintFlat(const QRectF &rect, int pitch, Look look)
{
    // Three pixels and more show where a note ends.
    const auto gap = rect.width() >= 3 * pixel_ ? pixel_ : 0;
    const QRectF visible(rect.left(), rect.top(), std::max(rect.width() - gap, pixel_), rect.height());
    auto &pending = pending_[size_t(pitch)];
    if (pending.look == look && !pending.rect.isEmpty() && visible.left() <= pending.rect.right()) {
        pending.rect.setRight(std::max(pending.rect.right(), visible.right()));
        return;
    }
    flush(pending);
    pending = {visible, look};
}

void RollNoteBrush::flush(Pending &pending)
{
    if (!pending.rect.isEmpty())
        painter_->fillRect(pending.rect, looks_[size_t(pending.look)].colours.fill);
    pending.rect = {};
}

void RollNoteBrush::end()
{
    for (auto &pending : pending_)
        flush(pending);
    painter_ = nullptr;
}
