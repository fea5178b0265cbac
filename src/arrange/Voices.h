#pragma once

#include "arrange/Seats.h"

// Gives each note a seat, from the first to the last, at the costs that Arrangement.h names, or the reason why it has
// none; moves it into the seat's range and ends it where its voice is needed.
void giveVoices(ArrangeNotes &notes, int parts, const std::vector<Seat> &seats, const Lines &lines,
                const ArrangeOptions &options, const std::stop_token &stop);
