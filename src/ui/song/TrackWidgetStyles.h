#pragma once

#include <QString>

// The style sheets of a track's row.
namespace TrackWidgetStyles {

enum class Look { Normal, Selected };

// Light or dark as the application's palette is.
QString row(Look look);

QString visualizationFrame();
QString selectionBox();
QString muteBox();
QString draftMark();
QString findingsMark();

} // namespace TrackWidgetStyles
