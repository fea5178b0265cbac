#pragma once

#include "base/Task.h"
#include "song/SongReader.h"
#include "song/preview/PartPreview.h"

#include <QHash>
#include <QObject>
#include <QSet>

// Shows what sources would become before they do: reads them beside the interface thread, again whenever an option
// changes, and proposes instruments and octaves. What a person chooses for a part stays with it when its source is read
// again. On the interface thread.
class ImportPreview : public QObject
{
    Q_OBJECT

public:
    ImportPreview(const QVector<SongSource> &sources, const ProposalBasis &basis, QObject *parent = nullptr);

    // What was read already. Of converted ABC only the tunes that are in it are read again.
    void show(const ReadSong &song, const ReadingOptions &options);
    // Ends what is being read. Tracks are read to be shown whatever the options say.
    void read(const ReadingOptions &options);
    const ReadingOptions &options() const { return options_; }

    const QVector<PartPreview> &parts() const { return parts_; }
    bool isTaken(int part) const { return choice(part).isTaken; }
    // What is shown at once; the part itself follows a little later.
    QString instrument(int part) const { return choice(part).instrument.value_or(parts_[part].instrument()); }
    int octaves(int part) const { return choice(part).octaves.value_or(parts_[part].octaves()); }
    void take(int part, bool isTaken);
    void takeAll(bool areTaken);
    QVector<int> takenParts() const;
    void setInstrument(int part, const QString &name); // the octaves are proposed anew, unless they were chosen
    void setOctaves(int part, int octaves);

    // Something is still to be read or settled.
    bool isBusy() const { return reading_.isRunning() || settling_.isRunning(); }
    QString problem() const; // why there are no parts; empty when there are

    // What was chosen: the song with the tracks that are taken, their instruments, and with the instruments that were
    // chosen for programs what is to be remembered. Not while it is busy.
    ReadSong song() const;
    QStringList instruments() const;
    ProgramInstruments remembered() const;

signals:
    void partsChanged(); // all of them
    void partChanged(int part);
    void takenChanged(); // which of them are taken
    void settled();      // no longer busy

private:
    using Parts = QVector<PartPreview>;
    using Choices = QHash<QString, PartChoice>;
    struct Reading
    {
        ReadSong song;
        Parts parts;
        QStringList keys; // of the parts, each once
    };
    static Reading preview(const ReadSong &song, const Choices &choices, const ProposalBasis &basis,
                           const TaskControl &control);
    PartChoice choice(int part) const { return choices_.value(keys_[part]); }
    void start(const std::function<ReadSong(const TaskControl &)> &source);
    void takeReading(const Reading &reading);
    void settle(int part);
    void takeSettled(const QVector<int> &numbers, const Parts &parts);

    QVector<SongSource> sources_;
    QHash<int, QSet<int>> tunes_; // of converted sources, by their numbers
    ProposalBasis basis_;
    ReadingOptions options_;
    ReadSong song_;
    Parts parts_;
    QStringList keys_;
    Choices choices_;
    QVector<int> unsettled_; // parts with a choice that they do not show yet
    QString failure_;
    Task reading_;
    Task settling_;
};
