#pragma once

#include "core/Ticks.h"

class QString;
class SongArea;
class TrackRows;
class VUMeter;

// Shows what the player tells: on the rows, of which any may be gone meanwhile, above them, and on the master meter. On
// the interface thread.
class PlaybackView
{
public:
    PlaybackView(TrackRows &rows, SongArea &area, VUMeter &masterMeter)
        : rows_(rows), area_(area), masterMeter_(masterMeter)
    {
    }

    void start(const QString &trackId);
    void stop(const QString &trackId);
    void stopAll();
    void setPosition(const QString &trackId, Ticks position);
    // Of the song: the rows' own, too, as long as no player tells them theirs.
    void setPosition(Ticks position, qint64 milliseconds, bool isPlaying);
    void setMasterLevels(float leftRms, float rightRms, float leftPeak, float rightPeak);
    void setLevels(const QString &trackId, float leftRms, float rightRms, float leftPeak, float rightPeak);
    void pressNote(const QString &trackId, int eventIndex);
    void releaseNote(const QString &trackId, int eventIndex);

private:
    TrackRows &rows_;
    SongArea &area_;
    VUMeter &masterMeter_;
};
