#include "audio/ResultChecker.h"

#include "audio/Logging.h"

#include <utility>

Q_LOGGING_CATEGORY(audioLog, "kelvarion.audio")

bool ResultChecker::check(const AudioEngine &engine, AudioResult result)
{
    if (result == AudioResult::Ok)
        return true;
    const auto text = QString::fromUtf8(engine.errorText(result));
    if (std::exchange(logged_, text) != text)
        qCCritical(audioLog).noquote() << QStringLiteral("%1 Error: %2\n").arg(QString::fromUtf8(engine.name()), text);
    return false;
}
