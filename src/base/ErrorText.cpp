#include "base/ErrorText.h"

#include "base/Interrupted.h"

#include <QCoreApplication>

#include <new>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("ErrorText", text);
}

} // namespace

QString errorText(const std::exception_ptr &exception)
{
    try {
        std::rethrow_exception(exception);
    } catch (const QString &message) {
        return message;
    } catch (const Interrupted &) {
        return translated(QT_TRANSLATE_NOOP("ErrorText", "Stopped."));
    } catch (const std::bad_alloc &) {
        return translated(QT_TRANSLATE_NOOP("ErrorText", "Not enough memory."));
    } catch (const std::exception &error) {
        return QString::fromLocal8Bit(error.what());
    } catch (...) {
        return translated(QT_TRANSLATE_NOOP("ErrorText", "Unknown failure."));
    }
}
