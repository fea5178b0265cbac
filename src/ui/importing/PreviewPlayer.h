#pragma once

#include "assets/InstrumentSet.h"
#include "audio/PlayerWorker.h"

#include <QHash>
#include <QObject>

#include <memory>

class ImportPreview;
class TrackPlayer;

// Sounds parts of a preview before they are imported. What is changed of them is heard at once. On the interface
// thread.
class PreviewPlayer : public QObject
{
    Q_OBJECT

public:
    PreviewPlayer(const ImportPreview &preview, const InstrumentSet &instruments, EngineFactory makeEngine,
                  QObject *parent = nullptr);
    ~PreviewPlayer() override;

    bool isPlaying() const { return !parts_.isEmpty(); }
    void play(const QVector<int> &parts); // from their start, together
    void stop();

signals:
    void playingChanged(bool isPlaying);

private:
    void makePlayer();
    PlayRequest requestFor(int part, PlayRequest::Begin begin) const;
    void follow(int part);
    void stopWhatIsNotTaken();
    void onStopped(const QString &id);

    const ImportPreview &preview_;
    InstrumentSet instruments_;
    EngineFactory makeEngine_;
    std::unique_ptr<TrackPlayer> player_; // made when something is to be heard
    QString group_;                       // a new one each time, so that what is said of the one before is not mistaken
    QHash<QString, int> parts_;           // that play, by their ids
};
