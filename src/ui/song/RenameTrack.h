#pragma once

#include "core/Track.h"

// The track with the title as its only T field. Its ABC text stays as it is but for the title's line; where that is not
// exactly one, the text is made anew.
Track renamed(const Track &track, const QString &title);
