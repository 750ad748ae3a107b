#ifndef CONTROLS_CHMXEDIT_H
#define CONTROLS_CHMXEDIT_H

#include <wx/colour.h>
#include <wx/textctrl.h>

namespace mfcutil
{

/// An edit field with a tooltip, a switch between editable and read-only, and a look for text that is in error.
/// Made by a dialog template that names it as the subclass of a text control.
class CHMXEdit : public wxTextCtrl
{
public:
    CHMXEdit();

    /// Shown from the next message to the field on, in lines of at most 400 pixels.
    void setToolTipText(const wxString& text);

    /// While it is false, the field takes neither keys nor pastes nor right clicks. Everything else works as usual.
    void SetEditable(bool editable) override;

    /// Marks the text as in error: draws the field in the second pair of colours, selects all of the text and brings
    /// the caret into view.
    void setError();
    void clearError();

protected:
    struct Colours
    {
        wxColour text;
        wxColour background;
    };

    virtual void onChar(wxKeyEvent& event);

private:
    bool TryBefore(wxEvent& event) override;
    void draw(const Colours& colours);
    void ignoreUnlessEditable(wxEvent& event);
    void showToolTip();

    wxString m_toolTipText;
    bool m_toolTipPending = false;
    bool m_error = false;
    bool m_editable = true;
    Colours m_normalColours;
    Colours m_errorColours;

    wxDECLARE_DYNAMIC_CLASS(CHMXEdit);
};

} // namespace mfcutil

#endif
