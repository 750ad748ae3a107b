#include "templates/TemplateManagerFormView.h"

#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Translation.h"
#include "frame/looks/VisualManager.h"
#include "frame/looks/VisualThemes.h"
#include "frame/native/NativeToolkit.h"
#include "templates/TemplateManagerFrameWnd.h"
#include "templates/TemplateManagerIds.h"
#include "templates/dialogs/SaveOperationTemplateDialog.h"
#include "templates/grid/GridSetup.h"
#include <tessaron/frame/ResourceSet.h>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/textctrl.h>

#include <optional>
#include <utility>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1041;
constexpr int gridId = 1127;
constexpr int nameLabelId = 1131;
constexpr int nameId = 1132;
constexpr int themeLabelId = 1148;
constexpr int themeId = 1147;
constexpr int saveEditsId = 1125;
constexpr int deleteId = 1124;
constexpr int cancelId = 1150;

// The long titles, which follow the parameter names.
constexpr bool titleVariant = true;

} // namespace

TemplateManagerFormView::TemplateManagerFormView(wxFrame& frame, const TemplateManagerInputs& inputs)
    : m_frame(frame), m_inputs(inputs), m_prompts(frame),
      m_session(inputs.kind, inputs.selector, inputs.path, *inputs.current, m_prompts),
      m_commands(frame, m_session, m_prompts)
{
}

bool TemplateManagerFormView::setUp()
{
    if (!currentResources().loadForm(*this, &m_frame, templateId) || !makeControls())
        return false;
    m_session.inOneMessage([this] { open(); });
    if (m_inputs.loadSaved)
        *m_inputs.loadSaved = m_session.info().preferences.loadSavedTemplates;
    bindControls();
    applyLook();
    m_grid->SetFocus();
    return true;
}

void TemplateManagerFormView::open()
{
    m_session.open(titleVariant);
    installVisualTheme(theme());
    if (auto* const themes = dynamic_cast<wxChoice*>(FindWindow(themeId)))
        themes->SetSelection(theme());
    m_grid->rebuildColumns();
    m_session.fill();
    if (auto* const name = dynamic_cast<wxTextCtrl*>(FindWindow(nameId)); name && m_inputs.saving)
        name->ChangeValue(wxString::FromUTF8(m_session.proposeName()));
}

bool TemplateManagerFormView::makeControls()
{
    wxWindow* const frameForGrid = FindWindow(gridId);
    if (!frameForGrid)
        return false;
    m_grid = new TemplateManagerGrid(this, gridId, m_session, m_commands);
    m_commands.setGrid(*m_grid);
    // After the grid: the buttons follow its selection.
    m_session.addObserver(*this);
    replacePlaceholder(*m_grid, frameForGrid);
    if (auto* const themes = dynamic_cast<wxChoice*>(FindWindow(themeId)))
    {
        for (int theme = 0; theme < visualThemeCount; ++theme)
            themes->Append(visualThemeName(theme));
        native::setAccessibleName(*themes, translatedLabel("Theme"));
        if (isVisualTheme(m_inputs.theme))
            themes->SetToolTip(translatedLabel(
                "The application sets the theme. Your choice is kept for windows in which it does not."));
    }
    if (wxWindow* const accept = FindWindow(idOk))
        accept->SetLabel(m_inputs.saving ? translatedLabel("Save") : translatedLabel("Apply"));
    // Without an operation to name, the fields would only raise questions.
    for (const int id : {nameLabelId, nameId})
        if (wxWindow* const control = FindWindow(id))
            control->Enable(m_inputs.saving);
    return true;
}

void TemplateManagerFormView::bindControls()
{
    const struct
    {
        int id;
        MoveFactors factors;
    } follow[] = {{gridId, {0, 0, 1, 1}},          {nameLabelId, {0, 1, 0, 0}}, {nameId, {0, 1, 0.3F, 0}},
                  {themeLabelId, {0.3F, 1, 0, 0}}, {themeId, {0.3F, 1, 0, 0}},  {saveEditsId, {0, 1, 0, 0}},
                  {deleteId, {0, 1, 0, 0}},        {idOk, {1, 1, 0, 0}},        {cancelId, {1, 1, 0, 0}}};
    m_mover.setUp(*this);
    for (const auto& entry : follow)
        m_mover.add(FindWindow(entry.id), entry.factors);
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             m_mover.resize(GetClientSize().x, GetClientSize().y);
             event.Skip();
         });
    const auto onButton = [this](int id, const std::function<void()>& action)
    {
        Bind(
            wxEVT_BUTTON, [action](wxCommandEvent&) { action(); }, id);
    };
    onButton(idOk, [this] { m_inputs.saving ? save() : apply(); });
    onButton(saveEditsId, [this] { m_commands.storeEdits(); });
    onButton(deleteId, [this] { m_commands.deleteSelected(); });
    onButton(cancelId, [this] { finish(0); });
    Bind(
        wxEVT_CHOICE, [this](wxCommandEvent& event) { themeChosen(event.GetInt()); }, themeId);
    const auto follows = [this](wxEvent& event)
    {
        event.Skip();
        // The toolkit sends these before it does what they tell.
        CallAfter(&TemplateManagerFormView::updateButtons);
    };
    m_grid->Bind(wxEVT_GRID_RANGE_SELECTED, follows);
    m_grid->Bind(wxEVT_GRID_EDITOR_SHOWN, follows);
    m_grid->Bind(wxEVT_GRID_EDITOR_HIDDEN, follows);
}

void TemplateManagerFormView::setResultSlot(int* slot, std::function<void()> finished)
{
    m_slot = slot;
    m_finished = std::move(finished);
}

int TemplateManagerFormView::theme() const
{
    return isVisualTheme(m_inputs.theme) ? m_inputs.theme : m_session.info().preferences.theme;
}

void TemplateManagerFormView::applyLook()
{
    m_grid->applyLook();
    if (auto* const frame = dynamic_cast<TemplateManagerFrameWnd*>(&m_frame))
        frame->applyLook();
}

void TemplateManagerFormView::layoutKeepingChanged()
{
    if (auto* const frame = dynamic_cast<TemplateManagerFrameWnd*>(&m_frame))
        frame->setNotice(m_session.layoutIsKept()
                             ? wxString()
                             : translatedLabel("This template library cannot be written to: changes of the layout and "
                                               "of the preferences are not kept."));
}

void TemplateManagerFormView::updateButtons()
{
    const bool selected = m_grid->IsSelection();
    if (wxWindow* const remove = FindWindow(deleteId))
        remove->Enable(selected);
    if (wxWindow* const store = FindWindow(saveEditsId))
        store->Enable(m_session.rows().hasEdits() || m_grid->IsCellEditControlShown());
}

// The end

void TemplateManagerFormView::finish(int value, const std::function<void()>& handOver)
{
    if (!isRunning() || m_busy)
        return;
    m_grid->finishEdit();
    if (value == 0 && !settleBeforeEnd())
        return;
    if (handOver)
        handOver();
    m_commands.storeLayoutAtEnd();
    *m_slot = value;
    if (m_finished)
        m_finished();
    m_frame.Close();
}

bool TemplateManagerFormView::settleBeforeEnd()
{
    m_busy = true;
    const bool settled = m_session.settleEdits();
    m_busy = false;
    return settled;
}

void TemplateManagerFormView::apply()
{
    m_grid->finishEdit();
    const std::optional<std::size_t> chosen = m_grid->chosenRow();
    if (!chosen)
        finish(0);
    else
        finish(1,
               [this, row = *chosen]
               {
                   if (m_inputs.result)
                       m_session.applyTemplate(row, *m_inputs.result);
               });
}

void TemplateManagerFormView::save()
{
    if (!isRunning())
        return;
    m_grid->finishEdit();
    const bool edited = m_session.rows().hasEdits();
    if (!m_session.settleEdits())
        return;
    if (edited)
        m_session.fill();
    const auto* const name = dynamic_cast<wxTextCtrl*>(FindWindow(nameId));
    const wxString typed = name ? wxString(name->GetValue()).Trim().Trim(false) : wxString();
    finish(m_session.saveCurrent(typed.utf8_string(), m_inputs.result) ? 1 : 0);
}

void TemplateManagerFormView::saveAs()
{
    if (!isRunning())
        return;
    const auto ask = [&](TemplateSession::SaveAsAnswer& answer)
    {
        SaveOperationTemplateDialog dialog(m_session.existingNames(), answer.loadSaved, &m_frame);
        if (dialog.ShowModal() != idOk)
            return false;
        answer.name = dialog.name();
        answer.loadSaved = dialog.loadBack();
        return true;
    };
    if (m_session.saveCurrentAs(ask, m_inputs.result, m_inputs.loadSaved))
        finish(1);
}

bool TemplateManagerFormView::onCommand(int command)
{
    if (!isRunning())
        return false;
    if (command != templateCommand::exit)
        return m_commands.run(command);
    finish(0);
    return true;
}

bool TemplateManagerFormView::onKey(int key, int modifiers)
{
    if (!isRunning())
        return false;
    if (key == WXK_F3 && modifiers == wxMOD_NONE)
        m_commands.findAgain();
    else if (key == 'F' && modifiers == wxMOD_CONTROL)
        m_commands.find();
    else
        return false;
    return true;
}

void TemplateManagerFormView::themeChosen(int theme)
{
    int& chosen = m_session.info().preferences.theme;
    if (theme == chosen)
        return;
    m_commands.markChanged();
    chosen = theme;
    installVisualTheme(this->theme());
    applyLook();
    m_session.refresh();
}

} // namespace TessaronResources
