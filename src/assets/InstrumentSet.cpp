#include "assets/InstrumentSet.h"

#include <algorithm>

void InstrumentSet::add(const Instrument &instrument)
{
    if (contains(instrument.name))
        return;
    instruments_.insert(instrument.name, instrument);
    names_.insert(std::lower_bound(names_.begin(), names_.end(), instrument.name), instrument.name);
}

const Instrument &InstrumentSet::instrument(const QString &name) const
{
    const auto found = instruments_.constFind(name);
    if (found == instruments_.constEnd())
        throw QStringLiteral("Instrument '%1' not found.").arg(name);
    return *found;
}
