#pragma once

#include "assets/InstrumentSet.h"
#include "ui/listening/GroupPlayer.h"

class ImportPreview;

// Sounds parts of a preview before they are imported. What is changed of them is heard at once. On the interface
// thread.
class PreviewPlayer : public QObject
{
    Q_OBJECT

public:
    PreviewPlayer(const ImportPreview &preview, const InstrumentSet &instruments, EngineFactory makeEngine,
                  QObject *parent = nullptr);

    bool isPlaying() const { return player_.isPlaying(); }
    void play(const QVector<int> &parts); // from their start, together
    void stop() { player_.stop(); }

signals:
    void playingChanged(bool isPlaying);

private:
    HeardPart heard(int part) const;
    void stopWhatIsNotTaken();

    const ImportPreview &preview_;
    InstrumentSet instruments_;
    GroupPlayer player_;
};
