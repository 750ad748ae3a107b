#include "templates/dialogs/TemplateManagerFindDialog.h"

#include "frame/WindowPlace.h"

#include <wx/combobox.h>
#include <wx/display.h>

#include <utility>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1054;
constexpr int textId = 1141;
constexpr int findNextId = 1140;

void offer(wxComboBox& combo, const std::vector<std::string>& history)
{
    for (std::size_t k = combo.GetCount(); k < history.size(); ++k)
        combo.Append(wxString::FromUTF8(history[k]));
}

} // namespace

TemplateManagerFindDialog::TemplateManagerFindDialog(FindNext findNext, const std::vector<std::string>& history,
                                                     wxWindow* owner)
    : m_findNext(std::move(findNext)), m_history(history)
{
    create(templateId, owner);
}

bool TemplateManagerFindDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    m_text = dynamic_cast<wxComboBox*>(control(textId));
    if (m_text)
    {
        offer(*m_text, m_history);
        if (!m_history.empty())
            m_text->ChangeValue(wxString::FromUTF8(m_history.back()));
        m_text->SetFocus();
        m_text->SelectAll();
    }
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { onFindNext(); }, findNextId);
    enableVisualManagerStyle();
    return false;
}

void TemplateManagerFindDialog::onFindNext()
{
    if (!m_text)
        return;
    const wxString typed = m_text->GetValue();
    const wxRect hit = m_findNext(typed.utf8_string());
    offer(*m_text, m_history);
    m_text->ChangeValue(typed);
    if (!hit.IsEmpty())
        Move(placeBeside(GetScreenRect(), hit, wxDisplay(this).GetClientArea()));
}

} // namespace TessaronResources
