#pragma once

#include <QtGlobal>

class QString;
class TrackRows;
class VUMeter;

// Shows what the player tells: on the rows, of which any may be gone meanwhile, and on the master meter. On the
// interface thread.
class PlaybackView
{
public:
    PlaybackView(const TrackRows &rows, VUMeter &masterMeter) : rows_(rows), masterMeter_(masterMeter) {}

    void start(const QString &trackId);
    void stop(const QString &trackId);
    void stopAll();
    void setPosition(const QString &trackId, quint64 ticks);
    void setMasterLevels(float leftRms, float rightRms, float leftPeak, float rightPeak);
    void setLevels(const QString &trackId, float leftRms, float rightRms, float leftPeak, float rightPeak);
    void pressNote(const QString &trackId, int eventIndex);
    void releaseNote(const QString &trackId, int eventIndex);

private:
    const TrackRows &rows_;
    VUMeter &masterMeter_;
};
