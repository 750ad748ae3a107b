#ifndef TEMPLATES_DIALOGS_RESIZABLEDIALOG_H
#define TEMPLATES_DIALOGS_RESIZABLEDIALOG_H

#include "controls/ControlMover.h"
#include <tessaron/frame/DialogBase.h>

namespace TessaronResources
{

/// A dialog whose controls follow its size.
class ResizableDialog : public DialogBase
{
protected:
    /// The shares of a control.
    struct Follow
    {
        int id;
        MoveFactors factors;
    };

    /// Starts to follow the dialog's size, and keeps the dialog from becoming smaller than it is now.
    template <std::size_t Count>
    void followSize(const Follow (&controls)[Count])
    {
        m_mover.setUp(*this);
        SetMinSize(m_mover.minimumSize());
        for (const Follow& follow : controls)
            m_mover.add(control(follow.id), follow.factors);
        Bind(wxEVT_SIZE,
             [this](wxSizeEvent& event)
             {
                 const wxSize client = GetClientSize();
                 m_mover.resize(client.x, client.y);
                 event.Skip();
             });
    }

    /// Gives an image button its picture, and the screen reader a name for it.
    void setImage(int id, int bitmapId, const wxString& name);

private:
    ControlMover m_mover;
};

} // namespace TessaronResources

#endif
