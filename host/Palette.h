#ifndef HOST_PALETTE_H
#define HOST_PALETTE_H

#include <wx/colour.h>

#include <cstddef>

namespace host::palette
{

/// The colours of the drawing.
inline const wxColour canvasTop(250, 251, 253);
inline const wxColour canvasBottom(232, 237, 243);
inline const wxColour gridMinor(226, 231, 238);
inline const wxColour gridMajor(210, 217, 226);
inline const wxColour stockFill(196, 213, 232, 110);
inline const wxColour stockLine(92, 124, 160);
inline const wxColour partFill(203, 199, 190);
inline const wxColour partLine(84, 80, 72);
inline const wxColour openLine(201, 42, 42);
inline const wxColour rapid(232, 119, 34);
inline const wxColour plunge(201, 42, 82);
inline const wxColour mark(190, 24, 120);
inline const wxColour text(44, 52, 64);
inline const wxColour mutedText(110, 120, 134);
inline const wxColour card(255, 255, 255, 232);
inline const wxColour cardLine(212, 219, 228);
inline const wxColour axisX(208, 52, 52);
inline const wxColour axisY(47, 143, 78);
inline const wxColour axisZ(40, 98, 196);

/// The colour of a depth level: from turquoise at the top through blue to violet at the floor.
wxColour level(std::size_t index, std::size_t count);

/// A colour mixed with black (shade below 1) or kept (1).
wxColour shaded(const wxColour& colour, double shade);

} // namespace host::palette

#endif
