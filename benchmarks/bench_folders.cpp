// Whole folders on the command line, by the clock: two cores against one, and convert against a call of abcmidi's
// midi2abc for each file. Files: ../shared/corpus beside the source tree when it is there, else the examples, of which
// the sound is rendered in any case. What is written stays until all is measured, since some file systems are slow to
// make files where others were just deleted.
//
// Two cores are held against one where files are written to memory, since a disk's file system makes, synchronises and
// names the files of a folder one after the other: on ext4 as many files of that size as convert makes, written by
// threads that do nothing else, took 92 ms on one core and 88 ms on two, in memory 41 and 22. The program measures that
// again ("files alone"), and convert on the disk beside it. Converting a hundred files takes so little time that
// loading the program's libraries, which is done by one core, is a tenth of it; so convert is given each file several
// times. What else the machine does takes from two cores, but not from one, beside which another is free.
#include "base/SystemFiles.h"
#include "support/ChildProcess.h"
#include "support/Figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int runs = 9; // of which the fastest counts: the others waited for something

QString musicFolder()
{
    const QDir corpus(QStringLiteral(COMPOSER_SOURCE_DIR "/../shared/corpus/mid"));
    return corpus.exists() ? corpus.path() : QStringLiteral(COMPOSER_SOURCE_DIR "/examples");
}

// A folder with each file so many times, under other names.
bool copyMusic(const QString &folder, int times)
{
    const QDir from(musicFolder());
    bool isCopied = QDir().mkpath(folder);
    for (const auto &name : from.entryList({QStringLiteral("*.mid")}, QDir::Files)) {
        for (int i = 1; i <= times; ++i)
            isCopied &= QFile::copy(from.filePath(name), QDir(folder).filePath(QString::number(i) + u'-' + name));
    }
    return isCopied;
}

using Work = std::function<bool()>;

// How long each takes. They take turns, so that what else the machine does meets all of them.
template<std::size_t N>
std::array<double, N> seconds(const std::array<Work, N> &works)
{
    std::array<double, N> fastest;
    fastest.fill(1e9);
    for (int i = 0; i < runs; ++i) {
        for (std::size_t work = 0; work < N; ++work) {
            QElapsedTimer timer;
            timer.start();
            if (!works[work]())
                throw std::runtime_error("a program failed");
            fastest[work] = std::min(fastest[work], double(timer.nsecsElapsed()) / 1e9);
        }
    }
    return fastest;
}

QString templateIn(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("bench_folders-XXXXXX"));
}

QString memoryFolder()
{
    const auto memory = QStringLiteral("/dev/shm");
    return QDir(memory).exists() ? memory : QDir::tempPath();
}

// What this program does when it is started with a folder: as many files as convert writes, in groups that are
// synchronised together, by as many threads.
int writeFilesAlone(const std::filesystem::path &folder)
{
    constexpr int files = 960;
    constexpr int inGroup = 8;
    const std::string bytes(6000, 'c');
    std::filesystem::create_directory(folder);
    std::atomic<int> next = 0;
    const auto write = [&] {
        for (int first = next.fetch_add(inGroup); first < files; first = next.fetch_add(inGroup)) {
            std::vector<SystemFiles::OpenFile> group;
            const auto nameOf = [&](std::size_t i) { return folder / (std::to_string(first + int(i)) + ".saving"); };
            for (std::size_t i = 0; i < inGroup; ++i) {
                group.push_back(SystemFiles::OpenFile::createNew(nameOf(i)));
                group.back().write(bytes);
                group.back().beginSynchronising();
            }
            for (std::size_t i = 0; i < inGroup; ++i) {
                group[i].synchronise();
                SystemFiles::moveToNew(std::filesystem::path(nameOf(i)).replace_extension("abc"), nameOf(i));
            }
        }
    };
    std::vector<std::jthread> threads;
    for (int i = 0; i < 16; ++i)
        threads.emplace_back(write);
    threads.clear();
    SystemFiles::synchroniseFolder(folder);
    return 0;
}

class Folders
{
public:
    explicit Folders(const QString &inFolder) : folder_(templateIn(inFolder)) {}

    // words: the command with its options, without the output, which is a new folder each time (the "/" says so to
    // render). cores: as taskset has them.
    Work writing(const QStringList &words, const QString &cores)
    {
        return [this, words, cores] {
            const auto output = folder_.filePath(QString::number(++outputs_)) + u'/';
            return runOn(cores, words + QStringList{QStringLiteral("--output"), output});
        };
    }

    Work writingFilesAlone(const QString &cores)
    {
        return [this, cores] {
            const auto output = folder_.filePath(QString::number(++outputs_));
            return ChildProcess::run({QStringLiteral("taskset"), QStringLiteral("-c"), cores,
                                      QCoreApplication::applicationFilePath(), output})
                .succeeded;
        };
    }

    Work midi2abc()
    {
        return [this] {
            const QDir music(musicFolder());
            for (const auto &file : music.entryList({QStringLiteral("*.mid")}, QDir::Files))
                ChildProcess::run({QStringLiteral("midi2abc"), music.filePath(file), QStringLiteral("-o"),
                                   folder_.filePath(file + QStringLiteral(".abc"))});
            return true;
        };
    }

    QString path(const QString &name) const { return folder_.filePath(name); }

    static bool runOn(const QString &cores, const QStringList &words)
    {
        const QStringList command{QStringLiteral("taskset"), QStringLiteral("-c"), cores, QStringLiteral(COMPOSER_CLI)};
        return ChildProcess::run(command + words).succeeded;
    }

private:
    QTemporaryDir folder_;
    int outputs_ = 0;
};

const auto oneCore = QStringLiteral("0");
const auto twoCores = QStringLiteral("0,1");

Work checking(const QString &cores)
{
    return [cores] {
        const QStringList words{QStringLiteral("check"), QStringLiteral("--game"), QStringLiteral(DEMO_GAME)};
        Folders::runOn(cores, words + QStringList(musicFolder())); // which finds something
        return true;
    };
}

// Gives how much faster two cores are, and prints both.
double gain(const char *command, const Work &onOne, const Work &onTwo)
{
    const auto [one, two] = seconds<2>({onOne, onTwo});
    std::printf("%s: %.3f s on one core, %.3f s on two\n", command, one, two);
    return one / two;
}

double gain(const char *command, Folders &folders, const QStringList &words)
{
    return gain(command, folders.writing(words, oneCore), folders.writing(words, twoCores));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc > 1)
        return writeFilesAlone(argv[1]);
    const auto music = musicFolder();
    const QStringList convert{QStringLiteral("convert"), music};
    const QStringList arrange{QStringLiteral("arrange"), music, QStringLiteral("--players"), QStringLiteral("4")};
    const QStringList render{QStringLiteral("render"),
                             QStringLiteral(COMPOSER_SOURCE_DIR "/examples/songs/night-market"),
                             QStringLiteral("--game"), QStringLiteral(DEMO_GAME)};
    Folders inMemory(memoryFolder());
    Folders onDisk(QDir::tempPath());
    gain("files alone, on the disk", onDisk.writingFilesAlone(oneCore), onDisk.writingFilesAlone(twoCores));
    gain("convert, on the disk", onDisk, convert);
    gain("convert, each file once", inMemory, convert);
    const auto library = inMemory.path(QStringLiteral("library"));
    if (!copyMusic(library, 9))
        throw std::runtime_error("the music cannot be copied");
    const auto libraryGain = gain("convert", inMemory, {QStringLiteral("convert"), library});
    const auto [calls, call] = seconds<2>({onDisk.midi2abc(), onDisk.writing(convert, twoCores)});
    const Figure figures[] = {
        {"folders: convert, two cores to one", libraryGain, 1.8, {}},
        {"folders: arrange, two cores to one", gain("arrange", inMemory, arrange), 1.8, {}},
        {"folders: render, two cores to one", gain("render", inMemory, render), 1.8, {}},
        {"folders: check, two cores to one", gain("check", checking(oneCore), checking(twoCores)), 1.8, {}},
        {"folders: convert on the disk to calls of midi2abc", calls / call, 1, {}}};
    bool isGood = true;
    for (const auto &figure : figures)
        isGood &= report(figure);
    return isGood ? 0 : 1;
}
