#ifndef TEMPLATES_TEMPLATEWINDOWUSER_H
#define TEMPLATES_TEMPLATEWINDOWUSER_H

#include "templates/TemplateUser.h"

class wxWindow;

namespace TessaronResources
{

/// The person in front of the manager window: asks and tells with the toolkit's dialogs.
class TemplateWindowUser : public TemplateUser
{
public:
    /// `owner` owns the boxes; it outlives the object.
    explicit TemplateWindowUser(wxWindow& owner) : m_owner(owner) {}

    void showError(const std::string& text) override;
    void showMessage(const std::string& text) override;
    bool askOkCancel(const std::string& text) override;
    bool askOkCancelError(const std::string& text) override;
    std::vector<std::string> chooseImportFiles(const std::string& folder) override;
    std::string chooseExportFile(const std::string& folder) override;
    std::string lastFolder() override;
    void keepLastFolder(const std::string& folder) override;

private:
    wxWindow& m_owner;
};

} // namespace TessaronResources

#endif
