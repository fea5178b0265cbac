#include "audio/engine/PacedOutput.h"

#include <SDL.h>
#include <chrono>

namespace {

constexpr int queuedBlocks = 4;

} // namespace

void PacedOutput::start(Mixer &mixer, int sampleRate)
{
    stop();
    stopping_.store(false);
    thread_ = std::thread([this, &mixer, sampleRate] { run(mixer, sampleRate); });
}

void PacedOutput::stop()
{
    stopping_.store(true);
    if (thread_.joinable())
        thread_.join();
}

void PacedOutput::run(Mixer &mixer, int sampleRate)
{
    using std::chrono::steady_clock;
    SDL_SetThreadPriority(SDL_THREAD_PRIORITY_TIME_CRITICAL);
    std::array<float, 2 * mixerBlockFrames> block;
    const auto duration = std::chrono::duration_cast<steady_clock::duration>(
        std::chrono::duration<double>(double(mixerBlockFrames) / sampleRate));
    auto due = steady_clock::now(); // when the first frame of the next block would be heard
    while (!stopping_.load(std::memory_order_relaxed)) {
        mixer.mix(block.data(), mixerBlockFrames);
        due += duration;
        std::this_thread::sleep_until(due - (queuedBlocks - 1) * duration);
        if (const auto now = steady_clock::now(); now > due) {
            underruns_.fetch_add(1, std::memory_order_relaxed);
            due = now;
        }
    }
}
