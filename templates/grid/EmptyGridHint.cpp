#include "templates/grid/EmptyGridHint.h"
#include "frame/Translation.h"

#include <wx/grid.h>
#include <wx/stattext.h>

#include <algorithm>

namespace TessaronResources
{

void EmptyGridHint::update(bool filtered)
{
    // Not hidden but gone while there are rows: the toolkit moves hidden children too when the grid is scrolled, and
    // GTK complains.
    if (m_grid.GetNumberRows() > 0)
    {
        if (m_text)
            m_text->Destroy();
        m_text = nullptr;
        return;
    }
    wxWindow* const window = m_grid.GetGridWindow();
    if (!m_text)
    {
        m_text = new wxStaticText(window, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                                  wxALIGN_CENTRE_HORIZONTAL);
        applyLook();
    }
    m_text->SetLabel(filtered ? translatedLabel("No template here matches the current tool.\n"
                                                "The preferences say which templates are displayed.")
                              : translatedLabel("There are no templates in this folder yet.\n"
                                                "Save an operation as a template, or import some."));
    const wxSize space = window->GetClientSize();
    const wxSize size = m_text->GetBestSize();
    m_text->SetSize(std::max(0, (space.x - size.x) / 2), std::max(0, (space.y - size.y) / 3), size.x, size.y);
}

void EmptyGridHint::applyLook()
{
    if (!m_text)
        return;
    m_text->SetForegroundColour(m_grid.GetDefaultCellTextColour());
    m_text->SetBackgroundColour(m_grid.GetDefaultCellBackgroundColour());
}

} // namespace TessaronResources
