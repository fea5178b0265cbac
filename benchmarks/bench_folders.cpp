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
// times.
#include "base/SystemFiles.h"
#include "support/ChildProcess.h"
#include "support/Figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int runs = 7; // of which the fastest counts: the others waited for something

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
    double writingSeconds(const QStringList &words, const QString &cores)
    {
        return seconds([&] {
            const auto output = folder_.filePath(QString::number(++outputs_)) + u'/';
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

    double filesAloneSeconds(const QString &cores)
    {
        return seconds([&] {
            const auto output = folder_.filePath(QString::number(++outputs_));
            return ChildProcess::run({QStringLiteral("taskset"), QStringLiteral("-c"), cores,
                                      QCoreApplication::applicationFilePath(), output})
                .succeeded;
        });
    }

    QString path(const QString &name) const { return folder_.filePath(name); }

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
    const auto writing = [](Folders &folders, const char *command, const QStringList &words) {
        return folders.gain(command, [&](const QString &cores) { return folders.writingSeconds(words, cores); });
    };
    onDisk.gain("files alone, on the disk", [&](const QString &cores) { return onDisk.filesAloneSeconds(cores); });
    writing(onDisk, "convert, on the disk", convert);
    writing(inMemory, "convert, each file once", convert);
    const auto library = inMemory.path(QStringLiteral("library"));
    if (!copyMusic(library, 9))
        throw std::runtime_error("the music cannot be copied");
    const QStringList convertLibrary{QStringLiteral("convert"), library};
    const Figure figures[] = {
        {"folders: convert, two cores to one", writing(inMemory, "convert", convertLibrary), 1.8, {}},
        {"folders: arrange, two cores to one", writing(inMemory, "arrange", arrange), 1.8, {}},
        {"folders: render, two cores to one", writing(inMemory, "render", render), 1.8, {}},
        {"folders: check, two cores to one",
         inMemory.gain("check", [&](const QString &cores) { return inMemory.checkSeconds(cores); }),
         1.8,
         {}},
        {"folders: convert on the disk to calls of midi2abc",
         onDisk.midi2abcSeconds() / onDisk.writingSeconds(convert, QStringLiteral("0,1")),
         1,
         {}}};
    bool isGood = true;
    for (const auto &figure : figures)
        isGood &= report(figure);
    return isGood ? 0 : 1;
}
