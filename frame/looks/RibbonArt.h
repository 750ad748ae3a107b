#ifndef FRAME_LOOKS_RIBBONART_H
#define FRAME_LOOKS_RIBBONART_H

#include "frame/VisualPalette.h"

#include <memory>

class wxRibbonArtProvider;

namespace TessaronResources
{

/// The id of the ribbon page whose tab is drawn as the application button.
constexpr int applicationTabId = 59399 - 65536;

/// A ribbon's art in the colours of a palette: rounded with a sheen, or flat.
std::unique_ptr<wxRibbonArtProvider> makeRibbonArt(const VisualPalette& palette);

} // namespace TessaronResources

#endif
