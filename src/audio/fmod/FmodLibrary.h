#pragma once

#include "audio/fmod/FmodApi.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>

// An FMOD library of the user's that was opened and found usable. Once opened it stays so. [any]
class FmodLibrary
{
    Q_DECLARE_TR_FUNCTIONS(FmodLibrary)

public:
    // Throws a QString with what is wrong: no library, symbols that are missing, a version that is not supported.
    static std::shared_ptr<const FmodLibrary> open(const QString &file);
    // The chosen file, when there is one; else the first usable of candidates(). Throws as open() does.
    static std::shared_ptr<const FmodLibrary> find(const QString &chosenFile, const QString &gameFolder);
    // Where a library may be: files in the game's folder, then the system's names, newest first.
    static QStringList candidates(const QString &gameFolder);

    const fmodlib::Api &api() const { return api_; }
    const QString &file() const { return file_; }
    QString versionText() const; // "2.02.15"
    // What a SoundInfo says to be.
    int soundInfoSize() const;

    // The library makes and gives up its systems on one thread at a time; these see to it.
    fmodlib::Result createSystem(fmodlib::System **system) const;
    fmodlib::Result releaseSystem(fmodlib::System *system) const;

private:
    FmodLibrary() = default;
    void resolve();
    void readVersion();

    QString file_;
    fmodlib::Api api_;
    unsigned headerVersion_ = 0; // that it takes; 0: not known yet
    unsigned version_ = 0;       // 16 bits product, 8 major, 8 minor, in digits
};
