#include "templates/dialogs/TemplatePreferencesDialog.h"

#include "frame/MessageDialog.h"
#include "frame/ShownText.h"
#include "frame/Translation.h"
#include "frame/native/NativeLoop.h"
#include "templates/TemplateMatch.h"
#include "templates/grid/GridFont.h"
#include "util/platform/Folder.h"
#include "util/text/Ascii.h"
#include <tessaron/frame/DataExchange.h>

#include <wx/choice.h>
#include <wx/dirdlg.h>
#include <wx/fontdlg.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

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
    : m_preferences(preferences), m_folder(shownText(folder)), m_given{folder, homeFolder}
{
    create(templateId, owner);
}

std::string TemplatePreferencesDialog::folder() const
{
    for (const std::string& given : m_given)
        if (m_folder == shownText(given))
            return given;
    return pathOf(m_folder);
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
    const std::string wanted(util::trimmed(folder()));
    // The one in use may be away for the moment.
    std::error_code error;
    if (wanted.empty() || std::find(m_given.begin(), m_given.end(), wanted) != m_given.end() ||
        std::filesystem::is_directory(wanted, error))
        return true;
    const std::string path = std::filesystem::absolute(wanted).string();
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
    wxDirDialog dialog(this, translatedLabel("Template Path"), toolkitPath(folder()));
    if (native::runModal(dialog) != wxID_OK)
        return;
    m_given.front() = pathOf(dialog.GetPath());
    m_folder = shownText(m_given.front());
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
    m_folder = shownText(m_given.back());
    UpdateData(false);
    showFont();
}

void TemplatePreferencesDialog::showFont()
{
    if (auto* const field = dynamic_cast<wxTextCtrl*>(control(fontId)))
        field->ChangeValue(gridFont(m_preferences.font).GetNativeFontInfoUserDesc());
}

} // namespace TessaronResources
