#pragma once

#include "Synthesis.h"

#include <QByteArray>

enum class SampleFormat { Vorbis, Wav };

const char *fileEnding(SampleFormat format); // with its dot

// The bytes of a sound file: Ogg Vorbis, or 16-bit WAV. The same sound gives the same bytes. Throws a QString.
QByteArray sampleFile(const Channels &channels, int rate, SampleFormat format);
