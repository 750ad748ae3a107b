#ifndef FRAME_NATIVELOOP_H
#define FRAME_NATIVELOOP_H

#include <functional>

namespace TessaronResources::native
{

/// Runs something that shows one of the toolkit's own modal dialogs (file, folder, font) in a native loop of its own.
/// When such a dialog closes, the toolkit ends the native loop around it as well: this one, then, and not the host's.
void runInOwnLoop(const std::function<void()>& action);

} // namespace TessaronResources::native

#endif
