#ifndef CONTROLS_CHMXNUMEDIT_H
#define CONTROLS_CHMXNUMEDIT_H

#include "controls/CHMXEdit.h"

namespace mfcutil
{

class CHMXNumEdit;

/// Sent to the dialog when a numeric edit has lost the focus and shows its number: the notification that a plain edit
/// would pass on. The id is the field's, the string the text as it was typed where no more than its beginning is a
/// number.
wxDECLARE_EVENT(EVT_NUMBER_LEFT, wxCommandEvent);

/// An edit field that evaluates an arithmetic expression (see controls/NumericExpression.h) and shows the result as a
/// tidy number: on Enter, where the whole text is an expression, and whenever the focus leaves the field.
///
/// In fixed format the field shows up to six decimals and passes the loss of the focus on to the dialog. In general
/// format it shows the shortest form, clears the error state and passes nothing on. An empty field stays empty and
/// passes nothing on in either format. Enter and Tab come to the field, not to the dialog: Tab moves to the next
/// control, with Shift to the one before.
class CHMXNumEdit : public CHMXEdit
{
public:
    CHMXNumEdit();

    /// Initially true.
    void setGeneralFormat(bool general) { m_generalFormat = general; }

    /// Reads a text as an expression.
    /// \returns whether all of it was one.
    static bool evaluate(const wxString& text, double& value);

    /// Formats the field's own text again. An empty field stays empty.
    void reformat();

protected:
    void onChar(wxKeyEvent& event) override;

private:
    void onEnter();
    void onFocusLost(wxFocusEvent& event);
    double number() const;
    wxString formatted(double value) const;

    bool m_generalFormat = true;

    wxDECLARE_DYNAMIC_CLASS(CHMXNumEdit);
};

} // namespace mfcutil

#endif
