#pragma once

#include "assets/InstrumentSetModel.h"
#include "base/Task.h"
#include "check/CheckedSong.h"
#include "settings/Settings.h"
#include "ui/tracks/TrackList.h"

#include <QObject>
#include <QTimer>

#include <functional>

// Checks the song of the window beside the interface thread, shortly after each change, and only the parts that
// changed. On the interface thread.
class SongChecks : public QObject
{
    Q_OBJECT

public:
    // The name of the instrument that a part plays without one of its own.
    using DefaultInstrument = std::function<QString()>;

    // All outlive it.
    SongChecks(TrackList &tracks, const InstrumentSetModel &catalogue, const Settings &settings,
               DefaultInstrument defaultInstrument, QObject *parent = nullptr);

    const CheckedSong &checked() const { return checked_; } // of a moment ago
    bool isRunning() const { return timer_.isActive() || check_.isRunning(); }

    // Mends what is still as it was checked, as one step of the history.
    void fix(const QString &trackId, const Finding &finding);
    void fixAll(FindingKind kind);

signals:
    void changed();
    void failed(const QString &message);

private:
    struct Mending
    {
        QString id;
        std::shared_ptr<const Track> track;
        QVector<TextChange> changes;
    };

    void begin();
    void take(const CheckedSong &song);
    void forget();
    QVector<CheckedSong::Part> parts() const;
    void mend(const QString &step, const QVector<Mending> &parts);

    TrackList &tracks_;
    const InstrumentSetModel &catalogue_;
    const Settings &settings_;
    DefaultInstrument defaultInstrument_;
    CheckedSong checked_;
    Task check_;
    Task mend_;
    QTimer timer_;
};
