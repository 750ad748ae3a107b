#ifndef TESSARON_FRAME_DATAEXCHANGE_H
#define TESSARON_FRAME_DATAEXCHANGE_H

// Stability: experimental.

#include <tessaron/util/Export.h>

#include <wx/string.h>

#include <optional>
#include <string>

class wxWindow;

namespace TessaronResources
{

class DialogBase;

/// A field that could not be read, and what the user is told about it.
struct ReadFailure
{
    int id = 0;
    wxString message;
};

/// Moves values between a dialog's controls and its members, in one direction at a time. A dialog lists its fields
/// once, in DoDataExchange; the same list fills the form and reads it.
///
/// Reading stops at the first field whose text is no number: the dialog tells the user which one and puts the focus
/// there (see DialogBase::report), and the fields after it keep their values. A control that the template lacks is
/// passed over.
class TESSARON_RESOURCES_API CDataExchange
{
public:
    CDataExchange(DialogBase& dialog, bool saveAndValidate);

    /// True when the form is read, false when it is filled.
    const bool m_bSaveAndValidate;

    /// Whether all fields so far could be read.
    bool ok() const { return !m_failure; }
    /// The field at which reading stopped.
    const std::optional<ReadFailure>& failure() const { return m_failure; }
    /// Stops reading at a field, unless it has stopped before.
    void fail(int id, const wxString& message);

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
    template <class Number>
    void exchangeNumber(int id, Number& value, const char* request);

    DialogBase& m_dialog;
    std::optional<ReadFailure> m_failure;
};

} // namespace TessaronResources

#endif
