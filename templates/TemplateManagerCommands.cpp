#include "templates/TemplateManagerCommands.h"

#include "frame/ControlId.h"
#include "frame/Translation.h"
#include "templates/TemplateManagerIds.h"
#include "templates/dialogs/TemplateColumnsDialog.h"
#include "templates/dialogs/TemplateManagerFindDialog.h"
#include "templates/dialogs/TemplatePreferencesDialog.h"
#include "templates/dialogs/TemplateSortDialog.h"

#include <wx/frame.h>

#include <optional>
#include <string>

namespace TessaronResources
{

namespace
{

typedef TemplateSession::StoreReason StoreReason;

} // namespace

TemplateManagerCommands::TemplateManagerCommands(wxFrame& frame, TemplateSession& session,
                                                 TemplateWindowPrompts& prompts)
    : m_frame(frame), m_session(session), m_prompts(prompts)
{
}

bool TemplateManagerCommands::run(int command)
{
    switch (command)
    {
    case templateCommand::preferences:
        preferences();
        return true;
    case templateCommand::sort:
        sort();
        return true;
    case templateCommand::sortAscending:
    case templateCommand::sortDescending:
        m_grid->quickSort(command == templateCommand::sortDescending);
        return true;
    case templateCommand::find:
        find();
        return true;
    case templateCommand::importTemplates:
        importTemplates();
        return true;
    case templateCommand::exportTemplates:
        exportTemplates();
        return true;
    case templateCommand::sortAZ:
        m_prompts.showError(translated("Sorting A-Z is not implemented yet."));
        return true;
    case templateCommand::sortZA:
        m_prompts.showError(translated("Sorting Z-A is not implemented yet."));
        return true;
    default:
        return false;
    }
}

void TemplateManagerCommands::storeLayoutAtEnd()
{
    storeLayout(m_changed ? StoreReason::endWithChange : StoreReason::end);
}

void TemplateManagerCommands::storeLayout(StoreReason reason)
{
    m_session.info().headingHeight = m_grid->GetColLabelSize();
    if (!m_frame.IsMaximized() && !m_frame.IsIconized())
    {
        m_session.info().windowWidth = m_frame.GetSize().x;
        m_session.info().windowHeight = m_frame.GetSize().y;
    }
    m_session.storeDefinitions(reason);
}

void TemplateManagerCommands::storeEdits()
{
    m_grid->finishEdit();
    m_session.inOneMessage(
        [this]
        {
            if (m_session.storeEdits())
                m_changed = false;
            m_session.refresh();
        });
}

void TemplateManagerCommands::deleteSelected()
{
    m_grid->finishEdit();
    if (const std::vector<std::size_t> selected = m_grid->selectedRows(); !selected.empty())
        m_session.deleteTemplates(selected);
}

void TemplateManagerCommands::deleteByKey()
{
    const std::size_t count = m_grid->selectedRows().size();
    if (count > 0 &&
        m_prompts.askOkCancel(count == 1 ? translated("Delete the selected template?")
                                         : translatedWith("Delete the %s selected templates?", std::to_string(count))))
        deleteSelected();
}

void TemplateManagerCommands::configureColumns()
{
    m_grid->finishEdit();
    TemplateColumnsDialog dialog(m_session.info().columns, &m_frame);
    if (dialog.ShowModal() != idOk)
        return;
    m_session.info().columns = dialog.result();
    columnsChanged();
}

void TemplateManagerCommands::columnsChanged()
{
    m_changed = true;
    m_session.inOneMessage(
        [this]
        {
            storeLayout(StoreReason::change);
            m_session.info().headingHeight = -1;
            m_grid->rebuildColumns();
            m_session.refresh();
        });
}

void TemplateManagerCommands::sort()
{
    m_grid->finishEdit();
    TemplateSortDialog dialog(m_session.info().columns, m_session.info().sortLevels, &m_frame);
    if (dialog.ShowModal() != idOk)
        return;
    m_changed = true;
    m_grid->sortBy(dialog.result());
}

void TemplateManagerCommands::preferences()
{
    m_grid->finishEdit();
    m_session.reloadKnownFolders();
    util::TemplatePreferences preferences = m_session.info().preferences;
    std::string folder = m_session.wantedFolder();
    bool refillNeeded = false;
    std::optional<TemplatePreferencesDialog> dialog; // it gives the keys back to the list, and may not be gone by then
    // What the user has entered is still there when edits have to be dealt with first.
    do
    {
        dialog.emplace(preferences, folder, m_session.homeFolder(), &m_frame);
        if (dialog->ShowModal() != idOk)
            return;
        preferences = dialog->preferences();
        folder = dialog->folder();
        refillNeeded = m_session.changesRows(preferences, folder);
    } while (refillNeeded && !m_session.settleEdits());
    if (preferences.font != m_session.info().preferences.font)
        m_session.info().headingHeight = -1;
    m_session.inOneMessage(
        [&]
        {
            m_session.acceptPreferences(preferences, folder);
            m_grid->applyLook();
            m_grid->rebuildColumns();
            if (refillNeeded)
                m_session.fill();
        });
}

void TemplateManagerCommands::importTemplates()
{
    m_grid->finishEdit();
    if (!m_session.settleEdits())
        return;
    m_session.inOneMessage(
        [this]
        {
            if (m_session.importTemplates() > 0)
                m_session.fill();
        });
}

void TemplateManagerCommands::exportTemplates()
{
    m_grid->finishEdit();
    std::vector<std::size_t> rows(m_session.rows().size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        rows[row] = row;
    m_session.exportTemplates(rows);
}

void TemplateManagerCommands::find()
{
    m_grid->finishEdit();
    m_grid->searchFromStart();
    const auto findNext = [this](const std::string& text)
    { return searchNext(text) ? m_grid->currentCellOnScreen() : wxRect(); };
    TemplateManagerFindDialog(findNext, m_grid->searchedTexts(), &m_frame).ShowModal();
}

void TemplateManagerCommands::findAgain()
{
    if (m_searched.empty())
        find();
    else
        searchNext(m_searched);
}

bool TemplateManagerCommands::searchNext(const std::string& text)
{
    m_searched = text;
    const TemplateFind::Result result = m_grid->findNext(text);
    if (result == TemplateFind::Result::notFound)
        m_prompts.showError(translated(templateNotFoundText));
    return result == TemplateFind::Result::found;
}

} // namespace TessaronResources
