#pragma once

#include "assets/Instrument.h"

// The instruments of an installation, by name. A value: copies share their contents.
class InstrumentSet
{
public:
    // The first instrument under a name stays.
    void add(const Instrument &instrument);

    bool isEmpty() const { return instruments_.isEmpty(); }
    bool contains(const QString &name) const { return instruments_.contains(name); }

    // Ascending, by their UTF-16 code units.
    const QStringList &names() const { return names_; }

    // Both throw "Instrument '%1' not found." for a name that is not there.
    const Instrument &instrument(const QString &name) const;
    QImage icon(const QString &name) const { return instrument(name).icon; }

private:
    QMap<QString, Instrument> instruments_;
    QStringList names_; // the map's keys, so that a row of a list finds its name at once
};
