#ifndef TEMPLATES_GRID_EMPTYGRIDHINT_H
#define TEMPLATES_GRID_EMPTYGRIDHINT_H

class wxGrid;
class wxStaticText;

namespace TessaronResources
{

/// Tells in the middle of a grid without rows why it is empty.
class EmptyGridHint
{
public:
    /// `grid` owns what is shown, and outlives the object.
    explicit EmptyGridHint(wxGrid& grid) : m_grid(grid) {}

    /// Shows the hint or takes it away; again whenever the rows, the filter or the grid's size have changed.
    void update(bool filtered);
    /// Takes on the grid's colours.
    void applyLook();

private:
    wxGrid& m_grid;
    wxStaticText* m_text = nullptr;
};

} // namespace TessaronResources

#endif
