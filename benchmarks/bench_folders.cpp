// Whole folders on the command line, by the clock: two cores against one, and convert against a call of abcmidi's
// midi2abc for each file. Files: ../shared/corpus beside the source tree when it is there, else the examples, of which
// the sound is rendered in any case. What is written stays until all is measured, since some file systems are slow to
// make files where others were just deleted.
#include "support/ChildProcess.h"
#include "support/Figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int runs = 7; // of which the fastest counts: the others waited for something

QString musicFolder()
{
    const QDir corpus(QStringLiteral(COMPOSER_SOURCE_DIR "/../shared/corpus/mid"));
    return corpus.exists() ? corpus.path() : QStringLiteral(COMPOSER_SOURCE_DIR "/examples");
}

double seconds(const std::function<bool()> &work)
{
    double fastest = 1e9;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        if (!work())
            throw std::runtime_error("a program failed");
        fastest = std::min(fastest, double(timer.nsecsElapsed()) / 1e9);
    }
    return fastest;
}

class Folders
{
public:
    // words: the command with its options, without the output, which is a new folder each time. cores: as taskset has
    // them.
    double writingSeconds(const QStringList &words, const QString &cores)
    {
        return seconds([&] {
            const auto output = folder_.filePath(QString::number(++outputs_));
            return runOn(cores, words + QStringList{QStringLiteral("--output"), output});
        });
    }

    // Gives how much faster two cores are, and prints both.
    double gain(const char *command, const std::function<double(const QString &cores)> &secondsOn)
    {
        const auto one = secondsOn(QStringLiteral("0"));
        const auto two = secondsOn(QStringLiteral("0,1"));
        std::printf("%s: %.3f s on one core, %.3f s on two\n", command, one, two);
        return one / two;
    }

    double checkSeconds(const QString &cores)
    {
        return seconds([&] {
            const QStringList words{QStringLiteral("check"), QStringLiteral("--game"), QStringLiteral(DEMO_GAME)};
            runOn(cores, words + QStringList(musicFolder())); // which finds something
            return true;
        });
    }

    double midi2abcSeconds()
    {
        const QDir music(musicFolder());
        const auto files = music.entryList({QStringLiteral("*.mid")}, QDir::Files);
        return seconds([&] {
            for (const auto &file : files)
                ChildProcess::run({QStringLiteral("midi2abc"), music.filePath(file), QStringLiteral("-o"),
                                   folder_.filePath(file + QStringLiteral(".abc"))});
            return true;
        });
    }

private:
    static bool runOn(const QString &cores, const QStringList &words)
    {
        const QStringList command{QStringLiteral("taskset"), QStringLiteral("-c"), cores, QStringLiteral(COMPOSER_CLI)};
        return ChildProcess::run(command + words).succeeded;
    }

    QTemporaryDir folder_;
    int outputs_ = 0;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto music = musicFolder();
    const QStringList convert{QStringLiteral("convert"), music};
    const QStringList arrange{QStringLiteral("arrange"), music, QStringLiteral("--players"), QStringLiteral("4")};
    const QStringList render{QStringLiteral("render"), QStringLiteral(COMPOSER_SOURCE_DIR "/examples"),
                             QStringLiteral("--game"), QStringLiteral(DEMO_GAME)};
    Folders folders;
    const auto writing = [&folders](const char *command, const QStringList &words) {
        return folders.gain(command, [&](const QString &cores) { return folders.writingSeconds(words, cores); });
    };
    const Figure figures[] = {{"folders: convert, two cores to one", writing("convert", convert), 1.8, {}},
                              {"folders: arrange, two cores to one", writing("arrange", arrange), 1.8, {}},
                              {"folders: render, two cores to one", writing("render", render), 1.8, {}},
                              {"folders: check, two cores to one",
                               folders.gain("check", [&](const QString &cores) { return folders.checkSeconds(cores); }),
                               1.8,
                               {}},
                              {"folders: convert to calls of midi2abc",
                               folders.midi2abcSeconds() / folders.writingSeconds(convert, QStringLiteral("0,1")),
                               1,
                               {}}};
    bool isGood = true;
    for (const auto &figure : figures)
        isGood &= report(figure);
    return isGood ? 0 : 1;
}
