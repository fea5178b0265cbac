#pragma once

#include "audio/samples/SampleReader.h"
#include "audio/samples/SoundStore.h"
#include "base/JobPool.h"

#include <QHash>
#include <QPair>
#include <QSet>

#include <mutex>
#include <vector>

// What a note will play, and when.
struct SampleNeed
{
    QString path;             // a name for readGameFile; empty: silence
    double rate = 1;          // factor on the sample's own speed
    std::uint64_t frames = 0; // output frames that the note sounds for
    std::uint64_t clock = 0;  // at which it begins
};

// The samples that the notes to come will need, loaded beside the thread that plays them and in the order in which they
// are wanted, within a number of bytes. Where these do not suffice, what comes later waits until what sounds sooner has
// begun. A sample that is missing or damaged is one warning and silence. [audio]
class SampleFeed
{
public:
    enum class State { Ready, Loading, Silent };
    struct Found
    {
        State state = State::Silent;
        Sound sound = {};
        double ratio = 1; // source frames per output frame
    };
    // Called on the feed's own thread.
    struct Host
    {
        std::function<void(const QString &path)> beforeLoading; // reading and decoding
        std::function<void(const QString &text)> warn;
    };

    // threads: that load; with none, the feed's own does so in work(). Waits at its end for what is being loaded.
    SampleFeed(SampleReader::Decode decode, int sampleRate, Host host, int threads,
               std::size_t byteLimit = std::size_t(256) << 20);

    // A sound under a name that no file has; it is always there.
    void provide(const QString &path, const Sound &sound) { provided_.insert(path, sound); }

    // What is there for a note.
    Found find(const SampleNeed &need);
    // That it be there. False when so much is waiting already that it is to be asked again later.
    bool want(const SampleNeed &need);
    // Before what is not late. To be said again as long as it is awaited.
    void wantNow(const SampleNeed &need);
    // It is missing or damaged: so its notes are silent.
    bool isRejected(const QString &path) const { return rejected_.contains(path); }
    // What was missing may be there again, as after a drive was gone.
    void tryAgain() { rejected_.clear(); }
    // Nothing is wanted any more; what is there stays while there is room.
    void forgetWants();

    // To be called often: takes what has been loaded and begins what comes next.
    void work(std::uint64_t now);
    // Nothing is being loaded, for there is nothing to load or no room.
    bool isIdle() const { return underWay_ == 0; }
    // Something could not begin for lack of room in the last work().
    bool lacksRoom() const { return lacksRoom_; }

private:
    using Pitch = QPair<QString, double>; // a sample's path and the factor on its speed, or 0: as it was decoded
    using Take = std::function<void()>;   // on the feed's thread
    enum class Step { Served, Began, Waits };
    struct Waiting
    {
        SampleNeed need;     // the first
        std::uint64_t until; // the clock of the last that it serves
        bool isLate = false;
    };

    static Pitch decodedOf(const QString &path) { return {path, 0}; }
    Sound findDecoded(const SampleNeed &need);
    void keepFor(const SampleNeed &need, std::uint64_t until);
    Waiting *waitingFor(const SampleNeed &need);
    Step advance(const Waiting &waiting);
    Step beginOpening(const SampleNeed &need);
    Step beginDecoding(const SampleNeed &need);
    Step beginResampling(const SampleNeed &need, const Sound &sound);
    bool reserve(const SampleNeed &need, std::size_t bytes);
    Step begin(const Pitch &busy, std::size_t bytes, std::function<Take()> work);
    void take(const Take &taken, const Pitch &busy, std::size_t bytes);
    void takeLoaded();
    void reject(const QString &path, const QString &reason);

    static constexpr std::size_t mostWaiting = 64;

    SampleReader reader_;
    Host host_;
    std::size_t byteLimit_;
    SoundStore<Pitch> sounds_;
    std::vector<Waiting> waiting_; // in the order in which they begin
    QHash<QString, SampleReader::Opened> opened_;
    QSet<Pitch> busy_;
    QHash<QString, Sound> provided_;
    QSet<QString> rejected_;
    QSet<QString> warnedAbout_;
    std::uint64_t now_ = 0;
    std::size_t reserved_ = 0; // bytes of what is being loaded
    int underWay_ = 0;
    bool lacksRoom_ = false;
    int threads_;
    std::mutex mutex_; // of what follows
    std::vector<Take> loaded_;
    std::unique_ptr<JobPool> pool_; // behind what its jobs use; null without threads
};
