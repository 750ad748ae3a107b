#include "controls/CHMXNumEdit.h"

#include "controls/NumericExpression.h"

namespace mfcutil
{

wxDEFINE_EVENT(EVT_NUMBER_LEFT, wxCommandEvent);

wxIMPLEMENT_DYNAMIC_CLASS(CHMXNumEdit, CHMXEdit);

CHMXNumEdit::CHMXNumEdit()
{
    Bind(wxEVT_KILL_FOCUS, &CHMXNumEdit::onFocusLost, this);
}

bool CHMXNumEdit::evaluate(const wxString& text, double& value)
{
    const Evaluation result = evaluateExpression(text.utf8_string());
    value = result.value;
    return result.complete;
}

void CHMXNumEdit::reformat()
{
    if (!IsEmpty())
        ChangeValue(formatted(number()));
}

double CHMXNumEdit::number() const
{
    double value = 0.0;
    return evaluate(GetValue(), value) ? value : leadingNumber(GetValue().utf8_string());
}

wxString CHMXNumEdit::formatted(double value) const
{
    return m_generalFormat ? formatGeneral(value) : formatTidy(value);
}

void CHMXNumEdit::onChar(wxKeyEvent& event)
{
    switch (event.GetKeyCode())
    {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        onEnter();
        break;
    case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
        break;
    default:
        CHMXEdit::onChar(event);
        break;
    }
}

// In fixed format whatever the field's own format is.
void CHMXNumEdit::onEnter()
{
    double value = 0.0;
    if (!IsEditable() || !evaluate(GetValue(), value))
        return;
    ChangeValue(formatTidy(value));
    SetInsertionPointEnd();
}

void CHMXNumEdit::onFocusLost(wxFocusEvent& event)
{
    event.Skip();
    if (IsBeingDeleted())
        return;
    const bool empty = IsEmpty();
    const wxString typed = GetValue();
    double value = 0.0;
    const bool whole = evaluate(typed, value);
    reformat();
    if (!empty && !m_generalFormat)
    {
        wxCommandEvent left(EVT_NUMBER_LEFT, GetId());
        left.SetEventObject(this);
        if (!whole)
            left.SetString(typed);
        ProcessWindowEvent(left);
        return;
    }
    clearError();
}

} // namespace mfcutil
