#pragma once

#include <QString>

#include <exception>

// What to tell the user about an exception: a QString as it was thrown, a shortage of memory and everything else in
// words. [any]
QString errorText(const std::exception_ptr &exception);

// Of the exception that is being handled.
inline QString currentErrorText()
{
    return errorText(std::current_exception());
}
