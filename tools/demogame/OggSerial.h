#pragma once

#include <QByteArray>

// An Ogg file of one stream, under another serial number. Encoders draw that number by lot; with a fixed one the same
// sound gives the same bytes. The page layout and its checksum are those of RFC 3533. Throws a QString.
QByteArray withOggSerial(QByteArray ogg, quint32 serial);
