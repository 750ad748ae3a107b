#ifndef FRAME_PALETTECOLOUR_H
#define FRAME_PALETTECOLOUR_H

#include "frame/VisualPalette.h"

#include <wx/colour.h>

namespace TessaronResources
{

/// A colour as the toolkit takes it.
inline wxColour toColour(Rgb colour)
{
    return wxColour(static_cast<unsigned char>(colour >> 16), static_cast<unsigned char>(colour >> 8),
                    static_cast<unsigned char>(colour));
}

} // namespace TessaronResources

#endif
