#ifndef FRAME_DATAEXCHANGE_H
#define FRAME_DATAEXCHANGE_H

#include <wx/string.h>

#include <string>

class wxWindow;

namespace TessaronResources
{

class DialogBase;

/// Moves values between a dialog's controls and its members, in one direction at a time. A dialog lists its fields
/// once, in DoDataExchange; the same list fills the form and reads it.
///
/// Reading stops at the first field whose text is no number: the user is told which one, the focus goes there, and the
/// fields after it keep their values. A control that the template lacks is passed over.
class CDataExchange
{
public:
    CDataExchange(DialogBase& dialog, bool saveAndValidate);

    /// True when the form is read, false when it is filled.
    const bool m_bSaveAndValidate;

    /// Whether all fields so far could be read.
    bool ok() const { return m_ok; }

    /// Finds the control of an id; the members that stand for controls are bound in this way.
    template <class Control>
    void control(int id, Control*& member)
    {
        if (!member)
            member = dynamic_cast<Control*>(find(id));
    }

    void check(int id, bool& value);
    /// A check box over a 0 or 1 that the host knows as an integer.
    void check(int id, int& value);
    /// The index of the selected entry of a drop-down list; -1 for none.
    void index(int id, int& value);
    void text(int id, wxString& value);
    void number(int id, int& value);
    void number(int id, double& value);

private:
    wxWindow* find(int id) const;
    void fail(int id, wxWindow& field, const wxString& message);
    template <class Number>
    void exchangeNumber(int id, Number& value, const char* kind);

    DialogBase& m_dialog;
    bool m_ok = true;
};

} // namespace TessaronResources

#endif
