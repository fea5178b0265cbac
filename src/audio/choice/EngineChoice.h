#pragma once

#include "audio/EngineFactory.h"

#include <QString>

#include <functional>
#include <memory>
#include <mutex>

enum class EngineKind { Builtin, Fmod };

// The engine that is wanted.
struct EngineWish
{
    EngineKind kind = EngineKind::Builtin;
    QString libraryFile = {}; // of FMOD; empty: it is looked for in the game's folder and the system
    QString gameFolder = {};
};

// These throw a QString that says why the library cannot be used.
std::unique_ptr<AudioEngine> makeFmodEngine(const EngineWish &wish);                          // for a player [any]
std::unique_ptr<AudioEngine> makeFmodEngine(const EngineWish &wish, const QString &waveFile); // for a file [any]
QString describeFmod(const EngineWish &wish); // "FMOD 2.02.15: FILE" [any]
constexpr std::size_t mostFmodEngines = 8;    // at a time; the library refuses more

// For people, where the library cannot be used: that the built-in engine plays, and why. [any]
QString insteadText(const QString &reason);

// What players and exports get: as was wished last, or the built-in engine where the library cannot be used, with the
// reason. [any]
class EngineChoice
{
public:
    // makeBuiltin: for a player.
    explicit EngineChoice(std::function<std::unique_ptr<AudioEngine>()> makeBuiltin)
        : makeBuiltin_(std::move(makeBuiltin))
    {
    }

    void wish(const EngineWish &wish);
    MadeEngine make() const;
    // Without a file the built-in engine, since it is for mixing.
    MadeEngine makeForFile(const QString &waveFile) const;

private:
    EngineWish wished() const;

    std::function<std::unique_ptr<AudioEngine>()> makeBuiltin_;
    mutable std::mutex mutex_; // of what follows
    EngineWish wish_;
};
