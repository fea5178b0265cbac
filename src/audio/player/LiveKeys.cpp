#include "audio/player/LiveKeys.h"

void LiveKeys::press(const Instrument &instrument, quint8 pitch, float gain)
{
    auto &key = keys_.try_emplace(pitch, engine_, checker_, feed_).first->second;
    key.stop();
    key.play(instrument, pitch, gain);
}

void LiveKeys::release(quint8 pitch)
{
    if (const auto key = keys_.find(pitch); key != keys_.end())
        key->second.stop();
}

void LiveKeys::pass()
{
    for (auto &[pitch, key] : keys_)
        key.pass();
}
