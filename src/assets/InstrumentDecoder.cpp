#include "assets/InstrumentDecoder.h"

#include "assets/CostLimit.h"
#include "assets/package/Logging.h"
#include "base/ErrorText.h"

#include <new>
#include <utility>

namespace {
// Of one place, in bytes: a thousand icons of 128 x 128.
constexpr qint64 mostIconMemory = qint64(64) << 20;

void warn(const QString &message)
{
    qCWarning(assetsLog).noquote() << message;
}
} // namespace

void InstrumentDecoder::take(PlaceFiles files)
{
    thread_.start([this, files = std::move(files)] { decode(files); });
}

InstrumentSet InstrumentDecoder::finish()
{
    thread_.wait();
    return std::exchange(found_, {});
}

void InstrumentDecoder::decode(const PlaceFiles &files)
{
    const CostLimit limit(files.size);
    iconMemory_ = mostIconMemory;
    for (const auto &instrument : files.instruments) {
        if (limit.isReached()) {
            warn(QStringLiteral("Failed to load pak file: %1").arg(files.path));
            return;
        }
        try {
            decode(instrument);
        } catch (const QString &message) {
            warn(message);
        } catch (const std::bad_alloc &) {
            warn(QStringLiteral("%1: %2").arg(instrument.item.name, currentErrorText()));
        }
    }
}

void InstrumentDecoder::decode(const InstrumentFiles &files)
{
    const auto &item = files.item;
    if (found_.contains(item.name))
        return;
    if (!files.tuning)
        throw QStringLiteral("No tuning file found for instrument %1!").arg(item.name);
    const auto tuning = readTuning(*files.tuning, item.kind, files.sampleBase);
    found_.add({item.name, icon(files), tuning});
}

QImage InstrumentDecoder::icon(const InstrumentFiles &files)
{
    if (!files.icon) {
        warn(QStringLiteral("No icon file found for instrument %1!").arg(files.item.name));
        return {};
    }
    auto image = iconMemory_ > 0 ? decodeIcon(*files.icon) : QImage();
    if (image.isNull())
        warn(QStringLiteral("Could not read the icon %1 of instrument %2.").arg(files.iconPath, files.item.name));
    iconMemory_ -= image.sizeInBytes();
    return image;
}
