#ifndef FRAME_HOSTWINDOWS_H
#define FRAME_HOSTWINDOWS_H

class wxTopLevelWindow;

namespace TessaronResources
{

/// Closing a window of the module must not end a host that has no other window open. Closing the host's own last window
/// while one of the module's is up ends the call, and then the host, as it would at any other time. The toolkit's
/// setting for that is off while one of these lives, and the very one that it was afterwards. Needs the toolkit.
class LastWindowGuard
{
public:
    LastWindowGuard();
    ~LastWindowGuard();
    LastWindowGuard(const LastWindowGuard&) = delete;
    LastWindowGuard& operator=(const LastWindowGuard&) = delete;

    /// Whether the host's last window was closed, which ends the host.
    static bool lastWindowClosed();

private:
    int m_setting;
    bool m_hostHadWindows;
    bool m_outermost;
};

/// Lets a window of the module outlive its owner, which a host may close under it. It stays above the owner.
void detachFromOwner(wxTopLevelWindow& window);

} // namespace TessaronResources

#endif
