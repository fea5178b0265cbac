#include "core/AbcParser.h"
#include "import/Transpose.h"
#include "support/Rows.h"
#include "ui/tracks/TrackList.h"

#include <random>

namespace {

Track track(const QString &title, const QString &notes = QStringLiteral("CDEF|GABc|"))
{
    return parseAbc(QStringLiteral("X:1\nT:%1\nL:1/4\nQ:1/4=120\nK:C\n%2\n").arg(title, notes));
}

// All that undo brings back, as text.
QString describe(const SongTracks &song)
{
    QStringList lines;
    for (const auto &each : song) {
        auto copy = *each->track;
        lines.append(QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                         .arg(each->id, each->instrument)
                         .arg(each->isMuted)
                         .arg(each->volume)
                         .arg(each->pan)
                         .arg(each->startOffset)
                         .arg(copy.toAbc()));
    }
    return lines.join(u'\n');
}

QStringList titles(const TrackList &list)
{
    QStringList titles;
    for (const auto &each : list.song())
        titles.append(each->track->title());
    return titles;
}

// A list with the tracks "a", "b", "c" named T1, T2, T3.
void fill(TrackList &list)
{
    list.add(QStringLiteral("Import"), {{track(QStringLiteral("a")), QStringLiteral("Lute")},
                                        {track(QStringLiteral("b"), QStringLiteral("c4|")), QStringLiteral("Flute")},
                                        {track(QStringLiteral("c")), QStringLiteral("Harp")}});
}

const auto t1 = QStringLiteral("T1");
const auto t2 = QStringLiteral("T2");
const auto t3 = QStringLiteral("T3");

} // namespace

// Of a track, or of that and another.
using Command = std::function<void(TrackList &, const QString &, const QString &)>;
Q_DECLARE_METATYPE(Command)

class TestTrackList : public QObject
{
    Q_OBJECT

    // Their steps, and the titles after each for the second track and the first.
    const std::tuple<const char *, const char *, Command> commands_[13] = {
        {"Remove All Tracks", "",
         [](auto &list, auto &, auto &) { list.remove(QStringLiteral("Remove All Tracks"), list.ids()); }},
        {"Remove Track", "a,c",
         [](auto &list, auto &id, auto &) { list.remove(QStringLiteral("Remove Track"), {id}); }},
        {"Duplicate Tracks", "a,b,c,b (2),a (2),b (3)",
         [](auto &list, auto &id, auto &other) {
             list.duplicate({id, other, id});
         }},
        {"Move Track", "b,a,c", [](auto &list, auto &id, auto &) { list.move(id, 0); }},
        {"Rename Track", "a,x,c",
         [](auto &list, auto &id, auto &) {
             list.setTrack(QStringLiteral("Rename Track"), id, track(QStringLiteral("x"), QStringLiteral("c4|")));
         }},
        {"Transpose Track", "a,b,c",
         [](auto &list, auto &id, auto &) {
             list.setTrack(QStringLiteral("Transpose Track"), id,
                           transpose(*list.find(id)->track, list.find(id)->track->events()[0].pitch() > 80 ? -12 : 12));
         }},
        {"Change Instrument", "a,b,c",
         [](auto &list, auto &id, auto &other) {
             list.setInstrument({id, other}, list.find(id)->instrument + u'x');
         }},
        {"Change Volume", "a,b,c",
         [](auto &list, auto &id, auto &) { list.setVolume({id}, (list.find(id)->volume + 40) % 101); }},
        {"Change Pan", "a,b,c", [](auto &list, auto &id, auto &) { list.setPan({id}, -60 - list.find(id)->pan); }},
        {"Change Start Offset", "a,b,c",
         [](auto &list, auto &id, auto &other) {
             list.setStartOffset({id, other}, 30 - list.find(id)->startOffset);
         }},
        {"Mute", "a,b,c",
         [](auto &list, auto &id, auto &other) {
             list.setMuted({id, other}, !list.find(id)->isMuted);
         }},
        {"Solo", "a,b,c", [](auto &list, auto &id, auto &) { list.solo({id}); }},
        {"Open Files", "n",
         [](auto &list, auto &, auto &) {
             list.add(QStringLiteral("Open Files"), {{track(QStringLiteral("n")), {}}}, ExistingTracks::Remove);
         }},
    };

private slots:
    void undoesAndRedoesEveryCommand_data()
    {
        const Rows<Command, QString> row("command", "after");
        for (const auto &[step, after, command] : commands_)
            row(step, command, after);
    }

    void undoesAndRedoesEveryCommand()
    {
        QFETCH(Command, command);
        TrackList list;
        fill(list);
        const auto before = describe(list.song());
        int changes = 0;
        connect(&list, &TrackList::songChanged, this, [&] { ++changes; });
        command(list, t2, t1);
        const auto after = describe(list.song());
        QVERIFY(after != before);
        QTEST(titles(list).join(u','), "after");
        QCOMPARE(list.history().undoText(), QLatin1String(QTest::currentDataTag()));
        list.history().undo();
        QCOMPARE(describe(list.song()), before);
        list.history().redo();
        QCOMPARE(describe(list.song()), after);
        QCOMPARE(changes, 3);
    }

    void undoesRandomCommands()
    {
        constexpr int commands = 5'000;
        TrackList list;
        fill(list);
        list.history().clear();
        const auto start = describe(list.song());
        std::mt19937 random(20260101);
        const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
        const auto someId = [&] { return list.ids().value(below(std::max(1, int(list.song().size())))); };
        for (int number = 0; number < commands; ++number) {
            const bool isTooLong = list.song().size() > 20;
            if (list.song().size() < 3)
                fill(list);
            else if (!isTooLong && below(12) == 0)
                list.history().undo();
            else
                std::get<Command>(commands_[isTooLong ? 0 : below(int(std::size(commands_)))])(list, someId(),
                                                                                               someId());
        }
        while (list.history().canRedo())
            list.history().redo();
        const auto end = describe(list.song());
        QVERIFY(list.history().count() > commands / 2);
        list.history().setIndex(0);
        QCOMPARE(describe(list.song()), start);
        list.history().setIndex(list.history().count());
        QCOMPARE(describe(list.song()), end);
    }

    void mergesQuickDialDragsIntoOneStep()
    {
        TrackList list;
        fill(list);
        for (int percent = 99; percent > 50; --percent)
            list.setVolume({t1}, percent);
        QCOMPARE(list.history().count(), 2);
        list.setVolume({t2}, 20); // another track
        list.setPan({t2}, 20);    // another dial
        QCOMPARE(list.history().count(), 4);
        list.setPan({t2}, 20); // no change
        QCOMPARE(list.history().count(), 4);
        list.history().setIndex(1);
        QCOMPARE(list.find(t1)->volume, 100);
        const auto up = [&] { list.setTrack(QStringLiteral("Transpose"), t1, transpose(*list.find(t1)->track, 12)); };
        up();
        up(); // a command is a step, however quick
        QCOMPARE(list.history().count(), 3);
    }

    void keepsIdsUnique()
    {
        TrackList list;
        fill(list);
        list.history().undo();
        fill(list);
        QCOMPARE(list.ids(), (QStringList{QStringLiteral("T4"), QStringLiteral("T5"), QStringLiteral("T6")}));

        QVector<OpenedTrack> opened; // as song files name them
        for (const auto *const id : {"Lute", "T8", "T2147483647"}) {
            OpenedTrack each;
            each.track = *list.find(QStringLiteral("T4"));
            each.track.id = QLatin1String(id);
            opened.append(each);
        }
        list.open(opened);
        list.duplicate({QStringLiteral("T8")});
        QCOMPARE(list.ids().last(), QStringLiteral("T9"));
        QCOMPARE(list.history().count(), 1);
    }

    void solosAndBack()
    {
        TrackList list;
        fill(list);
        list.setMuted({t2}, true);
        QVERIFY(list.soloed().isEmpty());
        list.solo({t2});
        QVERIFY(list.find(t1)->isMuted && !list.find(t2)->isMuted && list.find(t3)->isMuted);
        list.solo({t2, t3});
        QVERIFY(list.find(t1)->isMuted && !list.find(t2)->isMuted && !list.find(t3)->isMuted);
        QCOMPARE(list.soloed(), QSet<QString>({t2, t3}));
        list.history().undo();
        QCOMPARE(list.soloed(), QSet<QString>({t2}));
        list.solo({t3});
        QVERIFY(list.find(t1)->isMuted && list.find(t2)->isMuted && !list.find(t3)->isMuted);
        list.solo({t3});
        QVERIFY(!list.find(t1)->isMuted && !list.find(t2)->isMuted && !list.find(t3)->isMuted);
    }

    void mutesSelectedTogether()
    {
        TrackList list;
        fill(list);
        list.setMuted({t1}, true);
        list.toggleMuted({t1, t2});
        QVERIFY(list.find(t1)->isMuted && list.find(t2)->isMuted);
        list.toggleMuted({t1, t2});
        QVERIFY(!list.find(t1)->isMuted && !list.find(t2)->isMuted);
    }

    void keepsSelectionBesideTheHistory()
    {
        TrackList list;
        fill(list);
        list.setSelected(t3, true);
        list.setSelected(t1, true);
        QCOMPARE(list.selectedIds(), (QStringList{t1, t3}));
        list.invertSelection();
        QCOMPARE(list.selectedIds(), QStringList(t2));
        list.remove(QStringLiteral("Remove"), {t2});
        QCOMPARE(list.selectedIds(), QStringList());
        list.history().undo();
        QCOMPARE(list.selectedIds(), QStringList(t2));
        QCOMPARE(list.history().count(), 2);
        list.open({{*list.find(t2), {}}}); // of another song
        QCOMPARE(list.selectedIds(), QStringList());
    }

    void knowsWhatIsUnsaved()
    {
        TrackList list;
        auto opened = track(QStringLiteral("opened"));
        opened.setFilePath(QStringLiteral("/songs/opened.abc"));
        list.add(QStringLiteral("Open"), {{opened, {}}, {track(QStringLiteral("imported")), {}}, {Track(), {}}});
        QCOMPARE(list.unsavedIds(), QStringList(t2));
        list.setTrack(QStringLiteral("Rename"), t1, track(QStringLiteral("other")));
        QCOMPARE(list.unsavedIds(), (QStringList{t1, t2}));
        QCOMPARE(list.trackWithPath(t1).filePath(), QStringLiteral("/songs/opened.abc"));
        list.history().undo();
        QCOMPARE(list.unsavedIds(), QStringList(t2));
        list.markSaved(t2, QStringLiteral("/songs/imported.abc"));
        QVERIFY(list.unsavedIds().isEmpty());
        list.setVolume({t2}, 10); // is not in the file
        QVERIFY(list.unsavedIds().isEmpty());
        Track titled;
        titled.setHeaderField(QStringLiteral("T"), QStringLiteral("The beginning of a song"));
        list.setTrack(QStringLiteral("Rename"), t3, titled);
        QCOMPARE(list.unsavedIds(), QStringList(t3));
    }

    void sharesUnchangedTracks()
    {
        TrackList list;
        fill(list);
        const auto before = list.song();
        list.setPan({t2}, 10);
        QCOMPARE(list.song()[0], before[0]);
        QVERIFY(list.song()[1] != before[1]);
        QCOMPARE(list.song()[1]->track, before[1]->track);
        QCOMPARE(list.commonLength(), before[0]->track->length());
    }
};

QTEST_GUILESS_MAIN(TestTrackList)
#include "test_track_list.moc"
