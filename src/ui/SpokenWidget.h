#pragma once

#include <QAccessible>
#include <QString>

#include <optional>

// What a widget that draws itself tells assistive programs beside its name. It derives from this, too, and is asked
// whenever somebody listens, so that nothing has to be kept up to date for nobody. On the interface thread.
class SpokenWidget
{
public:
    // The value as a number that assistive programs may set.
    struct Range
    {
        double value;
        double least;
        double most;
        double step;
    };

    virtual ~SpokenWidget() = default;
    virtual QAccessible::Role spokenRole() const = 0;
    virtual QString spokenValue() const { return {}; }
    virtual QString spokenDescription() const { return spokenValue(); } // unless the widget has been given one
    virtual std::optional<Range> spokenRange() const { return {}; }
    virtual void setSpokenValue(double) {}
};

// From here on assistive programs hear of such widgets, and of combo boxes by their names: the desktops that talk over
// D-Bus are told the chosen text instead of the name by Qt, and no value. Once, after the application was made.
void speakWidgets();
