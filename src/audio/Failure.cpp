#include "audio/Failure.h"

#include "base/ErrorText.h"
#include "base/Interrupted.h"

QString failureOf(const std::function<void()> &action)
{
    try {
        action();
        return {};
    } catch (const Interrupted &) {
        throw;
    } catch (...) {
        return currentErrorText();
    }
}
