#ifndef TEMPLATES_DIALOGS_SAVEOPERATIONTEMPLATEDIALOG_H
#define TEMPLATES_DIALOGS_SAVEOPERATIONTEMPLATEDIALOG_H

#include <tessaron/frame/DialogBase.h>

#include <string>
#include <vector>

namespace TessaronResources
{

/// Asks for the name under which the current operation is stored as a template, offering the existing ones. A name of
/// blanks only is refused.
class SaveOperationTemplateDialog : public DialogBase
{
public:
    /// \param names    the existing template names; not owned
    /// \param loadBack the state of "Load Saved Template" at first
    SaveOperationTemplateDialog(const std::vector<std::string>& names, bool loadBack, wxWindow* owner);

    /// The name; on OK the one that the user accepted, without blanks around it.
    std::string name() const { return m_name.utf8_string(); }
    bool loadBack() const { return m_loadBack; }

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

private:
    const std::vector<std::string>& m_names;
    wxString m_name;
    bool m_loadBack;
};

} // namespace TessaronResources

#endif
