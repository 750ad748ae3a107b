#ifndef TEMPLATES_TEMPLATEMANAGERCOMMANDS_H
#define TEMPLATES_TEMPLATEMANAGERCOMMANDS_H

#include "templates/TemplateSession.h"
#include "templates/TemplateWindowPrompts.h"
#include "templates/grid/TemplateManagerGrid.h"

#include <string>

class wxFrame;

namespace TessaronResources
{

/// What the commands of the template manager's window do, but for those that end it: each runs its dialog over the
/// window and has the session do what the user chose.
class TemplateManagerCommands : public TemplateGridCommands
{
public:
    /// None is owned; all outlive the object.
    TemplateManagerCommands(wxFrame& frame, TemplateSession& session, TemplateWindowPrompts& prompts);

    /// To be given before the first command.
    void setGrid(TemplateManagerGrid& grid) { m_grid = &grid; }

    /// Runs a command of the window (TemplateManagerIds.h).
    /// \returns whether it is one of these.
    bool run(int command);
    /// Stores the edits.
    void storeEdits();
    /// The layout or the preferences have been changed by the user, and are to be stored.
    void markChanged() { m_changed = true; }
    /// Stores the definitions with the heading height and the window's size, as the window closes.
    void storeLayoutAtEnd();

    void find();
    void findAgain();

    void deleteSelected() override;
    void deleteByKey() override;
    void configureColumns() override;
    void columnsChanged() override;

private:
    void storeLayout(TemplateSession::StoreReason reason);
    void importTemplates();
    void exportTemplates();
    void sort();
    void preferences();
    /// \returns whether there was a hit.
    bool searchNext(const std::string& text);

    wxFrame& m_frame;
    TemplateSession& m_session;
    TemplateWindowPrompts& m_prompts;
    TemplateManagerGrid* m_grid = nullptr;
    bool m_changed = false;
    std::string m_searched;
};

} // namespace TessaronResources

#endif
