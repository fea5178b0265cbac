#include "settings/Settings.h"

#include "base/ErrorText.h"
#include "base/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QSettings>
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

QJsonObject readStore(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto bytes = file.readAll();
    if (const auto store = parseStore(bytes))
        return *store;
    const auto copy = fileName + QStringLiteral(".bad");
    qCWarning(settingsLog).noquote() << fileName << "is not readable; it is kept as" << copy;
    try {
        SafeFile::write(copy, bytes);
    } catch (const QString &error) {
        qCWarning(settingsLog).noquote() << copy << error;
    }
    return {};
}

bool readFormat(QIODevice &device, QSettings::SettingsMap &map)
{
    const auto store = parseStore(device.readAll());
    if (store)
        map = store->toVariantMap();
    return store.has_value();
}

bool writeFormat(QIODevice &device, const QSettings::SettingsMap &map)
{
    return device.write(formatStore(QJsonObject::fromVariantMap(map))) > 0;
}

QJsonObject merged(QJsonObject store, const QJsonObject &changes)
{
    for (auto member = changes.constBegin(); member != changes.constEnd(); ++member)
        store.insert(member.key(), member.value());
    return store;
}

} // namespace

QString Settings::defaultFile()
{
    static const auto format = QSettings::registerFormat(QStringLiteral("cfg"), readFormat, writeFormat);
    QSettings::setDefaultFormat(format);
    QSettings::setPath(format, QSettings::UserScope,
                       QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    return QSettings().fileName();
}

Settings::Settings(const QString &fileName, QObject *parent)
    : QObject(parent), fileName_(fileName), stored_(readStore(fileName))
{
    qRegisterMetaType<Setting>("Settings::Setting");
}

Settings::~Settings()
{
    save();
}

QVariant Settings::value(Setting setting) const
{
    QJsonValue stored;
    {
        const QReadLocker locker(&lock_);
        stored = stored_.value(keyOf(setting));
    }
    const auto value = stored.isUndefined() || stored.isNull()
                           ? std::nullopt
                           : SettingsTable::parse(SettingsTable::rows()[setting], stored.toVariant().toString());
    return value.value_or(SettingsTable::defaultValue(setting));
}

bool Settings::contains(Setting setting) const
{
    const QReadLocker locker(&lock_);
    return stored_.contains(keyOf(setting));
}

void Settings::setValue(Setting setting, const QVariant &value)
{
    {
        const QWriteLocker locker(&lock_);
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

bool Settings::save()
{
    const QMutexLocker savers(&saving_);
    QJsonObject changes;
    {
        const QWriteLocker locker(&lock_);
        changes = std::exchange(unsaved_, {});
    }
    if (changes.isEmpty())
        return true;
    try {
        QDir().mkpath(QFileInfo(fileName_).absolutePath());
        SafeFile::write(fileName_, formatStore(merged(readStore(fileName_), changes)));
        return true;
    } catch (...) {
        qCWarning(settingsLog).noquote() << fileName_ << currentErrorText();
    }
    const QWriteLocker locker(&lock_);
    unsaved_ = merged(changes, unsaved_);
    return false;
}
