// Where the keys are among the rows.
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <QApplication>

#include <algorithm>

TrackWidget *TrackRows::current() const
{
    const auto *const focus = QApplication::focusWidget();
    const auto has = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const TrackWidget *row) { return focus && row->isAncestorOf(focus); });
    return has != rows_.end() ? *has : row(tracks_.ids().value(0));
}

TrackWidget *TrackRows::goBy(int rows)
{
    auto *const from = current();
    if (!from)
        return nullptr;
    const auto ids = tracks_.ids();
    const auto stops = from->tabStops();
    const auto column = stops.indexOf(QApplication::focusWidget());
    const auto place = int(ids.indexOf(from->shown()->id)) + (column < 0 ? 0 : rows);
    auto *const to = row(ids.value(std::clamp(place, 0, int(ids.size()) - 1)));
    if (!to)
        return from;
    auto *const same = to->tabStops().value(column, to->tabStops().first());
    to->window()->setAttribute(Qt::WA_KeyboardFocusChange); // so that the ring is seen
    (same->isVisible() && same->isEnabled() ? same : to->tabStops().first())->setFocus(Qt::TabFocusReason);
    return to;
}
