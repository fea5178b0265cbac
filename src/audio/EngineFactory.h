#pragma once

#include "audio/AudioEngine.h"

#include <QString>

#include <functional>
#include <memory>

// An engine that a player or a renderer owns from then on.
struct MadeEngine
{
    template<typename Engine>
    MadeEngine(std::unique_ptr<Engine> made, const QString &remark = {}) : engine(std::move(made)), warning(remark)
    {
    }

    std::unique_ptr<AudioEngine> engine;
    QString warning; // what the user should know of it, if anything
};
using EngineFactory = std::function<MadeEngine()>;

// Makes an engine whose output is the wave file of that path: 48 kHz, stereo. Without a path it only mixes.
using FileEngineFactory = std::function<MadeEngine(const QString &waveFile)>;
