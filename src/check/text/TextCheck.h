#pragma once

#include "check/findings/CheckOptions.h"
#include "check/findings/Finding.h"
#include "check/text/MusicEnd.h"
#include "core/Track.h"

#include <optional>
#include <stop_token>

// A part's text as the game reads it, and what is wrong with the text alone: no instrument is needed for it, and no
// other part.
struct TextCheck
{
    QString text;
    Track track;        // of the text without what is refused
    QVector<int> lines; // where the lines of the text begin
    Ticks length = 0;   // with the rests at the end
    std::optional<MusicEnd> end = {};
    QVector<Finding> findings; // in the order of the text
};

// Throws nothing but Interrupted, soon after a stop. [any]
TextCheck checkText(const QString &text, const CheckOptions &options = {}, const std::stop_token &stop = {});
