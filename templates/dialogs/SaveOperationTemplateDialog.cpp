#include "templates/dialogs/SaveOperationTemplateDialog.h"

#include "frame/MessageDialog.h"
#include "frame/ShownText.h"
#include "frame/Translation.h"
#include "templates/TemplateSession.h"
#include <tessaron/frame/DataExchange.h>

#include <wx/combobox.h>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1057;
constexpr int nameId = 1158;
constexpr int loadBackId = 1042;

} // namespace

SaveOperationTemplateDialog::SaveOperationTemplateDialog(const std::vector<std::string>& names, bool loadBack,
                                                         wxWindow* owner)
    : m_names(names), m_name(shownText(proposedSaveName(names))), m_loadBack(loadBack)
{
    create(templateId, owner);
}

bool SaveOperationTemplateDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    if (auto* const combo = dynamic_cast<wxComboBox*>(control(nameId)))
    {
        wxArrayString names;
        names.reserve(m_names.size());
        for (const std::string& name : m_names)
            names.Add(shownText(name));
        combo->Append(names);
        combo->ChangeValue(m_name);
        combo->SetFocus();
        combo->SelectAll();
    }
    enableVisualManagerStyle();
    return false;
}

void SaveOperationTemplateDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    exchange->check(loadBackId, m_loadBack);
}

void SaveOperationTemplateDialog::OnOK()
{
    auto* const combo = dynamic_cast<wxComboBox*>(control(nameId));
    wxString typed = combo ? combo->GetValue() : wxString();
    typed.Trim(true).Trim(false);
    if (typed.empty())
    {
        showMessage(this, GetTitle(), translatedLabel("Please enter a name for the template."), MessageKind::warning);
        if (combo)
            combo->SetFocus();
        return;
    }
    m_name = typed;
    DialogBase::OnOK();
}

} // namespace TessaronResources
