// What it takes from a key to the painted text in the editor window of 1080 × 760, offscreen: typing into 100 kB of
// lines, into one line of 20 and of 100 kB and into one of errors alone, with the piano roll shown and hidden, and
// reading those texts in between; what reading and checking 3 MB take of it; and what it takes to show how giant chords
// play, ten times the notes in not much more than ten times the time. Ends with 1 when a 99th percentile or a chord is
// above its budget. Times are of the interface's own thread; the clock's time, which other programs disturb, is printed
// beside it. An argument chooses the rows of typing by a part of their names.
#include "audio/engine/BuiltinEngine.h"
#include "audio/player/TrackPlayer.h"
#include "core/AbcParser.h"
#include "settings/Settings.h"
#include "support/Figures.h"
#include "ui/Dialogs.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/text/AbcTextEdit.h"

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr int keys = 300;
constexpr int keysBeforeRest = 30;

double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double percentile(std::vector<double> times, double part)
{
    std::sort(times.begin(), times.end());
    return times[size_t(double(times.size() - 1) * part)];
}

void rest(int forMilliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(forMilliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

QString wanted; // of the names

// Types notes; now and then the hands rest, and the text is read.
bool type(const char *name, AbcEditorWindow &window, const QString &text, double budget, int at = 0)
{
    if (!QString::fromUtf8(name).contains(wanted))
        return true;
    window.document().setTrack({});
    window.document().setDraft(text);
    auto *const view = window.findChild<AbcTextEdit *>();
    auto caret = view->textCursor();
    caret.setPosition(at != 0 ? at : int(text.size() / 2));
    view->setTextCursor(caret);
    rest(300);
    std::vector<double> own;
    std::vector<double> passed;
    for (int i = 0; i < keys; ++i) {
        if (i % keysBeforeRest == keysBeforeRest - 1)
            rest(400);
        const auto letter = QString(QLatin1Char("cdefgab "[i % 8]));
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        const auto ownBegin = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        const auto begin = milliseconds(CLOCK_MONOTONIC);
        QCoreApplication::sendEvent(view, &press);
        QCoreApplication::processEvents();
        own.push_back(milliseconds(CLOCK_THREAD_CPUTIME_ID) - ownBegin);
        passed.push_back(milliseconds(CLOCK_MONOTONIC) - begin);
    }
    const auto p99 = percentile(own, 0.99);
    std::printf("%-34s p50 %6.2f ms  p99 %6.2f ms  (clock %6.2f ms)\n", name, percentile(own, 0.5), p99,
                percentile(passed, 0.99));
    window.document().text()->setModified(false);
    return report({std::string("A key in ") + name + ": ms", p99, budget, {}, Better::Less});
}

// Reading and checking of a long text beside the interface, after one key: how long they take, and how long of it the
// interface's own thread stands still at most.
bool check(AbcEditorWindow &window, const QString &text, double budget)
{
    const auto name = std::to_string(text.size() / 1'000'000) + " MB";
    if (!QString::fromStdString(name).contains(wanted))
        return true;
    window.document().setTrack({});
    window.document().setDraft(text);
    rest(3000);
    int told = 0; // what the reader refuses, then all else
    const auto counting =
        QObject::connect(&window.document(), &EditorDocument::findingsChanged, &window, [&told] { ++told; });
    const auto begin = milliseconds(CLOCK_MONOTONIC);
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("c"));
    QCoreApplication::sendEvent(window.findChild<AbcTextEdit *>(), &press);
    double longest = 0;
    while (told < 2) {
        const auto ownBegin = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, milliseconds(CLOCK_THREAD_CPUTIME_ID) - ownBegin);
    }
    std::printf("%s, read and checked after %.0f ms\n", name.c_str(), milliseconds(CLOCK_MONOTONIC) - begin);
    QObject::disconnect(counting);
    window.document().text()->setModified(false);
    return report({"Longest stop while " + name + " are checked: ms", longest, budget, {}, Better::Less});
}

// Of all that happens from the start of a chord to its end.
bool playChord(AbcEditorWindow &window, int notes, double budget)
{
    QString chord;
    for (int note = 0; note < notes; ++note)
        chord += QStringLiteral("%1%2").arg(QLatin1Char("cdefgabCDEFGAB"[note % 14])).arg(1 + note % 3);
    window.setTrack(parseAbc(QStringLiteral("X: 1\nL: 1/16\nK: C\n[%1] z4\n").arg(chord)));
    rest(500);
    const auto begin = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    window.playback().playFromStart();
    rest(1500);
    window.playback().stop();
    const auto time = milliseconds(CLOCK_THREAD_CPUTIME_ID) - begin;
    return report({"Playing a chord of " + std::to_string(notes) + " notes: ms", time, budget, {}, Better::Less});
}

QString tune(int size, int notesPerLine)
{
    auto text = QStringLiteral("X: 1\nT: Long\nM: 4/4\nL: 1/8\nK: D\n");
    for (int note = 0; text.size() < size; ++note) {
        text += QStringLiteral("%1%2").arg(QLatin1Char("cdefgABG"[note * 5 % 8])).arg(1 + note % 3);
        text += note % 8 == 7 ? QStringLiteral(" | ") : QStringLiteral(" ");
        if (note % notesPerLine == notesPerLine - 1)
            text += u'\n';
    }
    return text;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    wanted = application.arguments().value(1);
    const QTemporaryDir folder;
    Settings settings(folder.filePath(QStringLiteral("settings.cfg")));
    DesktopDialogs dialogs;
    TrackPlayer player([] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); });
    AbcEditorWindow window(settings, dialogs, player);
    window.show();
    const auto lines = tune(100'000, 12);
    const auto longLine = tune(20'000, 100'000);
    const auto longestLine = tune(100'000, 100'000);
    const auto errors = tune(0, 1) + QString(100'000, u'?');
    bool isWithin = type("100 kB, text alone", window, lines, 16);
    isWithin &= type("one line of 20 kB, text alone", window, longLine, 40);
    isWithin &= type("one line of 100 kB, text alone", window, longestLine, 40);
    window.findChild<QAction *>(QStringLiteral("actionWrapLines"))->trigger();
    isWithin &= type("one line of 100 kB, wrapped", window, longestLine, 40);
    window.findChild<QAction *>(QStringLiteral("actionWrapLines"))->trigger();
    isWithin &= type("one line of 100 kB of errors", window, errors, 40, 100);
    const auto giant = tune(3'000'000, 12);
    isWithin &= check(window, giant, 40);
    window.findChild<QAction *>(QStringLiteral("actionShowRoll"))->trigger();
    isWithin &= type("100 kB, with the piano roll", window, lines, 16);
    isWithin &= type("one line of 20 kB, with the roll", window, longLine, 40);
    isWithin &= type("one line of 100 kB, with the roll", window, longestLine, 40);
    isWithin &= playChord(window, 900, 300);
    isWithin &= playChord(window, 9000, 3000);
    return isWithin ? 0 : 1;
}
