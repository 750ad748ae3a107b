#ifndef TEMPLATES_TEMPLATESESSION_H
#define TEMPLATES_TEMPLATESESSION_H

#include "templates/TemplateDefinitions.h"
#include "templates/TemplateFailures.h"
#include "templates/TemplatePrompts.h"
#include "templates/TemplateRows.h"
#include <tessaron/engine/TemplateInfo.h>
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/util/Parameterized.h>

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace TessaronResources
{

/// Is told what has become of a session's rows, after the change.
class TemplateSessionObserver
{
public:
    static constexpr std::size_t newRow = static_cast<std::size_t>(-1);

    virtual ~TemplateSessionObserver() = default;

    /// The rows are others now: former[i] is the number that the template of row i had before, newRow for one that was
    /// not there.
    virtual void rowsReplaced(const std::vector<std::size_t>& former) = 0;
    /// The rows stand in another order: order[i] is the former number of row i.
    virtual void rowsReordered(const std::vector<std::size_t>& order) = 0;
    /// Templates have been edited, or edits stored. The rows are the same, in the same order.
    virtual void rowsEdited() = 0;
    /// TemplateSession::layoutIsKept() tells something else now.
    virtual void layoutKeepingChanged() {}
};

/// One run of the template manager: what it holds, and what its commands do. The window shows the state and calls the
/// commands; questions and messages go to the user, changes of the rows to the observers. Nothing here has a window.
class TemplateSession
{
public:
    /// \param folder   the template folder that the host names; definitions and the list of known folders stay there
    /// \param current  the operation's parameters
    /// \param prompts  outlives the session
    TemplateSession(int kind, int selector, std::string folder, util::Parameterized current, TemplatePrompts& prompts);

    /// Observers are told in the order in which they were added. They are not owned, and no command is given after
    /// they are gone.
    void addObserver(TemplateSessionObserver& observer) { m_observers.push_back(&observer); }

    /// Runs a command, or several that are one to the user: what fails in it becomes one message at its end.
    void inOneMessage(const std::function<void()>& command);

    // Opening

    /// Reads the known folders and the definitions; the first start makes the definitions. Where they are damaged, the
    /// user may have the default ones made in their place. Does not fill the rows.
    DefinitionsState open(bool titleVariant);
    /// Lists the folder's templates into the rows, those that the match filter displays, in the order of the sort last
    /// chosen. Edits are dropped. Files that
    /// cannot be read are named in one message, each once and not at every refill.
    void fill();
    /// Fills the rows again unless edits would be dropped by it.
    void refresh();

    // State

    /// The template folder that the host names.
    const std::string& homeFolder() const { return m_homeFolder; }
    /// The template folder in use, and the sub-folder that holds the templates of this kind of operation.
    const std::string& folder() const { return m_folder; }
    /// The template folder that the user has chosen. It is folder() unless it is away, as a drive of the network can
    /// be.
    const std::string& wantedFolder() const { return m_wantedFolder; }
    std::string kindFolder() const { return templateKindFolder(m_folder, m_kind); }
    const TemplateRows& rows() const { return m_rows; }
    /// The names of all templates that were listed, also of those that the match filter leaves out.
    const std::vector<std::string>& existingNames() const { return m_existingNames; }
    util::TemplateInfo& info() { return m_info; }
    const util::TemplateInfo& info() const { return m_info; }

    // Definitions and preferences

    /// False when the definitions cannot be stored, as in a library that may only be read.
    bool layoutIsKept() const { return m_layoutIsKept; }
    enum class StoreReason
    {
        change,        ///< the user has changed them
        endWithChange, ///< the window closes; the user has changed something that has not been stored
        end,           ///< the window closes
    };
    /// Stores the definitions: columns, heading height, window size, preferences. Definitions that could not be loaded
    /// are not overwritten before the user has changed them. A failure is reported where the user would lose a change
    /// without knowing: once, and not at the end in a library that may only be read.
    /// \returns whether they are stored.
    bool storeDefinitions(StoreReason reason);
    /// Reads the list of known folders anew, as the preferences dialog does when it opens.
    void reloadKnownFolders();
    /// Must the rows be filled again, without their edits, when acceptPreferences() is called with these?
    bool changesRows(const util::TemplatePreferences& preferences, const std::string& folder) const;
    /// Accepts the preferences dialog: the preferences, and the folder that is wanted from now on. Stores both.
    /// \returns whether the rows must be filled again. The folder given by the user is taken without blanks around it;
    /// an empty one is the host's. One that was wanted before and is still away stays the wanted one.
    bool acceptPreferences(const util::TemplatePreferences& preferences, const std::string& folder);

    // Rows

    /// Takes what the user typed into a cell.
    void editCell(std::size_t row, const GridColumnInfo& column, const std::string& text);
    /// Brings the rows into the order of these levels, here and at every fill() from now on.
    void sort(const std::vector<util::TemplateSortLevel>& levels);

    // Names

    /// A name for a new template; "TEMPL" when none can be generated, which is reported.
    std::string proposeName();

    // Commands

    /// Reads the files that the user chooses and saves their templates in this folder. Does not fill the rows.
    /// \returns how many templates have been saved.
    std::size_t importTemplates();
    /// Writes the templates of the given rows, in this order, into a file that the user chooses.
    bool exportTemplates(const std::vector<std::size_t>& rows);
    /// Deletes the stored templates of the given rows, and fills the rows again. While other rows have edits, only
    /// those of the deleted templates are taken away.
    /// \returns how many are gone.
    std::size_t deleteTemplates(const std::vector<std::size_t>& rows);
    /// Saves all edited templates; asks before one is replaced. Rows that were not saved, by a failure or by the user's
    /// choice, stay edited. Does not fill the rows.
    /// \returns whether no edits are left.
    bool storeEdits();

    /// May the rows be dropped? With edits not stored yet the user is asked whether they are to be stored; on OK they
    /// are.
    /// \returns whether no edits are left, or the user gave them up.
    bool settleEdits();

    /// Load mode, "Apply": copies the template of a row, without the keys that belong to the tool of the operation,
    /// into `result`, whose former contents are gone.
    void applyTemplate(std::size_t row, util::Parameterized& result) const;

    /// Save mode, "Save", after settleEdits(): saves the current operation as the template `name`, over one that is
    /// there, and tells the user the name. `result`, unless null, receives what was stored.
    /// \returns whether it is stored.
    bool saveCurrent(const std::string& name, util::Parameterized* result);

    /// What the save-as dialog is given and gives back.
    struct SaveAsAnswer
    {
        std::string name;
        bool loadSaved = false;
    };
    /// The save entry point: runs the save-as dialog (false: cancelled) until a name is accepted, asks before a
    /// template is replaced, and stores the definitions. `result` and `loadSaved`, unless null, receive what was stored
    /// and the user's wish to load it.
    /// \returns whether it is stored.
    bool saveCurrentAs(const std::function<bool(SaveAsAnswer& answer)>& dialog, util::Parameterized* result,
                       bool* loadSaved);

private:
    std::string chosenFolder(const std::string& typed) const;
    std::string usedFolder(const std::string& typed) const;
    /// The name of the template that the user sees under this one; a new name as it is.
    std::string storedName(const std::string& shown) const;
    std::vector<std::size_t> formerNumbers(const TemplateRows& formerRows) const;
    void report(int code, const std::string& line = {});
    void setLayoutIsKept(bool kept);
    void removeRows(const std::set<std::size_t>& rows);
    void reportListing(int code, const std::vector<util::FaultyTemplateFile>& faulty);
    util::Parameterized currentAs(const std::string& name) const;
    bool storeRow(std::size_t row);
    template <class Notice>
    void notify(Notice notice);

    int m_kind;
    int m_selector;
    std::string m_homeFolder;
    std::string m_wantedFolder;
    std::string m_folder;
    util::Parameterized m_current;
    TemplatePrompts& m_prompts;

    util::TemplateInfo m_info;
    DefinitionsState m_definitionsState = DefinitionsState::failed;
    int m_definitionsCode = exchange::status::internalError; ///< why they could not be loaded
    bool m_layoutIsKept = true;
    bool m_storeFailureReported = false;
    TemplateFailures m_failures; ///< of the command that runs
    int m_commandDepth = 0;
    std::vector<std::string> m_knownFolders;
    std::vector<std::string> m_existingNames;
    TemplateRows m_rows;
    std::vector<TemplateSessionObserver*> m_observers;
    std::set<std::pair<std::string, int>> m_reported; ///< what the last listing could not read, and the codes
};

/// The name that the save-as dialog starts with: the last one accepted in this process, or the first existing one.
std::string proposedSaveName(const std::vector<std::string>& existingNames);
/// Remembers an accepted name for the next save-as dialog of the process.
void keepSaveName(const std::string& name);

} // namespace TessaronResources

#endif
