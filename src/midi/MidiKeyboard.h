#pragma once

#include "midi/KeyStream.h"
#include "midi/MidiInput.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <mutex>

// The keyboard that is played on: finds its port, also one that is plugged in later, and tells its keys. When it goes
// away all keys are let go. On the interface thread.
class MidiKeyboard : public QObject
{
    Q_OBJECT

public:
    // Called at once with each key, on a thread of the input's own.
    using Sounder = std::function<void(KeyEvent key)>;

    // Instead of a port's name.
    static const QString none;
    static const QString any; // the first that is there

    // Milliseconds of the steady clock. [any]
    static qint64 now();

    // input: may be null, for there is none then. Nothing is open before choose().
    MidiKeyboard(std::unique_ptr<MidiInput> input, Sounder sounder, QObject *parent = nullptr);
    ~MidiKeyboard() override;

    QStringList ports() const;
    void choose(const QString &port);
    QString openPort() const { return open_; } // empty: none

signals:
    // at: milliseconds of the steady clock, when the key moved.
    void keyPressed(int pitch, int velocity, qint64 at);
    void keyReleased(int pitch, qint64 at);
    void openPortChanged();

private:
    struct Timed
    {
        KeyEvent key;
        qint64 at;
    };

    void look();
    void open(const QString &port);
    void close();
    void receive(std::span<const std::uint8_t> bytes);
    void pass(const std::vector<KeyEvent> &keys);
    void deliver();

    static constexpr std::size_t mostWaiting = 4096;

    std::unique_ptr<MidiInput> input_;
    const Sounder sounder_;
    QString chosen_ = none;
    QString open_;
    QTimer looks_;
    KeyStream stream_; // of the input's thread while a port is open
    std::mutex mutex_; // of what follows
    std::vector<Timed> waiting_;
    bool isFlooded_ = false; // keys were lost
};
