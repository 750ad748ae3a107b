#ifndef FRAME_MESSAGEPUMP_H
#define FRAME_MESSAGEPUMP_H

#include <memory>

class wxEventLoopBase;

namespace TessaronResources
{

/// While one exists, a quit message that was seen stays posted, so that the loops and calls around the one that saw it
/// end as well. The outermost scope removes it.
class QuitScope
{
public:
    QuitScope();
    ~QuitScope();
    QuitScope(const QuitScope&) = delete;
    QuitScope& operator=(const QuitScope&) = delete;
};

/// The message queue of the user-interface thread, as the loops of the module's windows see it. Works on the event loop
/// that the host runs, or on one of its own where the host runs none of the toolkit's. Make one for each run of a
/// window.
///
/// A quit message is whatever tells the host's loop to end: the toolkit's main loop scheduled for exit, the host's last
/// window closed, where the toolkit runs no loop a native one that was told to quit, or tessaronResourcesQuit().
class MessagePump
{
public:
    MessagePump();
    ~MessagePump();
    MessagePump(const MessagePump&) = delete;
    MessagePump& operator=(const MessagePump&) = delete;

    /// Dispatches all waiting messages.
    /// \returns whether the quit message was among them, in this pass or an earlier one.
    bool pump();

    /// Hands the quit message on: to the calls around this one, and to the host's loop.
    void repostQuit();

    /// The toolkit's own idle work, when messages came in since the last time: pending events, deferred deletions, idle
    /// events.
    static void processToolkitIdle();

    /// Suspends the thread until a message comes in or the time is over.
    static void waitForMessage(int milliseconds);

    /// Leaves a quit message of our own in the queue.
    static void requestQuit();

    /// Whether a quit message waits, for loops that are not ours and cannot see it.
    static bool quitPosted();

private:
    QuitScope m_quitScope;
    std::unique_ptr<wxEventLoopBase> m_ownLoop;
    bool m_quit = false;
};

} // namespace TessaronResources

#endif
