#include "Icons.h"

#include "Drawings.h"

#include <QBuffer>
#include <QImage>
#include <QMap>

QByteArray iconPng(const QString &kind)
{
    static const QMap<QString, void (*)(QPainter &)> drawings{
        {QStringLiteral("accordion"), drawAccordion}, {QStringLiteral("bass"), drawBass},
        {QStringLiteral("bells"), drawBells},         {QStringLiteral("choir"), drawChoir},
        {QStringLiteral("drums"), drawDrums},         {QStringLiteral("fiddle"), drawFiddle},
        {QStringLiteral("flute"), drawFlute},         {QStringLiteral("harp"), drawHarp},
        {QStringLiteral("lute"), drawLute},           {QStringLiteral("marimba"), drawMarimba},
        {QStringLiteral("musicbox"), drawMusicBox},   {QStringLiteral("oboe"), drawOboe},
        {QStringLiteral("organ"), drawOrgan},         {QStringLiteral("panpipes"), drawPanpipes},
    };
    const auto draw = drawings.value(kind);
    if (draw == nullptr)
        throw QStringLiteral("There is no picture of the kind %1.").arg(kind);
    QImage image(drawingSize, drawingSize, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    painter.end();
    QBuffer buffer;
    if (!image.save(&buffer, "PNG"))
        throw QStringLiteral("Could not write the picture of %1.").arg(kind);
    return buffer.data();
}
