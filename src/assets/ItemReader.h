#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// An instrument's item file.
struct InstrumentItem
{
    QString name;
    QString kind;     // the folder of its tuning
    QString iconFile; // relative to the item file's folder
};

// `fileName` is for the QString that is thrown when the bytes are no item, name no instrument, or name a kind of more
// than 255 characters.
InstrumentItem readItem(const QByteArray &bytes, const QString &fileName);

// The folder of a mod's assets, as its description gives it: "." unless that names one. Throws a QString when the
// bytes are no description or the path has more than 255 characters.
QString readModPath(const QByteArray &bytes);

// Decodes PNG, JPEG, BMP or GIF of at most 1024 x 1024 pixels; a null image for anything else.
QImage decodeIcon(const QByteArray &bytes);
