#ifndef TEMPLATES_TEMPLATEMANAGERFRAMEWND_H
#define TEMPLATES_TEMPLATEMANAGERFRAMEWND_H

#include "frame/WindowPlace.h"

#include <wx/frame.h>
#include <wx/weakref.h>

class wxStaticText;

namespace TessaronResources
{

class TemplateManagerFormView;
class TemplateManagerRibbon;
struct TemplateManagerInputs;

/// The window of the template manager: the ribbon above the form.
class TemplateManagerFrameWnd : public wxFrame
{
public:
    TemplateManagerFrameWnd(wxWindow* owner, const TemplateManagerInputs& inputs);

    /// Sets up the form and shows the window.
    /// \returns false when there is no form.
    bool initialUpdate();

    /// A host does not live on because of a window of the module.
    bool ShouldPreventAppExit() const override { return false; }
    bool Show(bool show = true) override;

    /// Takes on the look in force.
    void applyLook();

    /// Tells something in a line at the lower edge; an empty text takes the line away.
    void setNotice(const wxString& text);

    TemplateManagerFormView& form() { return *m_form; }

private:
    void onClose(wxCloseEvent& event);
    void onCharHook(wxKeyEvent& event);

    TemplateManagerFormView* m_form;
    TemplateManagerRibbon* m_ribbon = nullptr;
    wxStaticText* m_notice = nullptr;
    wxWeakRef<wxWindow> m_owner;
    WindowPlace m_place;
};

} // namespace TessaronResources

#endif
