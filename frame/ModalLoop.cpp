#include "frame/ModalLoop.h"

#include "frame/MessagePump.h"

namespace TessaronResources
{

namespace
{

// Whatever ends the loop arrives as a message, save a quit that another thread asks for.
constexpr int waitMilliseconds = 100;

} // namespace

bool runModalLoop(const std::function<bool()>& running)
{
    MessagePump pump;
    while (running())
    {
        if (pump.pump())
        {
            pump.repostQuit();
            return false;
        }
        if (running())
        {
            MessagePump::processToolkitIdle();
            MessagePump::waitForMessage(waitMilliseconds);
        }
    }
    return true;
}

} // namespace TessaronResources
