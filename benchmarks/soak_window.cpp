// What a song survives in the real window: processes with a window that nobody sees are killed at random moments of
// random work (mix, moves, typing in an editor), and what their journals hold is recovered in another window. Fails
// when a song came back as something else than a state at most a second old. Usage: soak_window [KILLS [FIRST_SEED]]; a
// hundred kills take a good four minutes.

#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/recovery/RecoveryDialog.h"
#include "song/SongFile.h"
#include "support/Figures.h"
#include "support/TestFolder.h"
#include "support/WatchedApplication.h"
#include "ui/ValueDial.h"
#include "ui/editor/AbcEditorWindow.h"

#include <QCryptographicHash>
#include <QProcess>
#include <QPushButton>
#include <QSlider>
#include <QTextCursor>
#include <QToolButton>

#include <cstdio>
#include <cstring>
#include <random>

namespace {

const QByteArray ready("ready ");

qint64 now() // the same for all processes
{
    QElapsedTimer timer;
    timer.start();
    return timer.msecsSinceReference();
}

// What the user saw at one moment.
struct Stamp
{
    qint64 at;           // ms
    char song[20];       // a digest of it
    double longestEvent; // of the interface thread since the stamp before, ms
};

QByteArray digestOf(const Song &song)
{
    return QCryptographicHash::hash(SongFile::toBytes(song, {}), QCryptographicHash::Sha1);
}

// Works in a window until it is killed.
class RandomWork
{
public:
    RandomWork(WindowFixture &fixture, unsigned seed)
        : fixture_(fixture), random_(seed), stamps_(fixture.path("stamps"))
    {
    }

    bool begin() { return stamps_.open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

    void step()
    {
        const WatchedApplication::Watch watch;
        act(below(fixture_.tracks().song().size()));
    }

    void stamp()
    {
        Stamp stamp{now(), {}, WatchedApplication::takeLongestMs()};
        const auto digest = digestOf(songAsSeen());
        std::memcpy(stamp.song, digest.constData(), sizeof stamp.song);
        stamps_.write(reinterpret_cast<const char *>(&stamp), sizeof stamp);
    }

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

private:
    void act(int row)
    {
        auto &tracks = fixture_.tracks();
        switch (below(16)) {
        case 0:
            return fixture_.inRow<ValueDial>(row, "dlVolume")->setValue(below(101));
        case 1:
            return fixture_.inRow<ValueDial>(row, "dlPan")->setValue(below(201) - 100);
        case 2:
            return fixture_.child<QSlider>("slMasterVolume")->setValue(below(101));
        case 3:
            return fixture_.inRow<QToolButton>(row, below(2) == 0 ? "btnUp" : "btnDown")->click();
        case 4:
            return tracks.toggleMuted({tracks.ids()[row]});
        case 5:
            if (below(3) == 0)
                tracks.history().redo();
            else if (tracks.history().index() > 1) // the import stays
                tracks.history().undo();
            return;
        case 6:
            if (tracks.song().size() < 6)
                tracks.duplicate({tracks.ids()[row]});
            else
                tracks.remove(QStringLiteral("Remove Track"), {tracks.ids()[row]});
            return;
        case 7:
            return closeEditor();
        default:
            type(row);
        }
    }

    AbcEditorWindow *editor()
    {
        for (auto *const window : fixture_.window().findChildren<AbcEditorWindow *>()) {
            if (window->isVisible())
                return window;
        }
        return nullptr;
    }

    void type(int row)
    {
        if (!editor()) {
            edited_ = fixture_.tracks().ids()[row];
            fixture_.inRow<QToolButton>(row, "btnEdit")->click();
        }
        if (below(30) == 0)
            return apply();
        auto *const text = editor()->document().text();
        QTextCursor caret(text);
        caret.setPosition(below(text->characterCount()));
        caret.insertText(QString(QLatin1Char("ABCDEFGz?[ \n"[below(12)])));
    }

    // A track that was removed comes back as another one.
    void apply()
    {
        const auto &tracks = fixture_.tracks();
        if (editor()->document().apply() && !tracks.find(edited_))
            edited_ = tracks.ids().last();
    }

    void closeEditor()
    {
        fixture_.dialogs().draftAnswer =
            below(2) == 0 ? Dialogs::DraftAnswer::KeepAsDraft : Dialogs::DraftAnswer::Discard;
        fixture_.dialogs().answerOrCancel = below(2) == 0 ? Dialogs::Answer::Yes : Dialogs::Answer::No;
        if (auto *const window = editor(); window && below(4) == 0)
            window->close();
    }

    // With what was typed a moment ago.
    Song songAsSeen()
    {
        auto song = fixture_.window().session().song();
        auto *const window = editor();
        for (auto &part : song.parts) {
            if (window && part.id == edited_)
                part.draft = window->document().draft();
        }
        return song;
    }

    WindowFixture &fixture_;
    std::mt19937 random_;
    QFile stamps_;
    QString edited_; // the track of the editor
};

int workUntilKilled(unsigned seed)
{
    WindowFixture fixture(demoGame);
    RandomWork work(fixture, seed);
    if (!fixture.waitUntilLoaded() || !fixture.import(jig, 3) || !work.begin())
        return 1;
    work.stamp();
    std::printf("%s%s\n", ready.constData(), qUtf8Printable(fixture.path("")));
    std::fflush(stdout);
    for (;;) {
        work.step();
        work.stamp();
        QTest::qWait(work.below(work.below(20) == 0 ? 500 : 8)); // short and long rests
    }
}

// A process that works, in a folder that is deleted whatever becomes of the process.
class Worker
{
public:
    explicit Worker(unsigned seed)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TMPDIR"), folder_.path());
        process_.setProcessEnvironment(environment);
        process_.start(QCoreApplication::applicationFilePath(), {QStringLiteral("work"), QString::number(seed)});
    }
    ~Worker() { kill(); }

    bool waitUntilReady()
    {
        constexpr int longestStartMs = 60'000;
        while (!process_.canReadLine()) {
            if (!process_.waitForReadyRead(longestStartMs))
                return false;
        }
        const auto line = process_.readLine().trimmed();
        directory_ = QString::fromUtf8(line.mid(ready.size()));
        return line.startsWith(ready);
    }
    void kill()
    {
        process_.kill();
        process_.waitForFinished();
    }

    QVector<Stamp> stamps() const
    {
        const auto bytes = WindowFixture::read(directory_ + QStringLiteral("/stamps"));
        QVector<Stamp> stamps(bytes.size() / int(sizeof(Stamp)));
        std::memcpy(static_cast<void *>(stamps.data()), bytes.constData(), size_t(stamps.size()) * sizeof(Stamp));
        return stamps;
    }
    QString journals() const { return directory_ + QStringLiteral("/journals"); }

private:
    TestFolder folder_;
    QProcess process_;
    QString directory_;
};

struct Loss
{
    QString problem; // empty when all is well
    qint64 ageMs = 0;
    int steps = 0;
    double longestEventMs = 0; // of the process that was killed
};

// How long before the end the first state was that the song does not have.
qint64 ageOf(const Song &recovered, const QVector<Stamp> &stamps, qint64 end)
{
    const auto digest = digestOf(recovered);
    for (int i = int(stamps.size()) - 1; i >= 0; --i) {
        if (std::memcmp(stamps[i].song, digest.constData(), sizeof stamps[i].song) == 0)
            return i + 1 < stamps.size() ? end - stamps[i + 1].at : 0;
    }
    return -1;
}

// Moves the journal to a window that recovers it as a user would. Says what is not as it should be.
QString recoverIn(WindowFixture &fixture, const QString &journal, const Song &song)
{
    QDir().mkpath(fixture.path("journals"));
    if (!QFile::rename(journal, fixture.path("journals/lost.journal")))
        return QStringLiteral("its journal cannot be moved");
    auto &window = fixture.window();
    window.offerRecovery();
    const auto recover = [&] {
        auto *const dialog = window.findChild<RecoveryDialog *>();
        auto *const button = dialog ? dialog->findChild<QPushButton *>(QStringLiteral("btnRecover")) : nullptr;
        if (button && button->isEnabled())
            button->click();
        return window.session().song() == song;
    };
    if (!QTest::qWaitFor(recover, 20'000))
        return QStringLiteral("the window has another song");
    window.session().markSaved(window.session().song(), {});
    window.session().startNew();
    return {};
}

Loss killAfter(int ms, unsigned seed, WindowFixture &fixture)
{
    Worker worker(seed);
    if (!worker.waitUntilReady())
        return {QStringLiteral("the window does not start")};
    QTest::qWait(ms);
    const auto end = now();
    worker.kill();
    const auto stamps = worker.stamps();
    Loss loss{{}, 0, int(stamps.size())};
    for (const auto &stamp : stamps)
        loss.longestEventMs = std::max(loss.longestEventMs, stamp.longestEvent);
    const auto lost = JournalFolder::recoverable(worker.journals());
    if (lost.isEmpty() && !stamps.isEmpty() && end - stamps.first().at <= 1000)
        return loss; // not even the first state had to be there
    if (lost.size() != 1 || !lost[0].problem.isEmpty()) {
        loss.problem = lost.isEmpty() ? QStringLiteral("nothing is there") : lost[0].problem;
        return loss;
    }
    const auto song = JournalFolder::recover(lost[0].journal).song;
    loss.ageMs = ageOf(song, stamps, end);
    if (loss.ageMs < 0 || loss.ageMs > 1000)
        loss.problem = loss.ageMs < 0 ? QStringLiteral("a state that never was")
                                      : QStringLiteral("%1 ms are lost").arg(loss.ageMs);
    else
        loss.problem = recoverIn(fixture, lost[0].journal, song);
    return loss;
}

int countLostSongs(int kills, unsigned firstSeed)
{
    WindowFixture fixture(demoGame);
    if (!fixture.waitUntilLoaded())
        return kills;
    int lost = 0;
    Loss worst;
    for (int number = 0; number < kills; ++number) {
        const auto seed = firstSeed + unsigned(number);
        const auto loss = killAfter(int(100 + std::mt19937(seed)() % 3000), seed, fixture);
        worst.steps += loss.steps;
        worst.ageMs = std::max(worst.ageMs, loss.ageMs);
        worst.longestEventMs = std::max(worst.longestEventMs, loss.longestEventMs);
        if (!loss.problem.isEmpty()) {
            std::printf("seed %u: %s\n", seed, qUtf8Printable(loss.problem));
            ++lost;
        }
    }
    std::printf("%d kills of a window after %d steps: %d lost, at most %lld ms old, longest event %.0f ms\n", kills,
                worst.steps, lost, worst.ageMs, worst.longestEventMs);
    return lost;
}

} // namespace

int main(int argc, char **argv)
{
    WatchedApplication application(argc, argv);
    const auto argument = [](int number, int fallback) {
        return QCoreApplication::arguments().value(number, QString::number(fallback)).toInt();
    };
    if (QCoreApplication::arguments().value(1) == u"work")
        return workUntilKilled(unsigned(argument(2, 1)));
    const int lost = countLostSongs(argument(1, 20), unsigned(argument(2, 1)));
    return report({"Window: songs that were lost in a kill", double(lost), 0, {}, Better::Less}) ? 0 : 1;
}
