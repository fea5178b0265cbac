// Prints what an FMOD library does where its manual leaves it open: for people who have one. See docs/manual/fmod.md.
#include "audio/fmod/FmodLibrary.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstdio>
#include <utility>
#include <vector>

namespace {

using namespace fmodlib;

constexpr int rate = 48000;

void print(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
}

// The library renders one file for each fact.
class Trial
{
public:
    Trial(const FmodLibrary &library, const QString &path) : library_(library), api_(library.api()), path_(path)
    {
        require("System_Create", library_.createSystem(&system_));
        auto name = QFile::encodeName(path);
        require("System_SetSoftwareChannels", api_.systemSetSoftwareChannels(system_, 2048));
        require("System_SetSoftwareFormat", api_.systemSetSoftwareFormat(system_, rate, speakersStereo, 0));
        require("System_SetOutput", api_.systemSetOutput(system_, outputWavWriterNrt));
        require("System_Init", api_.systemInit(system_, 2048, initStreamFromUpdate, name.data()));
        require("System_GetMasterChannelGroup", api_.systemGetMasterChannelGroup(system_, &master_));
    }
    Trial(const Trial &) = delete;
    Trial &operator=(const Trial &) = delete;
    ~Trial()
    {
        if (system_ != nullptr)
            library_.releaseSystem(system_);
    }

    const Api &api() const { return api_; }
    System *system() const { return system_; }
    ChannelGroup *master() const { return master_; }

    ChannelGroup *group() const
    {
        ChannelGroup *made = nullptr;
        require("System_CreateChannelGroup", api_.systemCreateChannelGroup(system_, "group", &made));
        return made;
    }
    Sound *sound(std::vector<float> samples, int channels) const
    {
        SoundInfo info;
        info.size = library_.soundInfoSize();
        info.length = unsigned(samples.size() * sizeof(float));
        info.channels = channels;
        info.frequency = rate;
        info.format = formatFloat;
        Sound *made = nullptr;
        require("System_CreateSound", api_.systemCreateSound(system_, reinterpret_cast<const char *>(samples.data()),
                                                             modeRawSample, &info, &made));
        return made;
    }
    Channel *play(Sound *sound, ChannelGroup *group) const
    {
        Channel *channel = nullptr;
        require("System_PlaySound", api_.systemPlaySound(system_, sound, group, 1, &channel));
        return channel;
    }
    void begin(Channel *channel, Clock start, Clock end = 0) const
    {
        require("Channel_SetDelay", api_.channelSetDelay(channel, start, end, 1));
        require("Channel_SetPaused", api_.channelSetPaused(channel, 0));
    }
    void update(int times = 1) const
    {
        for (int i = 0; i < times; ++i)
            require("System_Update", api_.systemUpdate(system_));
    }
    QString clocks(ChannelGroup *group) const
    {
        Clock own = 0, parent = 0;
        const auto result = api_.groupGetDspClock(group, &own, &parent);
        return QStringLiteral("own %1, parent %2, result %3").arg(own).arg(parent).arg(result);
    }

    // Its bytes.
    QByteArray end()
    {
        if (auto *const system = std::exchange(system_, nullptr); system != nullptr)
            require("System_Release", library_.releaseSystem(system));
        QFile file(path_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // Samples of both sides at these frames.
    QString at(std::initializer_list<int> frames)
    {
        const auto bytes = end();
        QString text;
        for (const int frame : frames) {
            const auto pair = bytes.mid(44 + 4 * frame, 4);
            if (pair.size() == 4)
                text += QStringLiteral("[%1] %2 %3  ")
                            .arg(frame)
                            .arg(qFromLittleEndian<qint16>(pair.constData()))
                            .arg(qFromLittleEndian<qint16>(pair.constData() + 2));
        }
        return text;
    }

private:
    static void require(const char *call, Result result)
    {
        if (result != 0)
            throw QStringLiteral("%1: FMOD Error: %2").arg(QLatin1String(call), QString::fromUtf8(textOf(result)));
    }

    const FmodLibrary &library_;
    const Api &api_;
    QString path_;
    System *system_ = nullptr;
    ChannelGroup *master_ = nullptr;
};

std::vector<float> level(int frames, int channels)
{
    return std::vector<float>(std::size_t(frames * channels), 0.5F);
}

void tellClocks(Trial &trial)
{
    unsigned frames = 0;
    int count = 0, rateNow = 0, speakers = 0, raw = 0;
    trial.api().systemGetDspBufferSize(trial.system(), &frames, &count);
    trial.api().systemGetSoftwareFormat(trial.system(), &rateNow, &speakers, &raw);
    print(QStringLiteral("block %1 x %2, rate %3, speakers %4").arg(frames).arg(count).arg(rateNow).arg(speakers));
    auto *const early = trial.group();
    print(QStringLiteral("master at first: ") + trial.clocks(trial.master()));
    trial.update(3);
    auto *const late = trial.group();
    print(QStringLiteral("master after 3 updates: ") + trial.clocks(trial.master()));
    print(QStringLiteral("a group from the start: ") + trial.clocks(early));
    print(QStringLiteral("a new group: ") + trial.clocks(late));
    trial.update(2);
    print(QStringLiteral("that group 2 updates later: ") + trial.clocks(late));
}

void tellFades(Trial &trial)
{
    auto *const sound = trial.sound(level(9000, 2), 2);
    auto *const channel = trial.play(sound, trial.group());
    trial.api().channelAddFadePoint(channel, 2000, 1);
    trial.api().channelAddFadePoint(channel, 3000, 0.5F);
    trial.begin(channel, 1000, 5000);
    trial.update(6);
    print(QStringLiteral("start 1000, points (2000, 1) (3000, 0.5), end 5000: ") +
          trial.at({999, 1000, 1500, 1999, 2000, 2500, 3000, 4000, 4999, 5000}));
}

void tellLateStart(Trial &trial)
{
    trial.update(2);
    auto *const channel = trial.play(trial.sound(level(9000, 2), 2), nullptr);
    trial.begin(channel, 100);
    trial.update(3);
    print(QStringLiteral("a start of 100 that is past: ") + trial.at({0, 2047, 2048, 2049, 3000, 4500}));
}

void tellPan(Trial &trial, int channels, float pan)
{
    auto *const group = trial.group();
    const auto result = trial.api().groupSetPan(group, pan);
    trial.begin(trial.play(trial.sound(level(4000, channels), channels), group), 0);
    trial.update(3);
    print(QStringLiteral("%1 channel(s), pan %2 (result %3): %4")
              .arg(channels)
              .arg(double(pan))
              .arg(result)
              .arg(trial.at({0, 10, 2000, 3999, 4000})));
}

void tellFrequency(Trial &trial)
{
    std::vector<float> ramp;
    for (int i = 0; i < 4000; ++i)
        ramp.insert(ramp.end(), 2, float(i) / 32768);
    auto *const sound = trial.sound(ramp, 2);
    trial.begin(trial.play(sound, nullptr), 0);
    auto *const slow = trial.play(sound, nullptr);
    trial.api().channelSetFrequency(slow, rate / 2.0F);
    trial.begin(slow, 5000);
    trial.update(14);
    print(QStringLiteral("a ramp of 0 1 2 ..., and from 5000 on at half the speed: ") +
          trial.at({0, 1, 2, 3, 1000, 3999, 4000, 5000, 5001, 5002, 5003, 7000, 12999, 13000, 13001}));
}

void tellMeter(Trial &trial)
{
    auto *const group = trial.group();
    Dsp *head = nullptr;
    trial.api().groupGetDsp(group, dspHead, &head);
    trial.api().dspSetMeteringEnabled(head, 0, 1);
    trial.api().groupSetVolume(group, 0.5F);
    trial.api().groupSetPan(group, -1);
    trial.begin(trial.play(trial.sound(level(9000, 2), 2), group), 0);
    trial.update(4);
    MeteringInfo info;
    const auto result = trial.api().dspGetMeteringInfo(head, nullptr, &info);
    print(QStringLiteral("meter of level 0.5, volume 0.5, pan -1: peak %1 %2, rms %3 %4, channels %5, samples %6, "
                         "result %7")
              .arg(double(info.peak[0]))
              .arg(double(info.peak[1]))
              .arg(double(info.rms[0]))
              .arg(double(info.rms[1]))
              .arg(info.channels)
              .arg(info.samples)
              .arg(result));
}

void tellFile(Trial &trial)
{
    trial.update(2);
    const auto bytes = trial.end();
    print(QStringLiteral("a file of 2 silent blocks has %1 bytes; it begins %2")
              .arg(bytes.size())
              .arg(QString::fromLatin1(bytes.left(64).toHex(' '))));
}

void tellAll(const FmodLibrary &library)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("facts.wav"));
    const auto tell = [&](const auto &fact) {
        QFile::remove(path);
        try {
            Trial trial(library, path);
            fact(trial);
        } catch (const QString &failure) {
            print(failure);
        }
    };
    print(QStringLiteral("FMOD %1: %2").arg(library.versionText(), library.file()));
    tell(tellClocks);
    tell(tellFades);
    tell(tellLateStart);
    for (const int channels : {1, 2}) {
        for (const float pan : {-1.0F, -0.5F, 0.0F, 0.5F, 1.0F})
            tell([=](Trial &trial) { tellPan(trial, channels, pan); });
    }
    tell(tellFrequency);
    tell(tellMeter);
    tell(tellFile);
    print(QStringLiteral("end of the facts"));
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        tellAll(*FmodLibrary::find(QCoreApplication::arguments().value(1), {}));
    } catch (const QString &failure) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(failure));
        return 1;
    }
    return 0;
}
