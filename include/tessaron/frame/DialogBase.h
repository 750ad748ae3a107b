#ifndef TESSARON_FRAME_DIALOGBASE_H
#define TESSARON_FRAME_DIALOGBASE_H

// Stability: experimental.

#include <tessaron/util/Export.h>

#include <wx/dialog.h>

#include <memory>

namespace TessaronResources
{

class CDataExchange;
struct ReadFailure;

/// The base of every dialog of the module: created from a numbered template of the current module state's resources,
/// filled and read by data exchange, run modally on a loop that works in any host.
///
/// OK is control 1 and Cancel control 2; Escape and the close box cancel whether or not there is a button for it.
class TESSARON_RESOURCES_API DialogBase : public wxDialog
{
public:
    ~DialogBase() override;

    /// Runs the dialog until EndModal.
    /// \returns the value given there; 2 when there is no window (no display, no template) or a quit message came.
    int ShowModal() override;
    void EndModal(int result) override;
    /// A host does not live on because of a window of the module.
    bool ShouldPreventAppExit() const override { return false; }
    bool IsModal() const override { return m_modal; }
    /// Comes up where the user left the dialog last, and else in the middle of the owner, whole on the owner's screen.
    bool Show(bool show = true) override;

    /// Fills the form from the members (false) or reads it into them (true).
    /// \returns false when a field could not be read; the user has been told.
    bool UpdateData(bool saveAndValidate);

    /// The form has been filled by OnInitDialog when the window is shown, and is not filled again.
    void InitDialog() override {}
    bool TransferDataToWindow() override { return UpdateData(false); }
    bool TransferDataFromWindow() override { return UpdateData(true); }

    /// Destroys the window. The base leaves the object to its owner.
    virtual void DestroyWindow();

    /// The control of an id, or null.
    wxWindow* control(int id) const;

    /// The text or check box that stands before a control, without its mnemonic and colon; the control's own label when
    /// it has one.
    wxString fieldName(const wxWindow& field) const;

    /// A length in pixels of the original dialog font, whose characters are 13 pixels high, in pixels of this dialog.
    int templatePixels(int pixels) const;

protected:
    DialogBase();

    /// Creates the window from a template and initialises it.
    /// \returns false when there is no window then.
    bool create(int templateId, wxWindow* parent);

    /// Creates a window without controls, for a dialog that lays itself out. The caller adds the controls and then
    /// calls initialise().
    /// \returns false when there is no window then.
    bool createBare(wxWindow* parent, const wxString& caption);
    void initialise();

    /// Called once the controls exist: fills the form. Overrides call it first.
    /// \returns true to let the dialog choose the control that has the focus first.
    virtual bool OnInitDialog();
    /// Lists the fields. Overrides call it first.
    virtual void DoDataExchange(CDataExchange* exchange);
    /// Tells the user about a field that could not be read, names it, and puts the focus there.
    void report(const ReadFailure& failure);
    /// Reads the form and closes with 1.
    virtual void OnOK();
    /// Closes with 2.
    virtual void OnCancel();

    /// Called last when the window has been destroyed. A dialog that owns itself deletes itself here.
    virtual void PostNcDestroy();

    /// Draws the dialog with the visual manager in force.
    void enableVisualManagerStyle();

private:
    void onCharHook(wxKeyEvent& event);
    void nameControls();
    void focusFirstControl();

    struct Place;
    std::unique_ptr<Place> m_place;
    bool m_modal = false;
    int m_modalResult = wxID_CANCEL;
};

} // namespace TessaronResources

#endif
