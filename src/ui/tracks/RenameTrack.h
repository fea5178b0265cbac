#pragma once

#include "core/Track.h"

// The track with the title as its only T field. Its ABC text stays as it is but for the title's line; where that is not
// exactly one, the text is made anew.
Track renamed(const Track &track, const QString &title);

// The track with the title in place of its first one, in the text too.
Track copyWithTitle(const Track &track, const QString &title);

// The title with the lowest number from 2 on that makes it none of the others: "Hymn (2)", and of that "Hymn (3)".
QString numberedTitle(const QString &title, const QStringList &others);
