#ifndef TEMPLATES_TEMPLATEWINDOWPROMPTS_H
#define TEMPLATES_TEMPLATEWINDOWPROMPTS_H

#include "templates/TemplatePrompts.h"

class wxWindow;

namespace TessaronResources
{

/// Asks and tells the user with the toolkit's dialogs.
class TemplateWindowPrompts : public TemplatePrompts
{
public:
    /// `owner` owns the boxes; it outlives the object.
    explicit TemplateWindowPrompts(wxWindow& owner) : m_owner(owner) {}

    void showError(const std::string& text) override;
    void showMessage(const std::string& text) override;
    bool askOkCancel(const std::string& text) override;
    bool askOkCancelError(const std::string& text) override;
    std::vector<std::string> chooseImportFiles(const std::string& folder) override;
    std::string chooseExportFile(const std::string& folder) override;
    std::unique_ptr<TemplateProgress> showImport(std::size_t files) override;
    std::string lastFolder() override;
    void keepLastFolder(const std::string& folder) override;

private:
    wxWindow& m_owner;
};

} // namespace TessaronResources

#endif
