// Whole folders on the command line, by the clock: two cores against one, and convert against a call of abcmidi's
// midi2abc for each file. Files: ../shared/corpus beside the source tree when it is there, else the examples.
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
    // cores: as taskset has them.
    double convertSeconds(const QString &cores, const QStringList &options = {})
    {
        return seconds([&] {
            const auto output = folder_.filePath(QString::number(++outputs_));
            const QStringList words{QStringLiteral("convert"), musicFolder(), QStringLiteral("--output"), output};
            return runOn(cores, words + options);
        });
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
    Folders folders;
    const auto one = folders.convertSeconds(QStringLiteral("0"));
    const auto two = folders.convertSeconds(QStringLiteral("0,1"));
    const auto theirs = folders.midi2abcSeconds();
    const auto checkOne = folders.checkSeconds(QStringLiteral("0"));
    const auto checkTwo = folders.checkSeconds(QStringLiteral("0,1"));
    std::printf("convert: %.3f s on one core, %.3f s on two; midi2abc: %.3f s\n", one, two, theirs);
    std::printf("check: %.3f s on one core, %.3f s on two\n", checkOne, checkTwo);
    bool isGood = report({"folders: convert, two cores to one", one / two, 1.8, {}});
    isGood &= report({"folders: check, two cores to one", checkOne / checkTwo, 1.8, {}});
    isGood &= report({"folders: convert to calls of midi2abc", theirs / two, 1, {}});
    return isGood ? 0 : 1;
}
