#pragma once

#include <QString>

// The text that an action throws, or "nothing".
template<typename Action>
QString thrownBy(Action action)
{
    try {
        action();
    } catch (const QString &message) {
        return message;
    }
    return QStringLiteral("nothing");
}

// Whether it throws such a thing.
template<typename Exception, typename Action>
bool throws(Action action)
{
    try {
        action();
    } catch (const Exception &) {
        return true;
    }
    return false;
}
