#pragma once

#include <QByteArray>
#include <QString>

// The picture of an instrument kind as a PNG file of 32 × 32 pixels. Throws a QString for a kind without one.
QByteArray iconPng(const QString &kind);
