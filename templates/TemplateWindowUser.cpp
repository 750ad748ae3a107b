#include "templates/TemplateWindowUser.h"

#include "frame/MessageDialog.h"
#include "frame/NativeLoop.h"
#include "templates/UserProfile.h"

#include <wx/filedlg.h>

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

int run(wxFileDialog& dialog)
{
    int answer = wxID_CANCEL;
    native::runInOwnLoop([&] { answer = dialog.ShowModal(); });
    return answer;
}

} // namespace

void TemplateWindowUser::showError(const std::string& text)
{
    ::TessaronResources::showMessage(&m_owner, templateCaption, wxString::FromUTF8(text), MessageKind::error);
}

void TemplateWindowUser::showMessage(const std::string& text)
{
    ::TessaronResources::showMessage(&m_owner, templateCaption, wxString::FromUTF8(text), MessageKind::information);
}

bool TemplateWindowUser::askOkCancel(const std::string& text)
{
    return ::TessaronResources::askOkCancel(&m_owner, templateCaption, wxString::FromUTF8(text), MessageKind::warning);
}

bool TemplateWindowUser::askOkCancelError(const std::string& text)
{
    return ::TessaronResources::askOkCancel(&m_owner, templateCaption, wxString::FromUTF8(text), MessageKind::error);
}

std::vector<std::string> TemplateWindowUser::chooseImportFiles(const std::string& folder)
{
    wxFileDialog dialog(&m_owner, "Import Templates", wxString::FromUTF8(folder), wxEmptyString,
                        filterOf(templateImportFilter), wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    std::vector<std::string> files;
    if (run(dialog) != wxID_OK)
        return files;
    wxArrayString paths;
    dialog.GetPaths(paths);
    for (const wxString& path : paths)
        files.push_back(path.utf8_string());
    return files;
}

std::string TemplateWindowUser::chooseExportFile(const std::string& folder)
{
    wxFileDialog dialog(&m_owner, "Export Templates", wxString::FromUTF8(folder), wxEmptyString,
                        filterOf(templateExportFilter), wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (run(dialog) != wxID_OK)
        return {};
    return dialog.GetPath().utf8_string();
}

std::string TemplateWindowUser::lastFolder()
{
    return profileText(profileSection, lastFolderEntry);
}

void TemplateWindowUser::keepLastFolder(const std::string& folder)
{
    keepProfileText(profileSection, lastFolderEntry, folder);
}

} // namespace TessaronResources
