#include "export/Tunebook.h"

namespace {

QString tune(const QString &text, int number)
{
    auto tune = QStringLiteral("X: %1\n").arg(number);
    bool hasNumber = false;
    for (const auto &line : text.split(u'\n')) {
        if (line.startsWith(u"X:") && !std::exchange(hasNumber, true))
            continue;
        if (!line.trimmed().isEmpty())
            tune += line + u'\n';
    }
    return tune;
}

} // namespace

QString tunebook(const QStringList &texts)
{
    QStringList tunes;
    for (const auto &text : texts)
        tunes.append(tune(text, int(tunes.size()) + 1));
    return tunes.join(u'\n');
}
