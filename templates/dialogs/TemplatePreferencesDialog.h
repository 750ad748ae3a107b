#ifndef TEMPLATES_DIALOGS_TEMPLATEPREFERENCESDIALOG_H
#define TEMPLATES_DIALOGS_TEMPLATEPREFERENCESDIALOG_H

#include <tessaron/engine/TemplateInfo.h>
#include <tessaron/frame/DialogBase.h>

#include <array>
#include <string>

namespace TessaronResources
{

/// The preferences of the template manager. Nothing is stored by the dialog.
class TemplatePreferencesDialog : public DialogBase
{
public:
    /// \param folder     the template folder in use
    /// \param homeFolder the one that "Reset All" goes back to
    TemplatePreferencesDialog(const util::TemplatePreferences& preferences, const std::string& folder,
                              const std::string& homeFolder, wxWindow* owner);

    // After OK
    const util::TemplatePreferences& preferences() const { return m_preferences; }
    /// The folder that the user has left, chosen or typed; the very bytes where it was not typed.
    std::string folder() const;

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

private:
    /// Asks about a folder that does not exist, and makes it.
    /// \returns whether there is a folder to use.
    bool settleFolder();
    void chooseFolder();
    void chooseFont();
    void resetAll();
    void showFont();

    util::TemplatePreferences m_preferences;
    wxString m_folder;
    std::array<std::string, 2> m_given; ///< the folder in use or chosen last, and the host's
};

} // namespace TessaronResources

#endif
