#include "templates/dialogs/TemplateSortDialog.h"

#include "frame/Translation.h"
#include "templates/dialogs/TemplateSortGrid.h"
#include "templates/grid/GridSetup.h"

#include <utility>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1046;
constexpr int addId = 1133;
constexpr int deleteId = 1134;
constexpr int upId = 1057;
constexpr int downId = 1058;
constexpr int gridId = 1137;
constexpr int upBitmap = 1051;
constexpr int downBitmap = 1050;

} // namespace

TemplateSortDialog::TemplateSortDialog(const std::vector<util::TemplateColumn>& columns,
                                       std::vector<util::TemplateSortLevel> levels, wxWindow* owner)
    : m_levels(columns, std::move(levels))
{
    if (m_levels.levels().empty())
        m_levels.add();
    create(templateId, owner);
}

bool TemplateSortDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    m_grid = new TemplateSortGrid(this, gridId, m_levels);
    replacePlaceholder(*m_grid, control(gridId));
    setImage(upId, upBitmap, translatedLabel("Move level up"));
    setImage(downId, downBitmap, translatedLabel("Move level down"));
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { addLevel(); }, addId);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { deleteLevel(); }, deleteId);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { move(true); }, upId);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { move(false); }, downId);
    m_grid->Bind(wxEVT_GRID_SELECT_CELL,
                 [this](wxGridEvent& event)
                 {
                     event.Skip();
                     CallAfter([this] { updateButtons(); });
                 });
    followSize({{gridId, {0, 0, 1, 1}}, {1, {1, 1, 0, 0}}, {2, {1, 1, 0, 0}}});
    enableVisualManagerStyle();
    // Enter means the whole dialog, also from within the levels, where the toolkit would go one row down.
    m_grid->Bind(wxEVT_KEY_DOWN,
                 [this](wxKeyEvent& event)
                 {
                     if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER)
                         OnOK();
                     else
                         event.Skip();
                 });
    show(0);
    m_grid->SetFocus();
    return false;
}

void TemplateSortDialog::OnOK()
{
    m_grid->DisableCellEditControl();
    ResizableDialog::OnOK();
}

void TemplateSortDialog::addLevel()
{
    show(m_levels.add());
}

void TemplateSortDialog::deleteLevel()
{
    const std::size_t level = m_grid->selectedLevel();
    if (level >= m_levels.levels().size())
        return;
    m_levels.remove(level);
    show(level > 0 ? level - 1 : 0);
}

void TemplateSortDialog::move(bool up)
{
    const std::size_t level = m_grid->selectedLevel();
    if (up ? !m_levels.canMoveUp(level) : !m_levels.canMoveDown(level))
        return;
    if (up)
        m_levels.moveUp(level);
    else
        m_levels.moveDown(level);
    show(up ? level - 1 : level + 1);
}

void TemplateSortDialog::show(std::size_t selected)
{
    m_grid->showLevels(selected);
    updateButtons();
}

void TemplateSortDialog::updateButtons()
{
    const std::size_t level = m_grid->selectedLevel();
    const struct
    {
        int id;
        bool enabled;
    } states[] = {{addId, m_levels.canAdd()},
                  {deleteId, level < m_levels.levels().size()},
                  {upId, m_levels.canMoveUp(level)},
                  {downId, m_levels.canMoveDown(level)}};
    for (const auto& state : states)
        if (wxWindow* const button = control(state.id))
            button->Enable(state.enabled);
}

} // namespace TessaronResources
