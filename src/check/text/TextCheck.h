#pragma once

#include "check/findings/CheckOptions.h"
#include "check/findings/Finding.h"
#include "check/text/MusicEnd.h"
#include "check/text/NoteFixes.h"
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
    NoteFixes noteFixes = {};  // of notes out of range, and of those that move
    QVector<Finding> findings; // in the order of the text
};

// moves: what is to be done with notes that the instrument cannot play. Throws nothing but Interrupted, soon after a
// stop. [any]
TextCheck checkText(const QString &text, const CheckOptions &options = {}, const OctaveMoves &moves = {},
                    const std::stop_token &stop = {});
