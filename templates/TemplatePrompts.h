#ifndef TEMPLATES_TEMPLATEPROMPTS_H
#define TEMPLATES_TEMPLATEPROMPTS_H

#include "frame/Translation.h"
#include <tessaron/exchange/StatusTable.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TessaronResources
{

/// Shows how far a command is that takes its time.
class TemplateProgress
{
public:
    virtual ~TemplateProgress() = default;

    /// To be called again and again, with the number of files that are done.
    /// \returns false once the user has cancelled.
    virtual bool goesOn(std::size_t done) = 0;
};

/// What the rules of the template manager ask and tell the user. A window does so with the toolkit, all boxes captioned
/// templateCaption and owned by the manager; a test answers from a script.
class TemplatePrompts
{
public:
    virtual ~TemplatePrompts() = default;

    /// A message box with the error icon.
    virtual void showError(const std::string& text) = 0;
    /// A message box with the information icon.
    virtual void showMessage(const std::string& text) = 0;
    /// A question with the buttons OK and Cancel; true for OK.
    virtual bool askOkCancel(const std::string& text) = 0;
    /// As askOkCancel(), with the error icon.
    virtual bool askOkCancelError(const std::string& text) = 0;

    /// The files to import, in the dialog's order, chosen with templateImportFilter; none when cancelled. The dialog
    /// starts in `folder`, takes several files, and only such that exist.
    virtual std::vector<std::string> chooseImportFiles(const std::string& folder) = 0;
    /// The file to export to, chosen with templateExportFilter; empty when cancelled. The dialog starts in `folder` and
    /// asks before an existing file is chosen.
    virtual std::string chooseExportFile(const std::string& folder) = 0;

    /// Shows the import of a number of files while the result exists, once it takes longer than a moment.
    virtual std::unique_ptr<TemplateProgress> showImport(std::size_t files) = 0;

    /// The user setting "LoadXmlDir" in the section "Halvorsund Technologies, Inc.": the folder of the last import or
    /// export, empty at first.
    virtual std::string lastFolder() = 0;
    virtual void keepLastFolder(const std::string& folder) = 0;
};

/// The question before a template or a file of this name is replaced.
inline std::string replaceQuestion(const std::string& name)
{
    return translatedWith("%s already exists. Do you want to replace it?", name);
}

inline constexpr const char* templateCaption = translatable("Template Manager");
inline constexpr const char* templateImportFilter =
    translatable("Template Files (*.vtmpl)|*.vtmpl|XML-files (*.xml)|*.xml|All Files (*.*)|*.*||");
inline constexpr const char* templateExportFilter =
    translatable("Template Files (*.vtmpl)|*.vtmpl|All Files (*.*)|*.*||");
inline constexpr const char* profileSection = "Halvorsund Technologies, Inc.";
inline constexpr const char* lastFolderEntry = "LoadXmlDir";

} // namespace TessaronResources

#endif
