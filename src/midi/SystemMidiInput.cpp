#include "midi/SystemMidiInput.h"

#include "midi/RtMidiInput.h"

#include <QRegularExpression>

#include <filesystem>
#include <utility>

namespace {

constexpr auto ignoreError = [](RtMidiError::Type, const std::string &, void *) {};

// ALSA complains on standard error where there is no sequencer.
bool isThere()
{
#ifdef __LINUX_ALSA__
    std::error_code error;
    return std::filesystem::exists("/dev/snd/seq", error);
#else
    return true;
#endif
}

RtMidi::Api usedApi()
{
#ifdef __LINUX_ALSA__
    return RtMidi::LINUX_ALSA;
#else
    return RtMidi::UNSPECIFIED;
#endif
}

// Without the numbers that ALSA gives a device each time that it is plugged in.
QString lastingName(const std::string &name)
{
    static const QRegularExpression numbers(QStringLiteral("\\s+\\d+:\\d+\\z"));
    return QString::fromStdString(name).remove(numbers);
}

// A port that only hands on what programs send each other.
bool isThrough(const QString &name)
{
    return name.startsWith(QLatin1String("Midi Through"));
}

class RtMidiPorts : public MidiInput
{
public:
    explicit RtMidiPorts(RtMidiStarter start) : start_(std::move(start)) {}

    QStringList ports() override
    {
        QStringList keyboards, others;
        for (const auto &name : names())
            (isThrough(name) ? others : keyboards).append(name);
        return keyboards + others;
    }

    bool open(const QString &port, Receiver receiver) override
    {
        close();
        const auto index = names().indexOf(port);
        if (index < 0)
            return false;
        receiver_ = std::move(receiver);
        in_->openPort(unsigned(index), "Keyboard");
        if (!in_->isPortOpen())
            close();
        return in_ != nullptr;
    }

    // Its end waits for the thread that calls back.
    void close() override { in_.reset(); }

private:
    static void receive(double, std::vector<unsigned char> *message, void *input)
    {
        if (message)
            static_cast<RtMidiPorts *>(input)->receiver_(*message);
    }

    QStringList names()
    {
        if (!in_)
            in_ = start_(receive, this);
        QStringList names;
        for (unsigned port = 0; in_ && port < in_->getPortCount(); ++port)
            names.append(lastingName(in_->getPortName(port)));
        return names;
    }

    const RtMidiStarter start_;
    Receiver receiver_; // outlives who calls it
    std::shared_ptr<RtMidi> in_;
};

std::shared_ptr<RtMidi> startRtMidi(RtMidiIn::RtMidiCallback receive, void *input)
{
    if (!isThere())
        return nullptr;
    try {
        auto in = std::make_shared<RtMidiIn>(usedApi(), "Kelvarion Composer");
        in->setErrorCallback(ignoreError); // what fails is seen by what is not there then
        in->ignoreTypes(true, true, true); // system exclusive, time and sensing
        in->setCallback(receive, input);
        return in;
    } catch (const RtMidiError &) {
        return nullptr;
    }
}

} // namespace

std::unique_ptr<MidiInput> systemMidiInput()
{
    return rtMidiInput(startRtMidi);
}

std::unique_ptr<MidiInput> rtMidiInput(RtMidiStarter start)
{
    return std::make_unique<RtMidiPorts>(std::move(start));
}
