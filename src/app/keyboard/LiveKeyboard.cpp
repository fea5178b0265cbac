#include "app/keyboard/LiveKeyboard.h"

#include "app/services/EditorWindows.h"

#include <QGuiApplication>
#include <QWindow>

namespace {

// In the thread of the keyboard, which the player does not mind.
MidiKeyboard::Sounder sounderOf(TrackPlayer &player)
{
    return [&player](KeyEvent key) {
        if (key.isPress())
            player.pressKey(key.pitch, key.velocity);
        else
            player.releaseKey(key.pitch);
    };
}

} // namespace

LiveKeyboard::LiveKeyboard(const Window &window, std::unique_ptr<MidiInput> input, QObject *parent)
    : QObject(parent), window_(window), keyboard_(std::move(input), sounderOf(window.player))
{
    connect(&window_.tracks, &TrackList::selectionChanged, this, &LiveKeyboard::chooseSound);
    connect(&window_.tracks, &TrackList::songChanged, this, &LiveKeyboard::chooseSound);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &LiveKeyboard::chooseSound);
    connect(&window_.settings, &Settings::settingChanged, this,
            [this](Settings::Setting setting, const QVariant &port) {
                if (setting == Settings::KeyboardPort)
                    keyboard_.choose(port.toString());
            });
    connect(&keyboard_, &MidiKeyboard::keyPressed, &window_.editors, &EditorWindows::pressKey);
    connect(&keyboard_, &MidiKeyboard::keyReleased, &window_.editors, &EditorWindows::releaseKey);
    connect(&keyboard_, &MidiKeyboard::openPortChanged, this, &LiveKeyboard::chooseSound);
    keyboard_.choose(window_.settings.value(Settings::KeyboardPort).toString());
}

QString LiveKeyboard::part() const
{
    const auto edited = window_.editors.trackInFront();
    if (!edited.isEmpty())
        return edited;
    const auto selected = window_.tracks.selectedIds();
    return selected.isEmpty() ? window_.tracks.ids().value(0) : selected.first();
}

void LiveKeyboard::chooseSound()
{
    if (keyboard_.openPort().isEmpty())
        return;
    const auto *const track = window_.tracks.find(part());
    window_.player.setKeySound(window_.playback.instrument(track ? track->instrument : QString()),
                               track ? gainOf(track->volume) : 1.0F);
}
