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
