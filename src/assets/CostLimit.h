#pragma once

#include <QtGlobal>

// What reading the instruments of one package may cost. A few bytes can name the same file a thousand times over, or
// lead every look-up through all blocks; what the game itself wrote comes nowhere near the limit. It counts from its
// making on and belongs to the thread that made it. Processor time is what counts, so that a slow disk is not held
// against a package.
class CostLimit
{
public:
    // Half a second and five milliseconds for each kB, and 64 times the package's size in memory. The size is in bytes.
    explicit CostLimit(qint64 packageSize);

    void addMemory(qint64 bytes) { memoryLeft_ -= double(bytes); }
    bool isReached() const;

private:
    double memoryLeft_; // bytes
    double end_;        // seconds of this thread's processor time
};
