#include "audio/render/RenderPlan.h"

#include "base/SafeFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QSet>

#include <algorithm>

namespace {

const std::string &software()
{
    static const std::string name = "Kelvarion Composer v" COMPOSER_VERSION;
    return name;
}

// File names, none of them twice, also where case does not matter.
class FilesBeside
{
public:
    explicit FilesBeside(const QString &path)
        : folder_(path.left(path.lastIndexOf(u'/') + 1)), mix_(path), taken_{mix_.fileName().toLower()}
    {
    }

    QString of(const QString &part)
    {
        const auto stem = SafeFile::cleanName(QStringLiteral("%1 - %2").arg(mix_.completeBaseName(), part));
        const auto ending = mix_.suffix().isEmpty() ? QString() : u'.' + mix_.suffix();
        auto name = stem + ending;
        for (int number = 2; taken_.contains(name.toLower()); ++number)
            name = QStringLiteral("%1 (%2)%3").arg(stem, QString::number(number), ending);
        taken_.insert(name.toLower());
        return folder_ + name;
    }

private:
    QString folder_;
    QFileInfo mix_;
    QSet<QString> taken_;
};

} // namespace

RenderPlan planOf(const RenderRequest &request)
{
    RenderPlan plan;
    const auto title = request.title.toStdString();
    if (request.files != RenderFiles::Parts) {
        const auto comment = request.parts.join(QStringLiteral(", ")).toStdString();
        plan.files.push_back({request.path, {}, {title, {}, {}, comment, software()}});
    }
    FilesBeside beside(request.path);
    for (int i = 0; request.files != RenderFiles::Mix && i < request.parts.size(); ++i) {
        const auto &part = request.parts[i];
        plan.files.push_back({beside.of(part), i, {part.toStdString(), title, std::to_string(i + 1), {}, software()}});
    }
    return plan;
}

QString clippingText(quint64 clipped, quint64 samples)
{
    if (clipped == 0 || samples == 0)
        return {};
    const auto percent = 100 * double(clipped) / double(samples);
    constexpr double leastShown = 0.1;
    const auto number = QLocale().toString(std::max(percent, leastShown), 'f', 1);
    const auto share = percent < leastShown ? QStringLiteral("< ") + number : number;
    return QCoreApplication::translate("RenderPlan", "%1 % of the samples are clipped").arg(share);
}
