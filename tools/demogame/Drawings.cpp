#include "Drawings.h"

#include <QPainterPath>

#include <cmath>

namespace {

const QColor outline(52, 34, 26);
const QColor wood(190, 112, 52);
const QColor paleWood(226, 178, 108);
const QColor darkWood(104, 60, 38);
const QColor brass(232, 182, 60);
const QColor silver(200, 208, 218);
const QColor ivory(246, 238, 214);
const QColor cane(206, 186, 96);
const QColor red(188, 50, 52);
const QColor string(250, 240, 210);

QPen pen(const QColor &color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// A body lit from the left.
void fill(QPainter &painter, const QPainterPath &shape, const QColor &color)
{
    const auto bounds = shape.boundingRect();
    QLinearGradient light(bounds.topLeft(), bounds.topRight());
    light.setColorAt(0, color.lighter(112));
    light.setColorAt(0.3, color.lighter(132));
    light.setColorAt(1, color.darker(135));
    painter.setPen(pen(outline, 1));
    painter.setBrush(light);
    painter.drawPath(shape);
}

void box(QPainter &painter, const QRectF &bounds, const QColor &color, double corner = 0.8)
{
    QPainterPath shape;
    shape.addRoundedRect(bounds, corner, corner);
    fill(painter, shape, color);
}

void ball(QPainter &painter, const QPointF &centre, double radius, const QColor &color)
{
    QPainterPath shape;
    shape.addEllipse(centre, radius, radius);
    fill(painter, shape, color);
}

void hole(QPainter &painter, const QPointF &centre, double radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(outline);
    painter.drawEllipse(centre, radius, radius);
}

void line(QPainter &painter, const QPointF &from, const QPointF &to, const QColor &color, double width)
{
    painter.setPen(pen(color, width));
    painter.drawLine(from, to);
}

void turn(QPainter &painter, double degrees)
{
    painter.translate(drawingSize / 2, drawingSize / 2);
    painter.rotate(degrees);
    painter.translate(-drawingSize / 2, -drawingSize / 2);
}

void strings(QPainter &painter, double left, double right, double top, double bottom, int count)
{
    for (int i = 0; i < count; ++i) {
        const auto x = left + (right - left) * i / (count - 1);
        line(painter, {x, top}, {x, bottom}, string, 0.4);
    }
}

// The family of the fiddle, upright: two bouts and a waist, drawn on its left side and mirrored.
QPainterPath waisted()
{
    QPainterPath left(QPointF(16, 11));
    left.cubicTo(10.5, 10.5, 10, 16, 12.4, 18.2);
    left.cubicTo(12.2, 19.6, 8.6, 20, 8.8, 24.5);
    left.cubicTo(9, 29, 12.5, 30, 16, 29.6);
    const auto right = QTransform(-1, 0, 0, 1, 32, 0).map(left);
    left.connectPath(right.toReversed());
    left.closeSubpath();
    return left;
}

void drawViol(QPainter &painter, const QColor &color)
{
    box(painter, {14.9, 3, 2.2, 10}, darkWood);
    ball(painter, {16, 2.8}, 1.7, darkWood);
    fill(painter, waisted(), color);
    line(painter, {12.8, 20.5}, {12.3, 24}, outline, 0.9);
    line(painter, {19.2, 20.5}, {19.7, 24}, outline, 0.9);
    box(painter, {14.8, 24.5, 2.4, 4}, outline, 0.6);
    strings(painter, 15.3, 16.7, 4, 25, 2);
    line(painter, {13.9, 22.6}, {18.1, 22.6}, ivory, 0.9);
}

} // namespace

void drawAccordion(QPainter &painter)
{
    turn(painter, -14);
    for (int fold = 0; fold < 5; ++fold)
        box(painter, {10.5 + 2.2 * fold, 8.5 + (fold % 2), 2.2, 15.0 - 2 * (fold % 2)}, fold % 2 ? darkWood : ivory,
            0.4);
    box(painter, {3, 7, 7.5, 18}, red);
    box(painter, {21.5, 7, 7.5, 18}, red);
    for (int key = 0; key < 6; ++key)
        box(painter, {3.6, 8.5 + 2.6 * key, 4, 2.2}, ivory, 0.3);
    for (int button = 0; button < 8; ++button)
        hole(painter, {24 + 2.6 * (button % 2), 10.5 + 3.5 * (button / 2)}, 0.8);
}

void drawBass(QPainter &painter)
{
    painter.translate(-1.2, -0.3);
    painter.scale(1.08, 1);
    line(painter, {16, 29}, {16, 31.5}, outline, 1);
    drawViol(painter, darkWood.lighter(135));
    line(painter, {13, 3.2}, {19, 3.2}, outline, 1);
    line(painter, {13.4, 5}, {18.6, 5}, outline, 1);
}

void drawBells(QPainter &painter)
{
    const auto bell = [&painter](double x, double y, double size) {
        painter.save();
        painter.translate(x, y);
        painter.scale(size, size);
        box(painter, {-1.2, -14, 2.4, 6}, darkWood);
        ball(painter, {0, 4.8}, 1.7, brass.darker(130));
        QPainterPath shape(QPointF(0, -9));
        shape.cubicTo(5, -9, 3.6, 0, 7, 3);
        shape.quadTo(0, 5.2, -7, 3);
        shape.cubicTo(-3.6, 0, -5, -9, 0, -9);
        fill(painter, shape, brass);
        painter.restore();
    };
    bell(21.5, 14.5, 0.95);
    bell(11, 22.5, 1.15);
}

void drawChoir(QPainter &painter)
{
    const auto singer = [&painter](double x, double y, const QColor &robe, const QColor &skin) {
        QPainterPath shape(QPointF(x - 6, y + 17));
        shape.cubicTo(x - 6, y + 4, x + 6, y + 4, x + 6, y + 17);
        shape.closeSubpath();
        fill(painter, shape, robe);
        ball(painter, {x, y + 2}, 4.3, skin);
        painter.setPen(Qt::NoPen);
        painter.setBrush(outline);
        painter.drawEllipse(QPointF(x, y + 4), 1.1, 1.5);
        hole(painter, {x - 1.6, y + 1}, 0.6);
        hole(painter, {x + 1.6, y + 1}, 0.6);
    };
    singer(8, 7, {84, 96, 168}, {238, 196, 160});
    singer(24, 7, {70, 130, 96}, {150, 100, 70});
    singer(16, 13, red, {222, 172, 130});
}

void drawDrums(QPainter &painter)
{
    QPainterPath shell;
    shell.moveTo(4, 15);
    shell.lineTo(5.5, 27);
    shell.quadTo(16, 33, 26.5, 27);
    shell.lineTo(28, 15);
    fill(painter, shell, red);
    for (int i = 0; i < 4; ++i) {
        const auto x = 7.5 + 4.6 * i;
        line(painter, {x, 19 + (i == 0 ? 0.0 : 1.0)}, {x + 1.6, 28.5}, brass, 0.8);
        line(painter, {x + 1.6, 28.5}, {x + 4, 19.5}, brass, 0.8);
    }
    QPainterPath skin;
    skin.addEllipse(QPointF(16, 15), 12, 4.6);
    fill(painter, skin, ivory);
    line(painter, {4, 3}, {17, 14}, outline, 2.4);
    line(painter, {28, 3}, {19, 15}, outline, 2.4);
    line(painter, {4, 3}, {17, 14}, paleWood, 1.2);
    line(painter, {28, 3}, {19, 15}, paleWood, 1.2);
}

void drawFiddle(QPainter &painter)
{
    painter.save();
    turn(painter, 38);
    painter.translate(-1, 0);
    drawViol(painter, wood);
    painter.restore();
    line(painter, {3.5, 6}, {28.5, 29}, outline, 2);
    line(painter, {3.5, 6}, {28.5, 29}, darkWood.lighter(150), 0.9);
    line(painter, {3, 8}, {26.5, 29.6}, ivory, 0.7);
}

void drawFlute(QPainter &painter)
{
    turn(painter, -38);
    box(painter, {0, 13.8, 32, 4.4}, paleWood, 2);
    for (const auto x : {8.5, 25.0})
        box(painter, {x, 13.4, 1.8, 5.2}, ivory, 0.5);
    hole(painter, {5, 15.6}, 1.1);
    for (int i = 0; i < 6; ++i)
        hole(painter, {12.2 + 2.1 * i, 15.6}, 0.75);
}

void drawHarp(QPainter &painter)
{
    for (int i = 0; i < 7; ++i) {
        const auto x = 10.5 + 2.2 * i;
        line(painter, {x, 6.5 + 0.02 * x}, {x, 28 - 0.98 * (x - 8)}, brass.lighter(120), 0.7);
    }
    QPainterPath neck(QPointF(7, 5));
    neck.cubicTo(12, 1, 16, 11, 27, 6);
    painter.setBrush(Qt::NoBrush);
    for (const auto &[color, width] : {std::pair(outline, 4.2), std::pair(brass, 2.4)}) {
        painter.setPen(pen(color, width));
        painter.drawPath(neck);
        painter.drawLine(QPointF(7, 5), QPointF(7, 28));
        painter.drawLine(QPointF(27, 7.5), QPointF(8, 29));
    }
    ball(painter, {7, 4.6}, 2.3, brass);
}

void drawLute(QPainter &painter)
{
    turn(painter, 40);
    box(painter, {12.2, -1.5, 7.6, 2.6}, darkWood);
    box(painter, {14.6, 0.5, 2.8, 13}, darkWood);
    QPainterPath belly(QPointF(16, 10.5));
    belly.cubicTo(22, 14, 26.5, 19, 24.5, 25.5);
    belly.cubicTo(22.5, 32, 9.5, 32, 7.5, 25.5);
    belly.cubicTo(5.5, 19, 10, 14, 16, 10.5);
    fill(painter, belly, paleWood);
    hole(painter, {16, 19.5}, 2.7);
    painter.setPen(pen(wood, 0.7));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(16, 19.5), 3.6, 3.6);
    strings(painter, 15, 17, 1, 26, 3);
    line(painter, {12.6, 26}, {19.4, 26}, outline, 1.5);
}

void drawMarimba(QPainter &painter)
{
    line(painter, {2.5, 14}, {29, 17.5}, outline, 1.6);
    line(painter, {2.5, 26.5}, {29, 23}, outline, 1.6);
    for (int i = 0; i < 7; ++i)
        box(painter, {2.5 + 3.9 * i, 10.5 + 0.75 * i, 3.3, 19.5 - 1.6 * i}, i % 2 ? wood : wood.darker(120));
    for (const auto &[from, to] :
         {std::pair(QPointF(29, 2), QPointF(18, 12)), std::pair(QPointF(21, 1), QPointF(9, 11))}) {
        line(painter, from, to, outline, 1.6);
        line(painter, from, to, paleWood, 0.8);
        ball(painter, to, 2.4, {70, 110, 180});
    }
}

void drawMusicBox(QPainter &painter)
{
    QPainterPath lid(QPointF(5, 14));
    lid.lineTo(8, 3.5);
    lid.lineTo(27, 3.5);
    lid.lineTo(25, 14);
    lid.closeSubpath();
    fill(painter, lid, darkWood);
    box(painter, {7.5, 11, 15.5, 6.5}, brass, 3);
    for (int pin = 0; pin < 10; ++pin)
        hole(painter, {9.5 + 2.6 * (pin % 5), 12.8 + 2.0 * (pin / 5)}, 0.5);
    box(painter, {3, 15, 24, 13}, wood);
    box(painter, {5.5, 18, 19, 7}, wood.darker(130));
    line(painter, {27, 21}, {30, 21}, outline, 1.4);
    line(painter, {30, 21}, {30, 25.5}, outline, 1.4);
    ball(painter, {30, 26.2}, 1.4, red);
}

void drawOboe(QPainter &painter)
{
    turn(painter, 42);
    line(painter, {16, -3}, {16, 2}, cane, 1.5);
    QPainterPath bore(QPointF(14.7, 1.5));
    bore.lineTo(17.3, 1.5);
    bore.lineTo(18.3, 27);
    bore.quadTo(18.8, 32, 20.5, 34);
    bore.lineTo(11.5, 34);
    bore.quadTo(13.2, 32, 13.7, 27);
    bore.closeSubpath();
    fill(painter, bore, {66, 56, 60});
    for (const auto y : {10.5, 20.0, 28.0})
        box(painter, {13.6, y, 4.8, 1.3}, silver, 0.4);
    for (int i = 0; i < 5; ++i)
        ball(painter, {16.6, 6.2 + 5.2 * i}, 1.3, silver);
    line(painter, {19.6, 12}, {19.6, 25}, silver, 1);
}

void drawOrgan(QPainter &painter)
{
    for (int i = 0; i < 7; ++i) {
        const auto height = 11.0 + 3.4 * std::abs(i - 3);
        const auto x = 3.6 + 3.6 * i;
        box(painter, {x, 24 - height, 3.2, height}, silver, 1.4);
        box(painter, {x + 0.8, 19.2, 1.6, 1.4}, outline, 0.3);
    }
    box(painter, {2, 23.5, 28, 7}, wood);
    for (int key = 0; key < 8; ++key)
        box(painter, {6.5 + 2.4 * key, 25, 2.2, 3.6}, ivory, 0.3);
}

void drawPanpipes(QPainter &painter)
{
    turn(painter, 8);
    painter.scale(0.94, 0.94);
    for (int i = 0; i < 7; ++i) {
        const auto x = 3.0 + 3.7 * i;
        box(painter, {x, 4, 3.5, 25 - 2.6 * i}, cane, 1.2);
        hole(painter, {x + 1.75, 5.2}, 1.1);
    }
    box(painter, {2.2, 9.5, 27, 3}, red, 0.6);
}
