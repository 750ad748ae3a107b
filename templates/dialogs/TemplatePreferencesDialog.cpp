#include "templates/dialogs/TemplatePreferencesDialog.h"

#include "frame/MessageDialog.h"
#include "frame/Translation.h"
#include "frame/native/NativeLoop.h"
#include "templates/TemplateMatch.h"
#include "templates/grid/GridFont.h"
#include "util/platform/Folder.h"
#include <tessaron/frame/DataExchange.h>

#include <wx/choice.h>
#include <wx/dirdlg.h>
#include <wx/filefn.h>
#include <wx/fontdlg.h>
#include <wx/textctrl.h>

#include <filesystem>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1058;
constexpr int loadSavedId = 1042;
constexpr int autoColumnsId = 1155;
constexpr int autoRowsId = 1156;
constexpr int matchFilterId = 1152;
constexpr int folderId = 1153;
constexpr int chooseFolderId = 1154;
constexpr int fontId = 1157;
constexpr int chooseFontId = 1158;
constexpr int resetId = 1151;

} // namespace

TemplatePreferencesDialog::TemplatePreferencesDialog(const util::TemplatePreferences& preferences,
                                                     const std::string& folder, const std::string& homeFolder,
                                                     wxWindow* owner)
    : m_preferences(preferences), m_folder(wxString::FromUTF8(folder)), m_homeFolder(wxString::FromUTF8(homeFolder))
{
    create(templateId, owner);
}

bool TemplatePreferencesDialog::OnInitDialog()
{
    if (auto* const filter = dynamic_cast<wxChoice*>(control(matchFilterId)))
        for (const std::string& text : matchFilterTexts())
            filter->Append(wxString::FromUTF8(text));
    DialogBase::OnInitDialog();
    showFont();
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { chooseFolder(); }, chooseFolderId);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { chooseFont(); }, chooseFontId);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { resetAll(); }, resetId);
    enableVisualManagerStyle();
    return true;
}

void TemplatePreferencesDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    exchange->check(loadSavedId, m_preferences.loadSavedTemplates);
    exchange->check(autoColumnsId, m_preferences.autoSizeColumns);
    exchange->check(autoRowsId, m_preferences.autoSizeRows);
    exchange->index(matchFilterId, m_preferences.matchFilter);
    exchange->text(folderId, m_folder);
}

void TemplatePreferencesDialog::OnOK()
{
    if (!UpdateData(true))
        return;
    if (settleFolder())
        DialogBase::OnOK();
    else if (auto* const field = dynamic_cast<wxTextCtrl*>(control(folderId)))
    {
        field->SetFocus();
        field->SelectAll();
    }
}

bool TemplatePreferencesDialog::settleFolder()
{
    const wxString typed = wxString(m_folder).Trim().Trim(false);
    if (typed.empty() || typed == m_homeFolder || wxDirExists(typed))
        return true;
    const std::string path = std::filesystem::absolute(typed.utf8_string()).string();
    const auto text = [&path](const char* format) { return wxString::FromUTF8(translatedWith(format, path)); };
    if (!askOkCancel(this, GetTitle(), text(translatable("The folder %s does not exist. Do you want to create it?")),
                     MessageKind::warning))
        return false;
    const bool made = util::makeFolders(path);
    if (!made)
        showMessage(this, GetTitle(), text(translatable("The folder %s cannot be created.")), MessageKind::error);
    return made;
}

void TemplatePreferencesDialog::chooseFolder()
{
    UpdateData(true);
    wxDirDialog dialog(this, translatedLabel("Template Path"), m_folder);
    if (native::runModal(dialog) != wxID_OK)
        return;
    m_folder = dialog.GetPath();
    UpdateData(false);
}

void TemplatePreferencesDialog::chooseFont()
{
    wxFontData data;
    data.SetInitialFont(gridFont(m_preferences.font));
    data.EnableEffects(false);
    wxFontDialog dialog(this, data);
    if (native::runModal(dialog) != wxID_OK)
        return;
    m_preferences.font = dialog.GetFontData().GetChosenFont().GetNativeFontInfoDesc().utf8_string();
    showFont();
}

void TemplatePreferencesDialog::resetAll()
{
    // The theme is chosen elsewhere.
    const int theme = m_preferences.theme;
    m_preferences = util::TemplatePreferences();
    m_preferences.theme = theme;
    m_folder = m_homeFolder;
    UpdateData(false);
    showFont();
}

void TemplatePreferencesDialog::showFont()
{
    if (auto* const field = dynamic_cast<wxTextCtrl*>(control(fontId)))
        field->ChangeValue(gridFont(m_preferences.font).GetNativeFontInfoUserDesc());
}

} // namespace TessaronResources
