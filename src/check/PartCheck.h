#pragma once

#include "assets/InstrumentSet.h"
#include "check/SongCheck.h"

// All that is wrong with one part by itself, and what the check of the song needs of it. Depends on nothing but the
// arguments, so that it can be kept until one of them changes.
struct PartCheck
{
    QVector<Finding> findings;
    PartFacts facts;
};

// Without instruments (none are known yet) only what needs none is checked. Throws nothing but Interrupted. [any]
PartCheck checkPart(const QString &text, const QString &instrument, const InstrumentSet &instruments,
                    const CheckOptions &options = {}, const std::stop_token &stop = {});
