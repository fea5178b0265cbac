#pragma once

#include "ui/editor/PreviewTrack.h"

#include <QObject>
#include <QTimer>

#include <set>

class EditorDocument;
class TrackPlayer;

// Plays a document's tune through a player and shows the document what sounds. What is played is the text as it stands,
// applied or not; changes are heard when it is started again, or in the next round of a loop.
class EditorPlayback : public QObject
{
    Q_OBJECT

public:
    static constexpr int slowest = 25; // per cent of the tune's tempo
    static constexpr int fastest = 200;

    // Both must outlive the playback.
    EditorPlayback(EditorDocument &document, TrackPlayer &player, QObject *parent = nullptr);
    ~EditorPlayback() override; // stops

    bool isPlaying() const { return isPlaying_; }
    bool isLooping() const { return isPlaying_ && stretch_.loops; }
    int tempoPercent() const { return tempoPercent_; }
    // A tune that plays goes on where it is, in the new tempo. Of the preview only.
    void setTempoPercent(int percent);

public slots:
    void playFrom(Ticks tick);
    void playFromStart() { playFrom(0); }
    void playFromCaret();
    // The whole tune when nothing is selected.
    void loopSelection();
    void stop();
    void playPreviewNote(quint32 pitch);
    void stopPreviewNote();

signals:
    void playingChanged(bool playing);

private:
    void play(const PreviewTrack::Stretch &stretch);
    void onPosition(const QString &trackId, quint64 position);
    void onNote(const QString &trackId, int event, bool sounds);
    void onStopped(const QString &trackId);
    void silence();
    void showSounding();

    EditorDocument &document_;
    TrackPlayer &player_;
    QString trackId_; // a new one each time, so that what is said of the one before is not mistaken
    PreviewTrack preview_;
    PreviewTrack::Stretch stretch_;
    std::set<int> sounding_; // events of the preview
    QTimer soundingTimer_;
    int tempoPercent_ = 100;
    bool isPlaying_ = false;
};
