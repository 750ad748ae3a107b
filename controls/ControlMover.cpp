#include "controls/ControlMover.h"

#include <wx/wupdlock.h>

#include <algorithm>

namespace TessaronResources
{

namespace
{

int share(float factor, int change)
{
    return static_cast<int>(factor * static_cast<float>(change));
}

} // namespace

ControlBounds movedBounds(const ControlBounds& registered, const MoveFactors& factors, int dx, int dy)
{
    const int right = share(factors.leftMove, dx);
    const int down = share(factors.topMove, dy);
    return {registered.left + right, registered.top + down, registered.right + right + share(factors.widthGrow, dx),
            registered.bottom + down + share(factors.heightGrow, dy)};
}

void ControlMover::setUp(wxWindow& dialog, int minimumWidth, int minimumHeight)
{
    m_dialog = &dialog;
    if (m_minimum == wxSize(0, 0))
    {
        m_minimum = dialog.GetSize();
        if (minimumWidth > 0)
            m_minimum.x = minimumWidth;
        if (minimumHeight > 0)
            m_minimum.y = minimumHeight;
    }
    m_reference = dialog.GetClientSize();
}

void ControlMover::add(wxWindow* control, const MoveFactors& factors)
{
    if (!control)
        return;
    const wxRect rect = control->GetRect();
    m_entries.push_back({control, factors, {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height}});
}

void ControlMover::resize(int clientWidth, int clientHeight)
{
    if (!m_dialog || m_entries.empty())
        return;
    const int dx = clientWidth - m_reference.x;
    const int dy = clientHeight - m_reference.y;
    const wxWindowUpdateLocker batch(m_dialog);
    for (const Entry& entry : m_entries)
    {
        if (!entry.control)
            continue;
        const ControlBounds to = movedBounds(entry.registered, entry.factors, dx, dy);
        // The dialog may be smaller than what a control's bounds can follow.
        entry.control->SetSize(to.left, to.top, std::max(to.right - to.left, 0), std::max(to.bottom - to.top, 0),
                               wxSIZE_ALLOW_MINUS_ONE);
        if (entry.factors.grows())
            entry.control->Refresh();
    }
}

} // namespace TessaronResources
