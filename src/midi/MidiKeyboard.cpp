#include "midi/MidiKeyboard.h"

#include <chrono>
#include <utility>

qint64 MidiKeyboard::now()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
}

const QString MidiKeyboard::none = QStringLiteral("none");
const QString MidiKeyboard::any = QString();

MidiKeyboard::MidiKeyboard(std::unique_ptr<MidiInput> input, Sounder sounder, QObject *parent)
    : QObject(parent), input_(std::move(input)), sounder_(std::move(sounder))
{
    constexpr int pause = 3000;
    looks_.setInterval(pause);
    looks_.setTimerType(Qt::VeryCoarseTimer);
    connect(&looks_, &QTimer::timeout, this, &MidiKeyboard::look);
}

MidiKeyboard::~MidiKeyboard()
{
    if (input_)
        input_->close();
}

QStringList MidiKeyboard::ports() const
{
    return input_ ? input_->ports() : QStringList();
}

void MidiKeyboard::choose(const QString &port)
{
    chosen_ = port;
    if (!input_)
        return;
    look();
    if (chosen_ == none)
        looks_.stop();
    else
        looks_.start();
}

void MidiKeyboard::look()
{
    const auto there = chosen_ == none ? QStringList() : ports();
    const auto wanted = chosen_ == any ? there.value(0) : there.contains(chosen_) ? chosen_ : QString();
    const bool isKept = chosen_ == any && there.contains(open_); // also when another one is first now
    if (wanted != open_ && !isKept)
        open(wanted);
}

void MidiKeyboard::open(const QString &port)
{
    close();
    const auto take = [this](std::span<const std::uint8_t> bytes) { receive(bytes); };
    if (!port.isEmpty() && input_->open(port, take))
        open_ = port;
    emit openPortChanged();
}

void MidiKeyboard::close()
{
    input_->close();
    pass(stream_.end());
    open_.clear();
}

void MidiKeyboard::receive(std::span<const std::uint8_t> bytes)
{
    pass(stream_.take(bytes));
}

// Where more comes than is taken, the rest is lost.
void MidiKeyboard::pass(const std::vector<KeyEvent> &keys)
{
    const auto at = now();
    for (const auto &key : keys) {
        const std::lock_guard lock(mutex_);
        if (waiting_.size() == mostWaiting) {
            isFlooded_ = true;
            return;
        }
        if (waiting_.empty())
            QMetaObject::invokeMethod(this, &MidiKeyboard::deliver, Qt::QueuedConnection);
        waiting_.push_back({key, at});
        sounder_(key);
    }
}

void MidiKeyboard::deliver()
{
    std::vector<Timed> keys;
    bool wasFlooded = false;
    {
        const std::lock_guard lock(mutex_);
        keys.swap(waiting_);
        wasFlooded = std::exchange(isFlooded_, false);
    }
    for (const auto &[key, at] : keys) {
        if (key.isPress())
            emit keyPressed(key.pitch, key.velocity, at);
        else
            emit keyReleased(key.pitch, at);
    }
    for (std::uint8_t pitch = 0; wasFlooded && pitch < 128; ++pitch) { // it is not known what is held
        sounder_({pitch, 0});
        emit keyReleased(pitch, now());
    }
}
