#pragma once

#include <SDL.h>
#include <future>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// What talking to SDL's sound devices has in common. SDL's start, end, opening and closing are not made for several
// threads, and two engines may have one device each. [any]
std::mutex &sdlMutex();

// SDL's sound as long as it lives, with the mutex held.
class SdlAudio
{
public:
    SdlAudio();
    SdlAudio(const SdlAudio &) = delete;
    SdlAudio &operator=(const SdlAudio &) = delete;
    ~SdlAudio();

    bool isThere() const { return isThere_; }
    std::vector<std::string> deviceNames() const; // none where it is not there
    void keep() { isThere_ = false; }             // beyond this, until SDL_QuitSubSystem()

private:
    const std::lock_guard<std::mutex> lock_;
    bool isThere_;
};

// On a thread that nobody waits for.
template<typename Deed>
auto beside(Deed deed)
{
    std::packaged_task<decltype(deed())()> task([deed = std::move(deed)] {
        auto result = deed();
        SDL_TLSCleanup(); // what SDL keeps for this thread
        return result;
    });
    auto result = task.get_future();
    std::thread(std::move(task)).detach();
    return result;
}
