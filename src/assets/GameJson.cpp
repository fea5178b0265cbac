#include "assets/GameJson.h"

#include <QRegularExpression>
#include <QString>

namespace {
// Many times the largest that the game has. A tuning takes a hundred times its bytes once it is read.
constexpr int maxSize = 1 << 20;
} // namespace

QJsonDocument parseGameJson(const QByteArray &bytes, QJsonParseError *error)
{
    if (bytes.size() > maxSize) {
        if (error != nullptr)
            error->error = QJsonParseError::DocumentTooLarge;
        return {};
    }
    static const QRegularExpression comment(QStringLiteral("\\/\\/.*$"), QRegularExpression::MultilineOption);
    auto text = QString::fromUtf8(bytes);
    text.remove(comment);
    return QJsonDocument::fromJson(text.toUtf8(), error);
}
