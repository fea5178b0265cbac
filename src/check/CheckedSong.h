#pragma once

#include "check/PartCheck.h"

#include <memory>

// The parts of a song with all that is wrong with them. A value: copies share what was found.
class CheckedSong
{
public:
    struct Part
    {
        QString id; // its own in its song
        std::shared_ptr<const Track> track;
        QString instrument;
    };
    struct Result
    {
        Part part;
        std::shared_ptr<const PartCheck> alone;
        QVector<Finding> together; // what is wrong beside the other parts

        int count() const { return int(alone->findings.size() + together.size()); }
    };

    const QVector<Result> &parts() const { return parts_; } // in their order
    int findingCount() const;

    // These parts. What is here of one with the same track and instrument is kept, since nothing has changed; the
    // others are checked on all cores. The instruments must be those that this was checked with, or this be empty;
    // other options check everything anew. Throws Interrupted soon after a stop.
    CheckedSong updated(const QVector<Part> &parts, const InstrumentSet &instruments, const CheckOptions &options,
                        const std::stop_token &stop = {}) const;

private:
    std::shared_ptr<const PartCheck> kept(const Part &part) const;

    QVector<Result> parts_;
    CheckOptions options_;
};
