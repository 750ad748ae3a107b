#ifndef TEMPLATES_GRID_GRIDSETUP_H
#define TEMPLATES_GRID_GRIDSETUP_H

class wxGrid;
class wxWindow;

namespace TessaronResources
{

/// Puts a grid in the place of the frame that stands for it in a dialog template, with the frame's size and place in
/// the tab order, and destroys the frame. Both have the same parent and id.
void replacePlaceholder(wxGrid& grid, wxWindow* frame);

/// Draws the parts of a grid that the toolkit paints by itself in the look in force.
void applyPalette(wxGrid& grid);

} // namespace TessaronResources

#endif
