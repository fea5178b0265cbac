#include "midi/MidiKeyboard.h"
#include "midi/RtMidiInput.h"
#include "support/PlayedKeyboard.h"
#include "support/Rows.h"

namespace {

// What RtMidi shows of a computer whose devices the test names. One that is called broken does not open.
class PluggedIn : public RtMidi
{
public:
    explicit PluggedIn(std::vector<std::string> names) : names_(std::move(names)) {}
    ~PluggedIn() override = default;

    void openPort(unsigned port, const std::string &) override { open_ = names_[port]; }
    void openVirtualPort(const std::string &) override {}
    unsigned getPortCount() override { return unsigned(names_.size()); }
    std::string getPortName(unsigned port) override { return names_[port]; }
    void closePort() override { open_.clear(); }
    bool isPortOpen() const override { return !open_.empty() && open_ != "Broken"; }
    void setErrorCallback(RtMidiErrorCallback, void *) override {}

    std::string open() const { return open_; }

private:
    const std::vector<std::string> names_;
    std::string open_;
};

} // namespace

class TestMidiKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void keysOfBytes_data()
    {
        const Rows<QString, QString> row("bytes", "keys");
        row("press and release", "90 3c 40 80 3c 7f 80 3c 00", "60+64 60-");
        row("velocity 0", "95 3c 01 95 3c 00", "60+1 60-");
        row("running status", "90 3c 40 3e 41 3c 00", "60+64 62+65 60-");
        row("real time in between", "90 f8 3c fe 40 3e ff 41", "60+64 62+65");
        row("system ends the running status", "90 3c 40 f0 3e 41 f7 3e 41 f1 3e 41", "60+64");
        row("other messages", "c0 3c 90 3c 40 d0 3e e0 3e 41 a0 3c 40 b0 07 40", "60+64");
        row("all notes off", "90 3c 40 91 3e 41 b0 7b 00 80 3c 00", "60+64 62+65 60- 62-");
        row("up without down", "80 3c 40 90 3c 00", "");
        row("down twice", "90 3c 40 90 3c 50 80 3c 00", "60+64 60+80 60-");
        row("up twice", "90 3c 40 80 3c 00 80 3c 00", "60+64 60-");
        row("cut", "90 3c", "");
        row("data only", "3c 40 3c 40", "");
    }

    void keysOfBytes()
    {
        QFETCH(QString, bytes);
        const auto raw = QByteArray::fromHex(bytes.toLatin1());
        QStringList keys;
        for (const auto &[pitch, velocity] :
             KeyStream().take({reinterpret_cast<const std::uint8_t *>(raw.data()), std::size_t(raw.size())}))
            keys.append(velocity > 0 ? QStringLiteral("%1+%2").arg(pitch).arg(velocity)
                                     : QStringLiteral("%1-").arg(pitch));
        QTEST(keys.join(u' '), "keys");
    }

    void portsComeAndGo()
    {
        PlayedKeyboard::State device;
        QStringList told;
        MidiKeyboard keyboard(std::make_unique<PlayedKeyboard>(device), [](KeyEvent) {});
        connect(&keyboard, &MidiKeyboard::keyPressed, this,
                [&](int pitch) { told.append(QStringLiteral("%1+").arg(pitch)); });
        connect(&keyboard, &MidiKeyboard::keyReleased, this,
                [&](int pitch) { told.append(QStringLiteral("%1-").arg(pitch)); });
        keyboard.choose(MidiKeyboard::any);
        QVERIFY(keyboard.openPort().isEmpty());
        device.ports = QStringList{QStringLiteral("Piano"), QStringLiteral("Organ")};
        keyboard.choose(MidiKeyboard::any);
        QCOMPARE(keyboard.openPort(), QStringLiteral("Piano"));
        device.play({0x90, 60, 64});
        device.ports = QStringList(QStringLiteral("Organ")); // pulled out with a key held
        keyboard.choose(MidiKeyboard::any);
        QCOMPARE(keyboard.openPort(), QStringLiteral("Organ"));
        keyboard.choose(QStringLiteral("Piano"));
        QVERIFY(keyboard.openPort().isEmpty());
        keyboard.choose(MidiKeyboard::none);
        QVERIFY(device.open.isEmpty());
        QTRY_COMPARE(told, (QStringList{QStringLiteral("60+"), QStringLiteral("60-")}));
    }

    // Through what sends only what programs say comes last; numbers that differ from day to day are no part of a name.
    void devicesOfTheSystem()
    {
        std::weak_ptr<PluggedIn> system;
        RtMidiIn::RtMidiCallback callback = nullptr;
        void *to = nullptr;
        const auto input = rtMidiInput([&](RtMidiIn::RtMidiCallback receive, void *receiver) {
            callback = receive;
            to = receiver;
            const auto started = std::make_shared<PluggedIn>(
                std::vector<std::string>{"Midi Through:Port-0 14:0", "Piano:MIDI 1 20:0", "Broken"});
            system = started;
            return started;
        });
        const auto piano = QStringLiteral("Piano:MIDI 1");
        QCOMPARE(input->ports(), (QStringList{piano, QStringLiteral("Broken"), QStringLiteral("Midi Through:Port-0")}));
        std::vector<std::uint8_t> heard;
        const auto hear = [&](std::span<const std::uint8_t> bytes) { heard.assign(bytes.begin(), bytes.end()); };
        QVERIFY(!input->open(QStringLiteral("Organ"), hear));
        QVERIFY(!input->open(QStringLiteral("Broken"), hear));
        QVERIFY(input->open(piano, hear));
        QCOMPARE(system.lock()->open(), std::string("Piano:MIDI 1 20:0"));
        std::vector<std::uint8_t> message{0x90, 60, 64};
        callback(0, &message, to);
        callback(0, nullptr, to);
        QCOMPARE(heard, message);
        input->close();
        QVERIFY(system.expired());
        const auto none = rtMidiInput([](RtMidiIn::RtMidiCallback, void *) { return nullptr; });
        QVERIFY(none->ports().isEmpty() && !none->open(piano, hear));
    }

    // What nobody takes is bounded, and no key hangs because of it.
    void bearsFloods()
    {
        PlayedKeyboard::State device{QStringList(QStringLiteral("Piano")), {}, {}};
        int sounds = 0, presses = 0;
        QSet<int> held;
        MidiKeyboard keyboard(std::make_unique<PlayedKeyboard>(device), [&](KeyEvent key) { sounds += key.isPress(); });
        connect(&keyboard, &MidiKeyboard::keyPressed, this, [&](int pitch) {
            ++presses;
            held.insert(pitch);
        });
        connect(&keyboard, &MidiKeyboard::keyReleased, this, [&](int pitch) { held.remove(pitch); });
        keyboard.choose(MidiKeyboard::any);
        for (int i = 0; i < 20'000; ++i)
            device.play({0x90, i % 128, 64});
        QTRY_VERIFY(presses > 0);
        QVERIFY(presses < 5000);
        QCOMPARE(sounds, presses);
        QVERIFY(held.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestMidiKeyboard)
#include "test_midi_keyboard.moc"
