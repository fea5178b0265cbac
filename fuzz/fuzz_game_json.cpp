// An item, a mod description or a tuning of any bytes is read or refused; in a tuning that was read every note has a
// sample.
#include "assets/ItemReader.h"
#include "assets/TuningReader.h"

#include <QLoggingCategory>

#include <cstdint>
#include <cstdlib>

namespace {
template<typename Action>
void orRefused(Action action)
{
    try {
        action();
    } catch (const QString &message) {
        if (message.isEmpty())
            std::abort();
    }
}

void checkTuning(const Tuning &tuning)
{
    for (const auto &note : tuning.notes) {
        if (note.files.isEmpty())
            std::abort();
    }
    if (tuning.fadeout < 0.005)
        std::abort();
}
} // namespace

// Qt 5 leaks the object or list that a later member of the same name replaces.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool quiet = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);
    Q_UNUSED(quiet);
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const SampleBase base{QStringLiteral("/game/assets/sfx/lute/"), QStringLiteral("/game/assets")};
    orRefused([&] { readItem(bytes, QStringLiteral("lute.instrument")); });
    orRefused([&] { readModPath(bytes); });
    orRefused([&] { checkTuning(readTuning(bytes, QStringLiteral("lute"), base)); });
    return 0;
}
