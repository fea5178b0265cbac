#pragma once

#include "assets/InstrumentSet.h"

// "Lute 40-85, Harp 36-96": instruments with the notes that they can play.
inline InstrumentSet catalogue(const QString &text)
{
    InstrumentSet set;
    for (const auto &entry : text.split(QStringLiteral(", "))) {
        Instrument instrument;
        instrument.name = entry.section(u' ', 0, -2);
        const auto range = entry.section(u' ', -1).split(u'-');
        for (auto pitch = range[0].toUInt(); pitch <= range[1].toUInt(); ++pitch)
            instrument.tuning.notes[pitch].rate = 1;
        set.add(instrument);
    }
    return set;
}
