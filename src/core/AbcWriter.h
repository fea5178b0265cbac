#pragma once

#include <QString>

class Track;

// The track as ABC text for the game: header, then notes without bar lines, a line break after each whole note of
// music, or where the first measure after it begins when the track has bar lines. An accidental once written holds to
// the end of the tune. Adds the missing X, L and K fields to the track's header and sets the text position of every
// note; changes nothing else. The events must be normalised.
QString writeAbc(Track &track);
