#include "audio/Failure.h"

#include "base/Interrupted.h"

#include <exception>

QString failureOf(const std::function<void()> &action)
{
    try {
        action();
        return {};
    } catch (const Interrupted &) {
        throw;
    } catch (const QString &message) {
        return message;
    } catch (const std::exception &exception) {
        return QString::fromLocal8Bit(exception.what());
    } catch (...) {
        return QStringLiteral("Unknown failure.");
    }
}
