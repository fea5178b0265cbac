#include "assets/InstrumentDecoder.h"

#include "assets/CostLimit.h"
#include "assets/package/Logging.h"

#include <utility>

namespace {
constexpr std::size_t mostWaiting = 8;

// Of one place, in bytes: a thousand icons of 128 x 128.
constexpr qint64 mostIconMemory = qint64(64) << 20;

void warn(const QString &message)
{
    qCWarning(assetsLog).noquote() << message;
}
} // namespace

InstrumentDecoder::~InstrumentDecoder()
{
    finish();
}

void InstrumentDecoder::take(PlaceFiles files)
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.size() < mostWaiting; });
    waiting_.push_back(std::move(files));
    if (!thread_.joinable())
        thread_ = std::thread([this] { run(); });
    changed_.notify_all();
}

InstrumentSet InstrumentDecoder::finish()
{
    {
        const std::lock_guard lock(mutex_);
        isComplete_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable())
        thread_.join();
    return std::exchange(found_, {});
}

void InstrumentDecoder::run()
{
    for (;;) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isComplete_ || !waiting_.empty(); });
        if (waiting_.empty())
            return;
        const auto files = std::move(waiting_.front());
        waiting_.pop_front();
        changed_.notify_all();
        lock.unlock();
        decode(files);
    }
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
