#pragma once

#include <chrono>

// Tells from the times at which a device asks for frames when it had none left to play. How many buffers a device keeps
// is its secret: what gives it away is that it goes on behind its beat by most of a buffer. One that was only asked
// late catches up at once; its clock may run a little slower than ours. [mixer]
class UnderrunWatch
{
public:
    using Clock = std::chrono::steady_clock;

    // The device asks for a buffer that lasts so long. Whether it ran dry, told four buffers later.
    bool ask(Clock::time_point now, Clock::duration buffer);

private:
    Clock::time_point due_; // of the next ask
    int late_ = 0;          // asks in a row
};
