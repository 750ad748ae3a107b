#ifndef FRAME_MODALLOOP_H
#define FRAME_MODALLOOP_H

#include <functional>

namespace TessaronResources
{

/// Keeps the user interface alive while a modal window is up; works in any host.
/// \param running whether the window is still up; asked after every batch of messages
/// \returns false when a quit message came before the window had ended. It has been handed on then.
bool runModalLoop(const std::function<bool()>& running);

} // namespace TessaronResources

#endif
