#pragma once

#include "audio/player/PlayRequest.h"

#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

#include <deque>
#include <functional>
#include <set>

class EditorDocument;
class TrackPlayer;

// The other parts of a song, and how the edited one sounds among them.
struct Companions
{
    GroupLevel own = {};
    double ownOffset = 0;             // milliseconds
    QVector<PlayRequest> others = {}; // by the ids of their tracks; when and where they begin is not theirs to say
};

// Plays a document's tune through a player and shows the document what sounds. What is played is the text as it stands,
// applied or not, and changes are heard as soon as they are read. One plays at a time on a player.
class EditorPlayback : public QObject
{
    Q_OBJECT

public:
    static constexpr int slowest = 25; // per cent of the tune's tempo
    static constexpr int fastest = 200;

    // Both must outlive the playback.
    EditorPlayback(EditorDocument &document, TrackPlayer &player, QObject *parent = nullptr);

    bool isPlaying() const { return isPlaying_; }
    bool isLooping() const { return isPlaying_ && loop_; }
    int tempoPercent() const { return tempoPercent_; }
    // A tune that plays goes on where it is, in the new tempo. Of the preview only.
    void setTempoPercent(int percent);

    // What plays along "with the song"; asked for whenever it may have changed.
    void setCompanions(std::function<Companions()> find) { findCompanions_ = std::move(find); }
    bool isWithSong() const { return isWithSong_; }

public slots:
    void playFrom(Ticks tick);
    void playFromStart() { playFrom(0); }
    void playFromCaret();
    void playOrStop(); // from the caret
    // The whole tune when nothing is selected.
    void loopSelection();
    void stop();
    void setWithSong(bool isWithSong); // heard at once
    void followSong();                 // other parts of it have changed
    void playPreviewNote(quint32 pitch);
    void stopPreviewNote();

signals:
    void playingChanged(bool playing);

private:
    enum class Loops { Never, Selection, Tune };

    void play(Ticks from, Loops loops);
    std::optional<LoopRegion> region(Loops loops) const;
    void followEdits();
    Companions companions() const { return isWithSong_ && findCompanions_ ? findCompanions_() : Companions(); }
    PlayRequest own(const Companions &companions, PlayRequest::Begin begin, Ticks from = 0);
    QVector<PlayRequest> others(const Companions &companions, PlayRequest::Begin begin, Ticks from = 0);
    void stopTracks();
    void onStarted(const QString &trackId);
    void onPosition(const QString &trackId, quint64 position);
    void onNote(const QString &trackId, int event, bool sounds);
    void onStopped(const QString &trackId);
    void silence();
    void showSounding();

    EditorDocument &document_;
    TrackPlayer &player_;
    std::function<Companions()> findCompanions_;
    QString trackId_; // a new one each time, so that what is said of the one before is not mistaken
    QSet<QString> otherIds_;
    std::deque<Track> requested_; // versions of the tune that the player has been given, and not yet begun
    Track played_;
    Ticks length_ = 0; // of the longest that plays
    Loops loops_ = Loops::Never;
    std::optional<LoopRegion> loop_;
    std::set<int> sounding_; // events of what is played
    QTimer soundingTimer_;
    int tempoPercent_ = 100;
    bool isPlaying_ = false;
    bool isWithSong_ = false;
};
