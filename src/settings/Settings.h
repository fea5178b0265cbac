#pragma once

#include "base/JobPool.h"
#include "settings/SettingsTable.h"

#include <QJsonObject>
#include <QObject>

#include <mutex>
#include <shared_mutex>

// The user's preferences, kept in one JSON file whose members are the keys of the settings table. One object is made at
// start-up and handed to whoever needs it. Every function may be called from any thread unless it says otherwise.
class Settings : public QObject
{
    Q_OBJECT

public:
    using Setting = SettingsTable::Setting;
    using enum SettingsTable::Setting;

    // The file of this user: "<domain>/<application>.cfg" below the system's folder for configuration. Needs the
    // application's organisation domain and name.
    static QString defaultFile();

    // Reads the file, which need not exist. Of one that is not JSON a copy is kept, "<file>.bad", and the defaults
    // apply.
    explicit Settings(const QString &fileName, QObject *parent = nullptr);
    ~Settings() override; // saves what has changed

    // The stored value, or the default when there is none or one of another type. A colour is a text that
    // QVariant::value<QColor>() reads.
    QVariant value(Setting setting) const;
    bool contains(Setting setting) const; // defaults do not count

    // Announces the value on the caller's thread after the lock is released, so that a slot may read and write. The
    // file follows on another thread, when the event loop of this object's thread is idle.
    void setValue(Setting setting, const QVariant &value);

    // Writes the changes to the file at once; keys that somebody else changed meanwhile stay, and so do entries that
    // somebody else added to a history. False, with a logged warning and a problem, when the file cannot be read or
    // written; the changes wait for the next time then.
    bool save();

    const QString &fileName() const { return fileName_; }
    // Why settings are not kept, or that they were damaged, in words for the user; empty when nothing is wrong.
    QString problem() const;

signals:
    void settingChanged(Settings::Setting setting, const QVariant &value);
    void problemChanged(const QString &problem); // on the thread that saves

private:
    QJsonObject read();
    void saveLater();
    bool saveChanges();
    void write(const QJsonObject &changes);
    void setFailure(const QString &failure);

    const QString fileName_;
    std::mutex saving_;              // one writer of the file at a time
    QJsonObject base_;               // what the changes are changes of; of the writer
    mutable std::shared_mutex lock_; // all below
    QString damage_;
    QString failure_;
    QJsonObject stored_;
    QJsonObject unsaved_;
    JobPool saver_{1}; // last: at the end it waits for what is still to be written
};

Q_DECLARE_METATYPE(Settings::Setting)
