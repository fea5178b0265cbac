#pragma once

#include "SampleFiles.h"
#include "audio/player/PlayRequest.h"

#include <functional>
#include <optional>
#include <random>
#include <vector>

// A user who presses everything: requests in random order to a TrackPlayer, or to a PlayerWorker on its thread.
class RandomRequests
{
public:
    RandomRequests()
    {
        for (int i = 0; i < 4; ++i) {
            auto instrument = instrumentOf(files_.level(qint16(1000 + i), 20000 + i), 0.02 * i);
            for (auto &note : instrument.tuning.notes)
                note.rate = 0.8 + 0.1 * i;
            instruments_.append(instrument);
            melodies_.append(melody());
        }
    }

    const SampleFiles &files() const { return files_; }
    const Track &anyMelody() { return melodies_[int(pick(4))]; }
    const Instrument &anyInstrument() { return instruments_[int(pick(4))]; }
    unsigned pick(unsigned count) { return unsigned(random_() % count); }

    template<typename Player>
    std::function<void(Player &)> next()
    {
        const auto id = QString::number(pick(6)), group = QStringLiteral("Main");
        const auto melody = anyMelody();
        const auto instrument = anyInstrument();
        const bool flag = pick(2) == 0;
        const auto tick = pick(400'000);
        const auto level = float(pick(10)) / 10;
        const std::function<void(Player &)> requests[] = {
            [=](Player &player) {
                player.playTrack({id, melody, instrument, {level, 0}, QString(), flag});
            },
            [=](Player &player) {
                player.playTrack({id, melody, instrument, {1, -level}, group, flag});
            },
            [=](Player &player) {
                player.playTrack({id, melody, instrument, {}, group, flag, PlayRequest::Begin::WithTheGroup});
            },
            [=](Player &player) {
                player.playTracks({{.trackId = id, .track = melody, .instrument = instrument, .syncGroup = group},
                                   {.trackId = id + id,
                                    .track = melody,
                                    .instrument = instrument,
                                    .syncGroup = group,
                                    .from = tick / 2,
                                    .offset = 300 * double(level) - 150},
                                   {.trackId = id,
                                    .track = flag ? melody : Track(),
                                    .instrument = instrument,
                                    .begin = PlayRequest::Begin::BeforeTheOthers}});
            },
            [=](Player &player) {
                player.setLoop(flag ? std::optional(LoopRegion{tick, tick + Ticks(200 + tick % 9000)}) : std::nullopt);
            },
            [=](Player &player) { player.setTempoFactor(0.25 + double(level)); },
            [=](Player &player) { player.setOffset(id, 100 * double(level) - 50); },
            [=](Player &player) { player.stopTrack(id); },
            [=](Player &player) { tick % 8 == 0 ? player.stopAll() : player.stopTrack(id); }, // rarely: notes need time
            [=](Player &player) { player.seek(id, tick); },
            [=](Player &player) { player.seekSynced(tick, group); },
            [=](Player &player) { player.seekAll(tick); },
            [=](Player &player) { player.muteTrack(id, flag); },
            [=](Player &player) { player.changeInstrument(id, instrument); },
            [=](Player &player) { player.precacheInstrument(instrument, melody); },
            [=](Player &player) { player.setVolume(id, level); },
            [=](Player &player) { player.setPan(id, level); },
            [=](Player &player) { player.setMasterVolume(level); },
            [=](Player &player) { player.playPreviewNote(instrument, 30 + tick % 60); },
            [=](Player &player) { player.stopPreviewNote(); },
        };
        return requests[pick(std::size(requests))];
    }

private:
    Track melody()
    {
        QVector<TrackEvent> events;
        Ticks start = 0;
        for (int i = 0; i < 400; ++i) {
            events.append(TrackEvent::note(40 + pick(40), start, Ticks(500 + pick(9000)), 0.1F));
            start += Ticks(pick(2000));
        }
        return trackOf(events);
    }

    std::mt19937 random_{11};
    SampleFiles files_;
    QVector<Instrument> instruments_;
    QVector<Track> melodies_;
};
