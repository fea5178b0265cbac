#pragma once

#include "core/TrackEvent.h"

#include <QFontMetrics>
#include <QString>
#include <QVector>

#include <functional>
#include <vector>

// The tempo and metre changes of a ruler, in words and in their places.

QString markText(const TrackEvent &mark); // of a tempo or a metre

struct MarkPlace
{
    double x = 0;
    QString text;
};

// What of the marks (by time, as of Measures) stands in a ruler whose left edge shows the first tick. Those that hold
// there stand there; where marks crowd, those that would cover another are left out.
QVector<MarkPlace> placeMarks(const std::vector<TrackEvent> &marks, Ticks first, double width,
                              const QFontMetrics &metrics, const std::function<double(Ticks)> &x);
