#pragma once

// How the windows look: the Fusion style, whose own palette is Light.
enum class Theme { Light, Dark };

// Changes the style and palette of the whole application; open windows follow. Needs the application object.
void applyTheme(Theme theme);
