#include "base/SafeFile.h"
#include "song/SongChange.h"
#include "song/journal/JournalFolder.h"
#include "song/journal/JournalWriter.h"
#include "song/journal/SongJournal.h"
#include "support/RandomSongs.h"
#include "support/SystemFaults.h"
#include "support/TestFolder.h"
#include "support/Thrown.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

namespace {

QVector<Song> statesOf(unsigned seed, int count)
{
    RandomSongs random(seed);
    QVector<Song> states{random.song()};
    while (states.size() < count) {
        states.append(states.last());
        random.edit(states.last());
    }
    return states;
}

// As many parts and notes as a long orchestral piece has.
Song largeSong()
{
    Song song;
    for (int number = 1; number <= 64; ++number) {
        SongPart part;
        part.id = QStringLiteral("T%1").arg(number);
        part.abc = QStringLiteral("X:1\nK:C\n") + QStringLiteral("C2 ").repeated(20'000);
        song.parts.append(part);
    }
    return song;
}

} // namespace

class TestSongJournal : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<TestFolder>();
        faults::longestWrite = SIZE_MAX; // also after a test that failed
        faults::callsUntilFault = 0;
    }

    void changesMakeTheNextState()
    {
        const auto states = statesOf(1, 3000);
        for (int i = 1; i < states.size(); ++i) {
            const auto change = SongChange::between(states[i - 1], states[i]);
            QVERIFY(SongChange::applied(states[i - 1], change) == states[i]);
            QCOMPARE(change.isEmpty(), states[i - 1] == states[i]);
        }
        QVERIFY(SongChange::applied({}, SongChange::between({}, states.last())) == states.last());
        QVERIFY(SongChange::applied(states.last(), SongChange::between(states.last(), {})) == Song());
    }

    void foreignChangesAreRefused_data()
    {
        const Rows<QByteArray> row("change");
        row("unknown part without a place", R"({"parts": [{"id": "T9"}]})");
        row("order of unknown parts", R"({"order": ["T1", "T9"]})");
        row("order with a part twice", R"({"order": ["T1", "T1"]})");
        row("cut past the end", R"({"parts": [{"id": "T1", "abc": {"at": 2, "cut": 2, "put": ""}}]})");
        row("cut before the beginning", R"({"parts": [{"id": "T1", "abc": {"at": -1, "cut": 2, "put": ""}}]})");
        row("out of range", R"({"song": {"masterVolume": 101}})");
    }

    void foreignChangesAreRefused()
    {
        QFETCH(const QByteArray, change);
        Song song;
        song.parts.append(SongPart());
        song.parts[0].id = QStringLiteral("T1");
        song.parts[0].abc = QStringLiteral("abc");
        const auto object = QJsonDocument::fromJson(change).object();
        QVERIFY(throws<QString>([&] { SongChange::applied(song, object); }));
    }

    // Cut at every byte, or with any byte of it changed, the last record is as if it had never been written.
    void damageCostsOnlyTheLastRecord()
    {
        const auto states = statesOf(3, 12);
        auto bytes = JournalRecords::beginning({states[0], {}, false}, JournalMark::Open, 0);
        for (int i = 1; i + 1 < states.size(); ++i)
            bytes += JournalRecords::change({states[i - 1], {}, false}, {states[i], {}, false}, JournalMark::Open, i);
        const auto &before = states[states.size() - 2];
        const auto last = JournalRecords::change({before, {}, false},
                                                 {states.last(), QStringLiteral("/x"), true, QStringLiteral("7")},
                                                 JournalMark::Discarded, 99);
        for (int length = 0; length < last.size(); ++length) {
            auto changed = last;
            changed[length] = char(changed[length] ^ 1);
            for (const auto &tail : {last.left(length), changed}) {
                const auto contents = JournalRecords::read(bytes + tail);
                QVERIFY(contents.last.song == before && !contents.last.isSaved);
                QCOMPARE(contents.wholeSize, qint64(bytes.size()));
            }
        }
        const auto whole = JournalRecords::read(bytes + last);
        QVERIFY(whole.last.song == states.last() && whole.last.isSaved && whole.mark == JournalMark::Discarded);
        QCOMPARE(whole.last.file + whole.last.fileStamp, QStringLiteral("/x7"));
        QCOMPARE(whole.time, 99);
        for (int length = 0; length < 20; ++length)
            QVERIFY(throws<QString>([&] { JournalRecords::read(bytes.left(length)); }));
    }

    // Whichever system call fails, the file holds a whole state, never one before the last that was written; and the
    // next write makes up for it.
    void everyCallMayFailOnce()
    {
        faults::longestWrite = 50;
        const auto states = statesOf(5, 6); // some of which may be equal
        int failures = 0;
        for (int call = 1;; ++call) {
            const auto path = folder_->path(QStringLiteral("%1.journal").arg(call));
            JournalWriter writer(path);
            faults::callsUntilFault = call;
            int leastState = -1;
            for (int i = 0; i < states.size(); ++i) {
                const auto problem = thrownBy([&] {
                    writer.write({states[i], {}, false});
                    writer.sync();
                });
                leastState = problem == u"nothing" ? i : leastState;
                const auto remaining = faults::callsUntilFault.exchange(0);
                int found = -1;
                const auto unreadable =
                    thrownBy([&] { found = int(states.mid(0, i + 1).lastIndexOf(JournalFolder::recover(path).song)); });
                faults::callsUntilFault = remaining;
                QVERIFY2(found >= leastState, qPrintable(problem + u' ' + unreadable));
                QVERIFY(found >= 0 || !QFile::exists(path));
                failures += problem == u"nothing" ? 0 : 1;
            }
            const bool wasReached = faults::callsUntilFault.exchange(0) == 0;
            writer.write({states.last(), {}, false});
            QVERIFY(JournalFolder::recover(path).song == states.last());
            if (!wasReached)
                break;
        }
        faults::longestWrite = SIZE_MAX;
        QVERIFY(failures > 20);
    }

    // As after a crash: without a last word, and without anyone who waits.
    void isWrittenByItself()
    {
        const auto states = statesOf(6, 30);
        SongJournal journal(folder_->path());
        for (const auto &state : states)
            journal.record({state, {}, false});
        const auto found = [&] {
            Song song;
            thrownBy([&] { song = JournalFolder::recover(journal.path()).song; });
            return song;
        };
        QTRY_VERIFY_WITH_TIMEOUT(found() == states.last(), 30'000);
    }

    // A disk that takes long keeps no step from the file, the first neither.
    void stepsDoNotWaitForTheDisk()
    {
        const auto states = statesOf(7, 4);
        faults::fsyncMs = 3000;
        SongJournal journal(folder_->path());
        for (const auto &state : states) {
            journal.record({state, {}, false});
            const auto isThere = [&] {
                Song song;
                thrownBy([&] { song = JournalFolder::recover(journal.path()).song; });
                return song == state;
            };
            QTRY_VERIFY_WITH_TIMEOUT(isThere(), 1000);
        }
        QVERIFY(!journal.waitUntilWritten(100)); // on the disk
        faults::fsyncMs = 0;
        QVERIFY(journal.waitUntilWritten(20'000));
    }

    void aTurnOfADialIsSmall()
    {
        auto song = largeSong();
        SongJournal journal(folder_->path());
        journal.record({song, {}, false});
        QVERIFY(journal.waitUntilWritten(20'000));
        const auto before = QFileInfo(journal.path()).size();
        song.parts[40].volume = 71;
        journal.record({song, {}, false});
        QVERIFY(journal.waitUntilWritten(20'000));
        const auto added = QFileInfo(journal.path()).size() - before;
        song.parts[3].abc.insert(30'000, QStringLiteral("z"));
        journal.record({song, {}, false});
        QVERIFY(journal.waitUntilWritten(20'000));
        const auto typed = QFileInfo(journal.path()).size() - before - added;
        qInfo("a turn of a dial adds %lld bytes, a typed letter %lld", added, typed);
        QVERIFY(added > 0 && added < 200 && typed > 0 && typed < 200);
        QVERIFY(JournalFolder::recover(journal.path()).song == song);
    }

    void isCompacted()
    {
        Song song;
        song.parts.append(SongPart());
        song.parts[0].id = QStringLiteral("T1");
        SongJournal journal(folder_->path());
        qint64 longest = 0;
        for (int i = 0; i < 40; ++i) {
            song.parts[0].abc = QString(1 << 20, QChar(ushort('a' + i % 2)));
            journal.record({song, {}, false});
            QVERIFY(journal.waitUntilWritten(20'000));
            longest = std::max(longest, QFileInfo(journal.path()).size());
        }
        QVERIFY(longest > 8 << 20 && longest < 12 << 20);
        QVERIFY(JournalFolder::recover(journal.path()).song == song);
    }

    // What is written while the short file is made is in it, too, and no call that fails loses anything.
    void isWrittenWhileItIsCompacted()
    {
        bool wasReached = true;
        for (int call = 0; wasReached; ++call) { // 0: none fails
            const auto path = folder_->path(QStringLiteral("%1.journal").arg(call));
            JournalWriter writer(path);
            Song song;
            song.parts.append(SongPart());
            song.parts[0].id = QStringLiteral("T1");
            const auto write = [&](char16_t letter) {
                song.parts[0].abc = QString(1 << 20, QChar(letter));
                writer.write({song, {}, false});
            };
            for (char16_t letter = u'a'; letter < u'l'; ++letter)
                write(letter);
            const auto synchronise = writer.synchronisation();
            write(u'x');
            faults::callsUntilFault = call;
            const auto problem = thrownBy([&] {
                synchronise();
                write(u'y');
            });
            wasReached = faults::callsUntilFault.exchange(0) == 0;
            const auto found = JournalFolder::recover(path).song;
            QVERIFY(found == song || (problem != u"nothing" && found.parts[0].abc.startsWith(u'x')));
            QVERIFY(problem != u"nothing" || QFileInfo(path).size() < 4 << 20);
            writer.startAnew();
            write(u'z');
            QVERIFY(JournalFolder::recover(path).song == song);
        }
    }

    void listsWhatCanBeRecovered()
    {
        auto song = statesOf(2, 1)[0];
        song.title = QStringLiteral("Lost");
        const auto crash = [&](const JournalledSong &last) {
            JournalWriter(JournalFolder::newPath(folder_->path())).write(last);
        };
        const auto close = [&](SongJournal::Ending ending) {
            SongJournal journal(folder_->path());
            journal.record({song, {}, false});
            journal.end(ending);
            QVERIFY(journal.waitUntilWritten(5000));
        };
        crash({song, QStringLiteral("/lost.kvsong"), false});
        crash({song, {}, true});
        close(SongJournal::Ending::Discarded);
        close(SongJournal::Ending::Saved);
        folder_->write("cut.journal", "kelvarion-journal 1\n");
        folder_->write("killed.journal~1.saving", "half");
        SongJournal running(folder_->path());
        running.record({song, {}, false});
        QVERIFY(running.waitUntilWritten(5000));
        QCOMPARE(thrownBy([&] { JournalFolder::remove(running.path()); }),
                 QStringLiteral("Another program has the song open."));

        const auto songs = JournalFolder::recoverable(folder_->path());
        QStringList found;
        for (const auto &each : songs)
            found.append(QStringLiteral("%1 %2 %3 %4 %5")
                             .arg(each.title, each.file)
                             .arg(each.partCount == song.parts.size())
                             .arg(each.isDiscarded)
                             .arg(each.problem));
        found.sort();
        QCOMPARE(found, QStringList({QStringLiteral("  0 0 The beginning of the journal is damaged."),
                                     QStringLiteral("Lost  1 1 "), QStringLiteral("Lost /lost.kvsong 1 0 ")}));
        QCOMPARE(folder_->files().size(), 5); // three of these, and a journal with its lock that is in use
        for (const auto &each : songs)
            JournalFolder::remove(each.journal);
        QVERIFY(JournalFolder::recoverable(folder_->path()).isEmpty());
        running.end(SongJournal::Ending::Saved);
        QVERIFY(running.waitUntilWritten(5000));
        QCOMPARE(folder_->files(), QStringList());
    }

    void endsWhileItIsWritten()
    {
        const auto song = largeSong();
        for (const auto pause : {0UL, 1UL, 2UL, 4UL, 8UL, 16UL}) {
            SongJournal journal(folder_->path());
            journal.record({song, {}, false});
            QThread::msleep(pause);
            journal.end(SongJournal::Ending::Discarded);
            QVERIFY(journal.waitUntilWritten(20'000));
            const auto found = JournalFolder::recoverable(folder_->path());
            QVERIFY(found.size() == 1 && found[0].isDiscarded);
            JournalFolder::remove(journal.path());
        }
    }

    void keepsDiscardedSongsForAWhile()
    {
        const auto now = QDateTime::currentDateTimeUtc();
        for (int hours = 0; hours < 25; ++hours) {
            const auto time = now.addSecs(-3600 * hours * 8).toMSecsSinceEpoch();
            folder_->write(QStringLiteral("%1.journal").arg(hours),
                           JournalRecords::beginning({}, JournalMark::Discarded, time));
        }
        QCOMPARE(JournalFolder::recoverable(folder_->path(), now).size(), 20);
        QCOMPARE(JournalFolder::recoverable(folder_->path(), now.addDays(5)).size(), 7);
        QCOMPARE(folder_->files().size(), 7);
    }

    void replacesTheJournalThatItWasRecoveredFrom()
    {
        const auto old = folder_->write("old.journal", JournalRecords::beginning({}, JournalMark::Open, 0));
        SongJournal journal(folder_->path());
        journal.replace(old);
        QVERIFY(QFile::exists(old));
        journal.record({});
        QVERIFY(journal.waitUntilWritten(5000));
        QVERIFY(!QFile::exists(old) && QFile::exists(journal.path()));
    }

    void saysWhenItCannotBeWritten()
    {
        const auto folder = folder_->path("journals");
        folder_->write("journals", "a file where the folder should be");
        SongJournal journal(folder);
        QSignalSpy failed(&journal, &SongJournal::failed);
        QSignalSpy resumed(&journal, &SongJournal::resumed);
        journal.record({});
        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(!journal.waitUntilWritten(5000));
        QVERIFY(QFile::remove(folder));
        QVERIFY(journal.waitUntilWritten(5000));
        QTRY_COMPARE(resumed.size(), 1);
        QCOMPARE(failed.size(), 1);
        journal.end(SongJournal::Ending::Saved);
        QVERIFY(journal.waitUntilWritten(5000));
    }

private:
    std::unique_ptr<TestFolder> folder_;
};

QTEST_GUILESS_MAIN(TestSongJournal)
#include "test_song_journal.moc"
