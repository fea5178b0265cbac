#pragma once

#include <QStringList>

// The tunes of ../shared/corpus/abc, or where it is missing those of the examples.
QStringList realTunes();
