#ifndef TEMPLATES_GRID_GRIDPLACE_H
#define TEMPLATES_GRID_GRIDPLACE_H

class wxGrid;
class wxWindow;

namespace TessaronResources
{

/// Lets a grid, created into the same parent, take the place, size and tab order of a template's frame, which goes.
/// The grid has to be created with the frame's id.
void takeOverFrame(wxGrid& grid, wxWindow* frame);

/// Draws the parts of a grid that the toolkit paints by itself in the look in force.
void colourGrid(wxGrid& grid);

} // namespace TessaronResources

#endif
