#include "templates/dialogs/TemplateColumnsDialog.h"
#include "frame/Translation.h"

#include <wx/button.h>
#include <wx/checklst.h>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1053;
constexpr int listId = 1138;
constexpr int upId = 1057;
constexpr int downId = 1058;
constexpr int upBitmap = 1051;
constexpr int downBitmap = 1050;

} // namespace

TemplateColumnsDialog::TemplateColumnsDialog(const std::vector<util::TemplateColumn>& columns, wxWindow* owner)
    : m_columns(columns)
{
    create(templateId, owner);
}

bool TemplateColumnsDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    m_list = dynamic_cast<wxCheckListBox*>(control(listId));
    if (!m_list)
        return true;
    setImage(upId, upBitmap, translatedLabel("Move up"));
    setImage(downId, downBitmap, translatedLabel("Move down"));
    for (unsigned k = 0; k < m_columns.items().size(); ++k)
    {
        m_list->Append(wxEmptyString);
        showItem(k);
    }
    m_list->Bind(wxEVT_CHECKLISTBOX,
                 [this](wxCommandEvent& event)
                 {
                     const auto item = static_cast<unsigned>(event.GetInt());
                     m_columns.setShown(event.GetInt(), m_list->IsChecked(item));
                     showItem(item);
                 });
    // The list itself answers the space bar only on some desktops.
    m_list->Bind(wxEVT_KEY_DOWN,
                 [this](wxKeyEvent& event)
                 {
                     if (event.GetKeyCode() == WXK_SPACE && event.GetModifiers() == wxMOD_NONE)
                         toggleSelected();
                     else
                         event.Skip();
                 });
    m_list->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { updateButtons(); });
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { move(&TemplateColumnList::moveUp); }, upId);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { move(&TemplateColumnList::moveDown); }, downId);
    followSize(
        {{listId, {0, 0, 1, 1}}, {upId, {1, 0, 0, 0}}, {downId, {1, 0, 0, 0}}, {1, {1, 1, 0, 0}}, {2, {1, 1, 0, 0}}});
    updateButtons();
    enableVisualManagerStyle();
    return true;
}

void TemplateColumnsDialog::showItem(unsigned index)
{
    const TemplateColumnList::Item& item = m_columns.items()[index];
    m_list->SetString(index, wxString::FromUTF8(item.title));
    m_list->Check(index, item.shown);
}

void TemplateColumnsDialog::toggleSelected()
{
    const int selected = m_list->GetSelection();
    if (selected < 0)
        return;
    m_columns.setShown(selected, !m_list->IsChecked(static_cast<unsigned>(selected)));
    showItem(static_cast<unsigned>(selected));
}

void TemplateColumnsDialog::move(int (TemplateColumnList::*how)(int))
{
    const int from = m_list->GetSelection();
    if (from < 0)
        return;
    const int to = (m_columns.*how)(from);
    showItem(static_cast<unsigned>(from));
    showItem(static_cast<unsigned>(to));
    m_list->SetSelection(to);
    updateButtons();
}

void TemplateColumnsDialog::updateButtons()
{
    const int selected = m_list->GetSelection();
    if (wxWindow* const up = control(upId))
        up->Enable(m_columns.canMoveUp(selected));
    if (wxWindow* const down = control(downId))
        down->Enable(m_columns.canMoveDown(selected));
}

} // namespace TessaronResources
