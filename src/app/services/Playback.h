#pragma once

#include "app/services/Rehearsal.h"
#include "assets/InstrumentSetModel.h"
#include "audio/player/PlayRequest.h"
#include "ui/tracks/TrackList.h"

#include <QObject>
#include <QSet>

#include <optional>

class TrackPlayer;

// What a person who practises hears beside the song.
struct Metronome
{
    bool isOn = false;
    int volume = 70; // percent, of the count-in, too
    int countIn = 0; // measures before each play(), 0 … ClickTrack::mostCountInMeasures
};

// Plays the song: tells the player what the user asks for, and every change of the song while it sounds. On the
// interface thread.
class Playback : public QObject
{
    Q_OBJECT

public:
    Playback(TrackList &list, const InstrumentSetModel &catalogue, TrackPlayer &player, QObject *parent = nullptr);

    const InstrumentSet &instruments() const { return catalogue_.instruments(); }
    // What a track without an instrument of the catalogue plays.
    void setDefaultInstrument(const QString &name) { defaultInstrument_ = name; }
    // The name that is played under this name: itself, the default, or the first of the catalogue; empty while the
    // catalogue is.
    QString resolvedName(const QString &name) const;
    Instrument instrument(const QString &name) const;
    // What a track that comes into the list gets: the instrument that its header names, or what is played instead.
    QString instrumentNameFor(const Track &track) const;

    // Whether any track has notes that an instrument of the catalogue has samples for; none with notes is no problem.
    bool hasSound() const;

    // What play() asks of a track.
    PlayRequest requestFor(const SongTrack &track, PlayRequest::Begin begin, Ticks from = 0) const;

    // From play() on: its tracks are heard as soon as their samples are loaded.
    bool isPlaying() const { return isStarting_ || !playing_.isEmpty(); }
    void play(Ticks from = 0); // all tracks from there
    void stop();               // the loading, too
    // What the player tells until it has stopped is about what played before, even where the next play() has begun.
    bool isStopping() const { return stopsUnderWay_ > 0; }
    void seek(Ticks position); // all tracks together

    // These hold until they are changed, and are heard at once while it plays. See PlayerWorker.
    void setLoop(const std::optional<LoopRegion> &region);
    void setTempoFactor(double factor); // 0.25 … 2
    void setMetronome(const Metronome &metronome);
    bool hasBeats() const { return metronome_.isOn; }
    static bool isMetronome(const QString &trackId);
    // Whether the beats go on behind the song's end, since somebody records there: from the next play() on.
    void setRecording(bool isRecording) { isRecording_ = isRecording; }
    // Beside the parts' start offsets. Its dice are thrown by play().
    void setRehearsal(const Rehearsal &rehearsal);
    const Rehearsal &rehearsal() const { return rehearsal_; }

    // Heard in the places of the tracks of these ids, with their mix; at once while it plays. None of the others.
    void setStandIns(const QHash<QString, std::shared_ptr<const Track>> &tracks);
    std::shared_ptr<const Track> standIn(const QString &trackId) const { return standIns_.value(trackId); }

signals:
    void playingChanged(bool isPlaying);
    void standInsChanged();
    // Playing waits for samples: of this one of so many tracks (from 1), so much per cent of what it needs at first are
    // there; and the end of the waiting.
    void loading(int track, int tracks, int percent);
    void loaded();
    // What the user should know of what is heard; at most once for each play().
    void warned(const QString &text);

private:
    template<typename Change>
    void tellPlaying(Change change);
    void follow(const SongTracks &before, const SongTracks &after);
    void followTrack(const SongTrack &before, const SongTrack &after);
    void throwDice();
    double offsetOf(const SongTrack &track) const { return track.startOffset + rehearsal_.offset(track.id); }
    void followBeats();
    Ticks beatsEnd() const;
    PlayRequest clicks(const Track &beats, PlayRequest::Begin begin, Ticks from = 0) const;
    QVector<PlayRequest> clicksFor(Ticks from);
    void onTrackStarted(const QString &id);
    void onTrackStopped(const QString &id);

    TrackList &list_;
    const InstrumentSetModel &catalogue_;
    TrackPlayer &player_;
    QString defaultInstrument_;
    Rehearsal rehearsal_;
    Metronome metronome_;
    std::shared_ptr<const Track> counted_; // whose beats are heard, and up to where
    Ticks countedLength_ = 0;
    bool isRecording_ = false;
    QSet<QString> playing_;
    QHash<QString, std::shared_ptr<const Track>> standIns_;
    bool isStarting_ = false;
    int stopsUnderWay_ = 0; // that the player was asked for and has not told yet
};

// The dials' percents as the player takes them.
constexpr float gainOf(int percent)
{
    return float(percent) / 100;
}
