#include "settings/Settings.h"

#include "base/ErrorText.h"
#include "base/SafeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QLoggingCategory>
#include <QStandardPaths>

#include <optional>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(settingsLog, "kelvarion.settings")

QString keyOf(Settings::Setting setting)
{
    return QLatin1String(SettingsTable::rows()[setting].key);
}

// Nothing when the bytes are no JSON object. An empty file is an empty store.
std::optional<QJsonObject> parseStore(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return QJsonObject();
    const auto document = QJsonDocument::fromJson(bytes);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

QByteArray formatStore(const QJsonObject &store)
{
    return QJsonDocument(store).toJson(QJsonDocument::Indented);
}

// Nothing when there is no file. Throws a QString when it cannot be read.
QByteArray bytesOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    if (!info.exists())
        return {};
    if (!info.isFile())
        throw QCoreApplication::translate("Settings", "Not a regular file.");
    QFile file(fileName);
    const auto bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError)
        throw file.errorString();
    return bytes;
}

// Gives the name of a copy that holds these bytes; no earlier one is touched.
QString keptCopy(const QString &fileName, const QByteArray &bytes)
{
    auto copy = fileName + QStringLiteral(".bad");
    for (int number = 2; !SafeFile::writeNew(copy, bytes) && bytesOf(copy) != bytes; ++number)
        copy = QStringLiteral("%1.bad%2").arg(fileName).arg(number);
    return copy;
}

QJsonObject merged(QJsonObject store, const QJsonObject &changes)
{
    for (auto member = changes.constBegin(); member != changes.constEnd(); ++member)
        store.insert(member.key(), member.value());
    return store;
}

QStringList entriesOf(const QJsonValue &history)
{
    return history.toString().split(u'\n', Qt::SkipEmptyParts);
}

// The entries at the beginning of the history that came there since: behind them stand entries of before, in their
// order.
QStringList usedSince(const QStringList &before, const QStringList &now)
{
    int used = int(now.size());
    for (auto place = before.size(); used > 0; --used) {
        const auto earlier = before.lastIndexOf(now[used - 1], int(place) - 1);
        if (place == 0 || earlier < 0)
            break;
        place = earlier;
    }
    return now.mid(0, used);
}

// Mine were used last; of the others those stay that I have not removed.
QJsonValue mergedHistory(const QJsonValue &base, const QJsonValue &mine, const QJsonValue &theirs)
{
    const auto before = entriesOf(base);
    const auto now = entriesOf(mine);
    auto entries = usedSince(before, now);
    for (const auto &entry : entriesOf(theirs)) {
        const bool isRemoved = before.contains(entry) && !now.contains(entry);
        if (!isRemoved && !entries.contains(entry))
            entries.append(entry);
    }
    return entries.mid(0, SettingsTable::longestHistory).join(u'\n');
}

void mergeHistories(QJsonObject &changes, const QJsonObject &base, const QJsonObject &theirs)
{
    for (const auto &row : SettingsTable::rows()) {
        const QLatin1String key(row.key);
        if (row.type == SettingsTable::Type::History && changes.contains(key))
            changes.insert(key, mergedHistory(base.value(key), changes.value(key), theirs.value(key)));
    }
}

} // namespace

QString Settings::defaultFile()
{
    return QStringLiteral("%1/%2/%3.cfg")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
             QCoreApplication::organizationDomain(), QCoreApplication::applicationName());
}

Settings::Settings(const QString &fileName, QObject *parent) : QObject(parent), fileName_(fileName)
{
    qRegisterMetaType<Setting>("Settings::Setting");
    try {
        stored_ = base_ = read();
    } catch (...) {
        setFailure(tr("The settings cannot be read: %1").arg(currentErrorText()));
    }
}

// Throws when the file cannot be read, or no copy be kept of a damaged one.
QJsonObject Settings::read()
{
    const auto bytes = bytesOf(fileName_);
    if (const auto store = parseStore(bytes))
        return *store;
    const auto copy = keptCopy(fileName_, bytes);
    qCWarning(settingsLog).noquote() << fileName_ << "is damaged; it is kept as" << copy;
    const std::lock_guard locker(lock_);
    damage_ = tr("The settings were damaged; they are kept as %1").arg(QFileInfo(copy).fileName());
    return {};
}

Settings::~Settings()
{
    save();
}

QVariant Settings::value(Setting setting) const
{
    QJsonValue stored;
    {
        const std::shared_lock locker(lock_);
        stored = stored_.value(keyOf(setting));
    }
    const auto value = stored.isUndefined() || stored.isNull()
                           ? std::nullopt
                           : SettingsTable::parse(SettingsTable::rows()[setting], stored.toVariant().toString());
    return value.value_or(SettingsTable::defaultValue(setting));
}

bool Settings::contains(Setting setting) const
{
    const std::shared_lock locker(lock_);
    return stored_.contains(keyOf(setting));
}

void Settings::setValue(Setting setting, const QVariant &value)
{
    {
        const std::lock_guard locker(lock_);
        const auto json = QJsonValue::fromVariant(value);
        stored_.insert(keyOf(setting), json);
        unsaved_.insert(keyOf(setting), json);
    }
    QMetaObject::invokeMethod(this, &Settings::saveLater, Qt::QueuedConnection);
    emit settingChanged(setting, value);
}

// A slow disk must not keep the windows waiting.
void Settings::saveLater()
{
    saver_.start([this] { save(); });
}

QString Settings::problem() const
{
    const std::shared_lock locker(lock_);
    return failure_.isEmpty() ? damage_ : failure_;
}

void Settings::setFailure(const QString &failure)
{
    if (!failure.isEmpty())
        qCWarning(settingsLog).noquote() << fileName_ << failure;
    const std::lock_guard locker(lock_);
    failure_ = failure;
}

bool Settings::save()
{
    const auto before = problem();
    const bool isSaved = saveChanges();
    if (const auto now = problem(); now != before)
        emit problemChanged(now);
    return isSaved;
}

bool Settings::saveChanges()
{
    const std::lock_guard savers(saving_);
    QJsonObject changes;
    {
        const std::lock_guard locker(lock_);
        changes = std::exchange(unsaved_, {});
    }
    if (changes.isEmpty())
        return true;
    try {
        write(changes);
        setFailure({});
        return true;
    } catch (...) {
        setFailure(tr("The settings are not saved: %1").arg(currentErrorText()));
    }
    const std::lock_guard locker(lock_);
    unsaved_ = merged(changes, unsaved_);
    return false;
}

// Without the lock, where there can be none, a change that another program makes at the same moment may be lost.
void Settings::write(const QJsonObject &changes)
{
    constexpr int longestWaitMs = 1000;
    QDir().mkpath(QFileInfo(fileName_).absolutePath());
    QLockFile otherPrograms(fileName_ + QStringLiteral(".lock"));
    otherPrograms.tryLock(longestWaitMs);
    const auto theirs = read();
    auto mine = changes;
    mergeHistories(mine, base_, theirs);
    SafeFile::write(fileName_, formatStore(merged(theirs, mine)));
    const std::lock_guard locker(lock_);
    for (auto member = mine.constBegin(); member != mine.constEnd(); ++member) {
        const bool isChangedMeanwhile = unsaved_.contains(member.key());
        base_.insert(member.key(), isChangedMeanwhile ? changes.value(member.key()) : member.value());
        if (!isChangedMeanwhile)
            stored_.insert(member.key(), member.value());
    }
}
