#pragma once

#include "check/text/TextCheck.h"

// What is wrong with the notes of a part, whatever plays them. [any]
QVector<Finding> checkNotes(const TextCheck &part, const CheckOptions &options = {});

// Where the text of a note stands in the part's text.
TextRange textOf(const TrackEvent &note, const TextCheck &part);
