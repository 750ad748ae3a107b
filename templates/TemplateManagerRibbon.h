#ifndef TEMPLATES_TEMPLATEMANAGERRIBBON_H
#define TEMPLATES_TEMPLATEMANAGERRIBBON_H

#include <wx/ribbon/bar.h>

namespace TessaronResources
{

/// The ribbon of the template manager: an application button "File" with a menu, and one category. What the user
/// chooses goes to the parent as menu commands, see TemplateManagerIds.h.
class TemplateManagerRibbon : public wxRibbonBar
{
public:
    explicit TemplateManagerRibbon(wxWindow* parent);

    /// Takes on the look in force.
    void applyLook();
    /// Opens the application button's menu.
    void showApplicationMenu();
    /// The command of the button whose caption marks this key, a capital letter; wxID_NONE when there is none.
    static int commandOfAccessKey(int key);

private:
    void addApplicationButton();
    void addHome();
    void onPageChanging(wxRibbonBarEvent& event);
};

} // namespace TessaronResources

#endif
