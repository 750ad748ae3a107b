#include "progress/ProgressLoop.h"

#include "frame/CurrentModule.h"
#include "frame/MessagePump.h"
#include <tessaron/engine/ProgressData.h>
#include <tessaron/frame/WinApp.h>

#include <chrono>

namespace TessaronResources
{

namespace
{

constexpr int firstSleepMilliseconds = 20;
constexpr std::chrono::milliseconds pollInterval{50};

} // namespace

void runProgressLoop(const bool& cancelled, const std::function<bool()>& poll)
{
    using Clock = std::chrono::steady_clock;
    util::msleep(firstSleepMilliseconds);
    MessagePump pump;
    Clock::time_point start = Clock::now();
    while (!cancelled)
    {
        if (pump.pump())
        {
            pump.repostQuit();
            return;
        }
        if (Clock::now() - start > pollInterval)
        {
            if (poll())
                return;
            start = Clock::now();
        }
        for (long count = 0; !cancelled && currentApp().OnIdle(count); ++count)
        {
        }
    }
}

} // namespace TessaronResources
