#include "templates/TemplateWindowPrompts.h"

#include "frame/MessageDialog.h"
#include "frame/ShownText.h"
#include "frame/Translation.h"
#include "frame/configuration/UserProfile.h"
#include "frame/native/NativeLoop.h"
#include "templates/dialogs/TemplateProgressDialog.h"
#include <tessaron/engine/TemplatePath.h>

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>

namespace TessaronResources
{

namespace
{

// The toolkit's filters have no mark at their end.
wxString filterOf(const char* filter)
{
    wxString result = wxString::FromUTF8(filter);
    while (result.EndsWith("|"))
        result.RemoveLast();
    return result;
}

// Without a folder the toolkit would start in the host's working directory, where users do not look for their files.
wxString startFolder(const std::string& folder)
{
    const wxString last = toolkitPath(folder);
    return !last.empty() && wxDirExists(last) ? last : wxStandardPaths::Get().GetDocumentsDir();
}

} // namespace

void TemplateWindowPrompts::showError(const std::string& text)
{
    ::TessaronResources::showMessage(&m_owner, translatedLabel(templateCaption), wxString::FromUTF8(text),
                                     MessageKind::error);
}

void TemplateWindowPrompts::showMessage(const std::string& text)
{
    ::TessaronResources::showMessage(&m_owner, translatedLabel(templateCaption), wxString::FromUTF8(text),
                                     MessageKind::information);
}

bool TemplateWindowPrompts::askOkCancel(const std::string& text)
{
    return ::TessaronResources::askOkCancel(&m_owner, translatedLabel(templateCaption), wxString::FromUTF8(text),
                                            MessageKind::warning);
}

bool TemplateWindowPrompts::askOkCancelError(const std::string& text)
{
    return ::TessaronResources::askOkCancel(&m_owner, translatedLabel(templateCaption), wxString::FromUTF8(text),
                                            MessageKind::error);
}

std::vector<std::string> TemplateWindowPrompts::chooseImportFiles(const std::string& folder)
{
    wxFileDialog dialog(&m_owner, translatedLabel("Import Templates"), startFolder(folder), wxEmptyString,
                        filterOf(templateImportFilter), wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    std::vector<std::string> files;
    if (native::runModal(dialog) != wxID_OK)
        return files;
    wxArrayString paths;
    dialog.GetPaths(paths);
    for (const wxString& path : paths)
        files.push_back(pathOf(path));
    return files;
}

std::string TemplateWindowPrompts::chooseExportFile(const std::string& folder)
{
    wxFileDialog dialog(&m_owner, translatedLabel("Export Templates"), startFolder(folder), wxEmptyString,
                        filterOf(templateExportFilter), wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    while (native::runModal(dialog) == wxID_OK)
    {
        wxFileName file(dialog.GetPath());
        if (file.HasExt())
            return pathOf(file.GetFullPath());
        // The dialog has asked about the name without the extension only.
        file.SetExt(wxString(util::templateExtension).AfterLast('.'));
        if (!file.FileExists() || askOkCancel(replaceQuestion(pathOf(file.GetFullName()))))
            return pathOf(file.GetFullPath());
    }
    return {};
}

std::unique_ptr<TemplateProgress> TemplateWindowPrompts::showImport(std::size_t files)
{
    return showTemplateProgress(m_owner, translatedLabel("Import Templates"), files);
}

std::string TemplateWindowPrompts::lastFolder()
{
    return pathOf(wxString::FromUTF8(profileText(profileSection, lastFolderEntry)));
}

void TemplateWindowPrompts::keepLastFolder(const std::string& folder)
{
    keepProfileText(profileSection, lastFolderEntry, toolkitPath(folder).utf8_string());
}

} // namespace TessaronResources
