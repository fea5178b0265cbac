#pragma once

#include "audio/player/PlayerWorker.h"

#include <QHash>
#include <QMap>
#include <QObject>

#include <memory>

class TrackPlayer;

struct HeardPart
{
    Track track;
    Instrument instrument;
    GroupLevel level = {};
};

// Sounds parts that are not in the song, together, with a player of its own that is made when something is to be heard.
// On the interface thread.
class GroupPlayer : public QObject
{
    Q_OBJECT

public:
    explicit GroupPlayer(EngineFactory makeEngine, QObject *parent = nullptr);
    ~GroupPlayer() override;

    bool isPlaying() const { return !numbers_.isEmpty(); }
    QList<int> playing() const { return numbers_.values(); }

    // From their start; the numbers are the caller's.
    void play(const QMap<int, HeardPart> &parts);
    // In the place of the part of that number, where it is now; nothing when that does not sound.
    void follow(int number, const HeardPart &part);
    void stop(int number);
    void stop();

signals:
    void playingChanged(bool isPlaying);

private:
    PlayRequest requestFor(const QString &id, const HeardPart &part, PlayRequest::Begin begin) const;
    void onStopped(const QString &id);

    EngineFactory makeEngine_;
    std::unique_ptr<TrackPlayer> player_;
    QString group_;               // a new one each time, so that what is said of the one before is not mistaken
    QHash<QString, int> numbers_; // of what plays, by their ids
};
