#include "audio/ResultChecker.h"

#include "audio/Logging.h"

Q_LOGGING_CATEGORY(audioLog, "kelvarion.audio")

bool ResultChecker::check(const AudioEngine &engine, AudioResult result)
{
    if (result == AudioResult::Ok)
        return true;
    if (result != logged_) {
        const auto text = QString::fromUtf8(engine.errorText(result));
        qCCritical(audioLog).noquote() << QStringLiteral("%1 Error: %2\n").arg(QString::fromUtf8(engine.name()), text);
    }
    logged_ = result;
    return false;
}
