#ifndef CONTROLS_CONTROLMOVER_H
#define CONTROLS_CONTROLMOVER_H

#include <wx/gdicmn.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <vector>

namespace TessaronResources
{

/// The fractions of a change in a dialog's client size that a control follows.
struct MoveFactors
{
    float leftMove = 0;   ///< moves the control by this fraction of the change in width
    float topMove = 0;    ///< moves the control by this fraction of the change in height
    float widthGrow = 0;  ///< widens the control by this fraction of the change in width
    float heightGrow = 0; ///< heightens the control by this fraction of the change in height

    bool grows() const { return widthGrow != 0 || heightGrow != 0; }
};

/// Where a control is, in its dialog's client coordinates; right and bottom lie just outside.
struct ControlBounds
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const ControlBounds&) const = default;
};

/// Where a control goes when its dialog's client size has changed by (dx, dy) pixels. Each product is of single
/// precision and cut toward zero, so that a control returns to its place when the dialog does.
ControlBounds movedBounds(const ControlBounds& registered, const MoveFactors& factors, int dx, int dy);

/// Moves and stretches the controls of a resizable dialog, each by fractions of its own. Lives as long as the dialog.
class ControlMover
{
public:
    virtual ~ControlMover() = default;

    /// Takes the dialog's current client size as the one that changes are counted from.
    /// \param minimumWidth, minimumHeight in pixels; 0 or less: the dialog's current outer size. A minimum size that
    /// was taken before stays.
    void setUp(wxWindow& dialog, int minimumWidth = 0, int minimumHeight = 0);

    /// Manages a control from where it is now. A null control is passed over.
    void add(wxWindow* control, const MoveFactors& factors);

    /// Puts the controls where a client size asks them to be. Does nothing before setUp.
    void resize(int clientWidth, int clientHeight);

    /// The outer size below which the dialog should not go; (0, 0) before setUp. Whoever owns the dialog enforces it.
    wxSize minimumSize() const { return m_minimum; }

private:
    struct Entry
    {
        wxWeakRef<wxWindow> control;
        MoveFactors factors;
        ControlBounds registered;
    };

    wxWindow* m_dialog = nullptr;
    std::vector<Entry> m_entries;
    wxSize m_reference;
    wxSize m_minimum;
};

} // namespace TessaronResources

#endif
