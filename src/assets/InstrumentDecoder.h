#pragma once

#include "assets/InstrumentSet.h"
#include "assets/ItemReader.h"
#include "assets/TuningReader.h"
#include "base/JobPool.h"

#include <optional>
#include <vector>

// The files of one instrument as a package or directory has them.
struct InstrumentFiles
{
    InstrumentItem item;
    SampleBase sampleBase;
    std::optional<QByteArray> tuning;
    std::optional<QByteArray> icon;
    QString iconPath;
};

// The files of all instruments in one place.
struct PlaceFiles
{
    QString path;
    qint64 size = 0; // bytes of the package, which bound what decoding it may cost
    std::vector<InstrumentFiles> instruments;
};

// Makes instruments of their files on a thread of its own, while the next files are being read. What cannot be decoded
// is a logged warning.
class InstrumentDecoder
{
public:
    // Waits while the files of eight places are still to be decoded, so that they cannot pile up.
    void take(PlaceFiles files);

    // Takes no more, waits for the end and gives everything that was found; of several instruments with one name the
    // first that could be decoded.
    InstrumentSet finish();

private:
    void decode(const PlaceFiles &files);
    void decode(const InstrumentFiles &files);
    QImage icon(const InstrumentFiles &files);

    InstrumentSet found_;   // belongs to the running thread
    qint64 iconMemory_ = 0; // bytes that the icons of this place may still take; likewise

    static constexpr std::size_t mostWaiting = 8;
    JobPool thread_{1, mostWaiting}; // first at the end
};
