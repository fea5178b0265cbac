#pragma once

// How the windows look. Light is the palette that the system gives the Fusion style.
enum class Theme { Light, Dark };

// Changes the palette of the whole application; open windows follow. Needs the application object.
void applyTheme(Theme theme);
