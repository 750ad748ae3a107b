#include "controls/CHMXEdit.h"

#include "controls/WrappedText.h"

#include <wx/settings.h>
#include <wx/tooltip.h>

namespace mfcutil
{

wxIMPLEMENT_DYNAMIC_CLASS(CHMXEdit, wxTextCtrl);

namespace
{

constexpr int widestTip = 400;
constexpr double errorTint = 0.3;

wxColour tinted(const wxColour& colour, const wxColour& tint)
{
    const auto mix = [](unsigned char from, unsigned char to)
    { return static_cast<unsigned char>(from + (to - from) * errorTint); };
    return {mix(colour.Red(), tint.Red()), mix(colour.Green(), tint.Green()), mix(colour.Blue(), tint.Blue())};
}

} // namespace

CHMXEdit::CHMXEdit()
    : m_normalColours{wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT),
                      wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)},
      m_errorColours{m_normalColours.text, tinted(m_normalColours.background, *wxRED)}
{
    Bind(wxEVT_CHAR, &CHMXEdit::onChar, this);
    Bind(wxEVT_TEXT_PASTE, [this](wxClipboardTextEvent& event) { ignoreUnlessEditable(event); });
    for (const auto button : {wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN})
        Bind(button, [this](wxMouseEvent& event) { ignoreUnlessEditable(event); });
    Bind(wxEVT_KEY_DOWN,
         [this](wxKeyEvent& event)
         {
             // Tab belongs to the dialog.
             if (event.GetKeyCode() == WXK_TAB)
                 event.Skip();
             else
                 ignoreUnlessEditable(event);
         });
}

void CHMXEdit::setToolTipText(const wxString& text)
{
    m_toolTipText = text;
    m_toolTipPending = true;
}

void CHMXEdit::SetEditable(bool editable)
{
    m_editable = editable;
    // Input methods and drops do not come by way of key messages.
    wxTextCtrl::SetEditable(editable);
}

void CHMXEdit::setError()
{
    // Colours that are the look's stay the look's, which has others for a field that is disabled.
    if (!m_error)
        m_normalColours = {UseForegroundColour() ? GetForegroundColour() : wxNullColour,
                           UseBackgroundColour() ? GetBackgroundColour() : wxNullColour};
    m_error = true;
    draw(m_errorColours);
    // In this order: GTK drops the selection when it moves the caret.
    ShowPosition(GetInsertionPoint());
    SelectAll();
}

void CHMXEdit::clearError()
{
    if (!m_error)
        return;
    m_error = false;
    draw(m_normalColours);
}

void CHMXEdit::draw(const Colours& colours)
{
    SetForegroundColour(colours.text);
    SetBackgroundColour(colours.background);
    Refresh();
}

void CHMXEdit::onChar(wxKeyEvent& event)
{
    ignoreUnlessEditable(event);
}

bool CHMXEdit::TryBefore(wxEvent& event)
{
    if (m_toolTipPending && GetHandle())
        showToolTip();
    return wxTextCtrl::TryBefore(event);
}

void CHMXEdit::ignoreUnlessEditable(wxEvent& event)
{
    event.Skip(m_editable);
}

void CHMXEdit::showToolTip()
{
    m_toolTipPending = false;
    SetToolTip(wrappedText(*this, m_toolTipText, FromDIP(widestTip)));
}

} // namespace mfcutil
