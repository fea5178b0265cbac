#pragma once

#include <QHash>
#include <QString>

// Players who start by hand: by how much each of them is late or early, beside the song's own start offsets.
struct Rehearsal
{
    static constexpr int mostSpread = 2000; // milliseconds

    bool isOn = false;
    bool isDiced = true;              // with each start anew; else they stay
    int spread = 40;                  // milliseconds that dice are thrown within, sooner and later
    QHash<QString, int> offsets = {}; // milliseconds, by the tracks' ids; none is 0

    int offset(const QString &trackId) const { return isOn ? offsets.value(trackId) : 0; }
    // Anything from -spread to spread, each as likely.
    int dice() const;
};
