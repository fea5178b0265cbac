#pragma once

#include "audio/sound/SoundFileWriter.h"
#include "core/Ticks.h"

#include <QStringList>

#include <optional>
#include <vector>

// A file of a render.
struct RenderFile
{
    QString path;
    std::optional<int> track = {}; // the only one that sounds in it, by the order of coming; nothing: all of them
    SoundTags tags = {};
};

// A part of a song, in ticks of its longest track; 0 <= begin < end.
struct TickRange
{
    Ticks begin = 0;
    Ticks end = 0;
};

// What a render writes. All of its files have the same length. A value. [any]
struct RenderPlan
{
    std::vector<RenderFile> files;
    SoundCoding coding = SoundCoding::Wav16;
    double quality = 0.7;                // 0..1, of a coding with losses
    std::optional<TickRange> range = {}; // what sounds in it, to the sample; nothing: the whole song with its end
    bool isNormalised = false;           // the loudest of all files reaches -1 dBFS; all are changed alike

    // A WAV of 16 bit with nothing but the mix, which any engine writes.
    static RenderPlan wave(const QString &path) { return {{{path}}}; }
    bool isPlainWave() const
    {
        return files.size() == 1 && !files.front().track && coding == SoundCoding::Wav16 && !range && !isNormalised;
    }
};

enum class RenderFiles { Mix, Parts, Both };

// What a person asks for.
struct RenderRequest
{
    QString path;      // of the mix; files of parts are beside it, "<its name> - <part>"
    QString title;     // of the song
    QStringList parts; // names of the tracks, by the order of coming
    RenderFiles files = RenderFiles::Mix;
};

// The files with their tags; everything else of the plan is as it is by default. No two files have one name. [any]
RenderPlan planOf(const RenderRequest &request);

// "9.2 % of the samples are clipped", for people; empty when none is. [any]
QString clippingText(quint64 clipped, quint64 samples);
