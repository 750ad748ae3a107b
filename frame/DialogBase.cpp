#include "frame/ControlId.h"
#include <tessaron/frame/DialogBase.h>

#include "frame/CurrentModule.h"
#include "frame/HostWindows.h"
#include "frame/MessageDialog.h"
#include "frame/ModalLoop.h"
#include "frame/Toolkit.h"
#include "frame/WindowPlace.h"
#include "frame/looks/VisualManager.h"
#include "frame/native/FocusReturn.h"
#include "frame/native/NativeToolkit.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/ResourceSet.h>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/modalhook.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textentry.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <cmath>

namespace TessaronResources
{

namespace
{

// The templates were drawn for a font of this height in pixels, a little smaller than the desktop's usual one.
constexpr int templateFontHeight = 13;
constexpr double templateFontScale = 0.8;

wxFont templateFont()
{
    wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    font.SetFractionalPointSize(std::round(font.GetFractionalPointSize() * templateFontScale * 10) / 10);
    return font;
}

} // namespace

struct DialogBase::Place
{
    int templateId = 0; ///< 0: a dialog of no template, as messages are, keeps no place
    wxWeakRef<wxWindow> owner;
    WindowPlace keeper;
};

DialogBase::DialogBase() : m_place(std::make_unique<Place>()) {}

DialogBase::~DialogBase() = default;

bool DialogBase::create(int templateId, wxWindow* parent)
{
    if (!toolkitRunning())
        return false;
    SetFont(templateFont());
    if (!currentResources().loadDialog(*this, parent, templateId))
        return false;
    // The template's number is not the window's: controls have numbers of their own, which may be the same.
    SetId(wxID_ANY);
    // The toolkit would make a drawing context for a background event that nobody handles, at every repaint.
    SetBackgroundStyle(wxBG_STYLE_SYSTEM);
    native::makeCompact(*this);
    initialise();
    m_place->templateId = templateId;
    // Without a parent, the toolkit has found an owner among the host's windows.
    m_place->owner = GetParent();
    if (!parent)
        detachFromOwner(*this);
    return true;
}

bool DialogBase::createBare(wxWindow* parent, const wxString& caption)
{
    if (!toolkitRunning() || !wxDialog::Create(parent, wxID_ANY, caption))
        return false;
    m_place->owner = GetParent();
    return true;
}

void DialogBase::initialise()
{
    SetAffirmativeId(idOk);
    SetEscapeId(idCancel);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { OnOK(); }, idOk);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { OnCancel(); }, idCancel);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { OnCancel(); });
    Bind(wxEVT_CHAR_HOOK, &DialogBase::onCharHook, this);
    nameControls();
    if (OnInitDialog())
        focusFirstControl();
}

bool DialogBase::OnInitDialog()
{
    UpdateData(false);
    return true;
}

void DialogBase::DoDataExchange(CDataExchange*) {}

bool DialogBase::UpdateData(bool saveAndValidate)
{
    CDataExchange exchange(*this, saveAndValidate);
    DoDataExchange(&exchange);
    if (exchange.failure())
        report(*exchange.failure());
    return exchange.ok();
}

void DialogBase::report(const ReadFailure& failure)
{
    wxWindow* const field = control(failure.id);
    if (!field)
        return;
    const wxString name = fieldName(*field);
    showMessage(this, GetTitle(), name.empty() ? failure.message : name + ": " + failure.message, MessageKind::warning);
    field->SetFocus();
    if (auto* const entry = dynamic_cast<wxTextEntryBase*>(field))
        entry->SelectAll();
}

void DialogBase::OnOK()
{
    if (UpdateData(true))
        EndModal(idOk);
}

void DialogBase::OnCancel()
{
    EndModal(idCancel);
}

void DialogBase::DestroyWindow()
{
    const EntryScope scope(getCurrentModuleState());
    if (GetHandle())
        Hide();
    PostNcDestroy();
}

void DialogBase::PostNcDestroy() {}

bool DialogBase::Show(bool show)
{
    if (show && !IsShown())
    {
        const WindowPlace::Keeps kept = m_place->templateId == 0   ? WindowPlace::Keeps::nothing
                                        : HasFlag(wxRESIZE_BORDER) ? WindowPlace::Keeps::placeAndSize
                                                                   : WindowPlace::Keeps::place;
        m_place->keeper.comeUp(*this, wxString::Format("%d", m_place->templateId), kept, m_place->owner);
    }
    else if (!show && IsShown())
        m_place->keeper.keep(*this);
    return wxDialog::Show(show);
}

int DialogBase::ShowModal()
{
    if (!GetHandle())
        return idCancel;
    WX_HOOK_MODAL_DIALOG();
    m_modal = true;
    m_modalResult = idCancel;
    const native::FocusReturn focus;
    const wxWindowDisabler othersDisabled(this);
    native::setModal(*this, true);
    Show();
    Raise();
    if (!runModalLoop([this] { return m_modal; }))
        EndModal(idCancel);
    native::setModal(*this, false);
    Hide();
    return m_modalResult;
}

void DialogBase::EndModal(int result)
{
    SetReturnCode(result);
    m_modalResult = result;
    m_modal = false;
}

wxWindow* DialogBase::control(int id) const
{
    return GetHandle() ? const_cast<DialogBase*>(this)->FindWindow(id) : nullptr;
}

wxString DialogBase::fieldName(const wxWindow& field) const
{
    wxString name = wxStripMenuCodes(field.GetLabel());
    const wxWindow* const before = field.GetPrevSibling();
    if (name.empty() && (dynamic_cast<const wxStaticText*>(before) || dynamic_cast<const wxCheckBox*>(before)))
        name = wxStripMenuCodes(before->GetLabel());
    name.Trim();
    return name.EndsWith(":") ? name.RemoveLast() : name;
}

int DialogBase::templatePixels(int pixels) const
{
    return static_cast<int>(std::lround(static_cast<double>(pixels) * GetCharHeight() / templateFontHeight));
}

void DialogBase::enableVisualManagerStyle()
{
    VisualManager::current().apply(*this);
}

void DialogBase::onCharHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_ESCAPE)
        OnCancel();
    else
        event.Skip();
}

void DialogBase::nameControls()
{
    // A text is its own name, also when it changes.
    for (wxWindow* const child : GetChildren())
        if (const wxString name = fieldName(*child); !name.empty() && !dynamic_cast<wxStaticText*>(child))
            native::setAccessibleName(*child, name);
}

void DialogBase::focusFirstControl()
{
    for (wxWindow* const child : GetChildren())
        if (child->IsFocusable())
        {
            child->SetFocus();
            return;
        }
}

} // namespace TessaronResources
