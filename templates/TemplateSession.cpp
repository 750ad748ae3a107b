#include "templates/TemplateSession.h"

#include "frame/Translation.h"
#include "templates/TemplateSharing.h"
#include "templates/TemplateSort.h"
#include "util/platform/Folder.h"
#include "util/text/Ascii.h"
#include "util/text/ReadableText.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace TessaronResources
{

namespace
{

namespace keys = util::keys;
namespace status = exchange::status;

constexpr const char* nameWithoutGenerator = "TEMPL";
constexpr const char* unsavedEditsText =
    translatable("Some templates have changes that have not been saved.\nDo you want to save them? Cancel drops them.");

constexpr const char* standardColumnsText =
    translatable("The columns of the list cannot be read. Do you want to have the standard columns instead?\n"
                 "The damaged file is kept beside the new one.");

bool isFolder(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

std::string nameOf(const util::Parameterized& set)
{
    return set.stringOr(keys::templateName, "");
}

std::string& lastSaveName()
{
    static std::string name;
    return name;
}

} // namespace

TemplateSession::TemplateSession(int kind, int selector, std::string folder, util::Parameterized current,
                                 TemplatePrompts& prompts)
    : m_kind(kind), m_selector(selector), m_homeFolder(std::move(folder)), m_wantedFolder(m_homeFolder),
      m_folder(m_homeFolder), m_current(std::move(current)), m_prompts(prompts)
{
}

template <class Notice>
void TemplateSession::notify(Notice notice)
{
    for (TemplateSessionObserver* const observer : m_observers)
        notice(*observer);
}

void TemplateSession::inOneMessage(const std::function<void()>& command)
{
    ++m_commandDepth;
    command();
    if (--m_commandDepth == 0)
        std::exchange(m_failures, {}).tell(m_prompts);
}

void TemplateSession::report(int code, const std::string& line)
{
    inOneMessage([&] { m_failures.add(code, line); });
}

DefinitionsState TemplateSession::open(bool titleVariant)
{
    inOneMessage(
        [this, titleVariant]
        {
            reloadKnownFolders();
            int code = status::ok;
            m_definitionsState = prepareTemplateDefinitions(m_homeFolder, m_kind, titleVariant, m_info, code);
            if (m_definitionsState == DefinitionsState::failed && code == status::templateFormatError)
            {
                // Without a way back the list would have no columns from now on.
                if (m_prompts.askOkCancelError(translated(exchange::statusText(code)) + "\n" +
                                               translated(standardColumnsText)))
                {
                    m_definitionsState = DefinitionsState::created;
                    code = makeTemplateDefinitions(m_homeFolder, m_kind, titleVariant, m_info);
                }
            }
            else if (m_definitionsState == DefinitionsState::failed)
                report(code);
            m_definitionsCode = code;
            const util::Folder home(util::nativePath(m_homeFolder));
            setLayoutIsKept(code == status::ok && home.canBeWritten());
        });
    if (!m_knownFolders.empty())
        m_wantedFolder = m_knownFolders.front();
    if (m_wantedFolder == m_homeFolder || isFolder(m_wantedFolder))
        m_folder = m_wantedFolder;
    else
        m_prompts.showMessage(translatedWith("The template folder %s is not there now. The templates in the folder of "
                                             "the CAM system are shown instead.",
                                             m_wantedFolder));
    return m_definitionsState;
}

void TemplateSession::setLayoutIsKept(bool kept)
{
    if (kept == std::exchange(m_layoutIsKept, kept))
        return;
    notify([](TemplateSessionObserver& observer) { observer.layoutKeepingChanged(); });
}

void TemplateSession::fill()
{
    std::vector<util::Parameterized> listed;
    std::vector<util::FaultyTemplateFile> faulty;
    const int code = util::loadTemplateFiles(kindFolder(), m_selector, &listed, &faulty);
    reportListing(code, faulty);
    m_existingNames.clear();
    m_existingNames.reserve(listed.size());
    for (const util::Parameterized& set : listed)
        m_existingNames.push_back(nameOf(set));
    const TemplateRows formerRows = std::exchange(m_rows, {});
    m_rows.fill(std::move(listed), m_info.preferences.matchFilter, m_current);
    m_rows.reorder(sortedOrder(m_rows, m_info.sortLevels, m_info.columns));
    const std::vector<std::size_t> former = formerNumbers(formerRows);
    notify([&former](TemplateSessionObserver& observer) { observer.rowsReplaced(former); });
}

std::vector<std::size_t> TemplateSession::formerNumbers(const TemplateRows& formerRows) const
{
    std::unordered_map<std::string, std::size_t> byName;
    for (std::size_t row = 0; row < formerRows.size(); ++row)
        byName.emplace(nameOf(formerRows.storedAt(row)), row);
    std::vector<std::size_t> former;
    former.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row)
    {
        const auto found = byName.extract(nameOf(m_rows.at(row)));
        former.push_back(found ? found.mapped() : TemplateSessionObserver::newRow);
    }
    return former;
}

void TemplateSession::refresh()
{
    if (!m_rows.hasEdits())
        fill();
}

void TemplateSession::reportListing(int code, const std::vector<util::FaultyTemplateFile>& faulty)
{
    std::set<std::pair<std::string, int>> faults;
    const auto add = [&](const std::string& path, int fault, const std::string& line)
    {
        if (faults.emplace(path, fault).second && m_reported.count({path, fault}) == 0)
            report(fault, line);
    };
    inOneMessage(
        [&]
        {
            for (const util::FaultyTemplateFile& file : faulty)
                add(file.path, file.code, templateLine(file.path));
            if (code != status::ok && faulty.empty())
                add(kindFolder(), code, "");
        });
    m_reported = std::move(faults);
}

bool TemplateSession::storeDefinitions(StoreReason reason)
{
    // What is stored is better than what the user never got to see.
    const bool byUser = reason != StoreReason::end;
    const bool isOurs = m_definitionsState != DefinitionsState::failed || (byUser && !m_info.columns.empty());
    const int code =
        isOurs ? util::saveTemplateDefs(m_homeFolder, templateDefinitionsName(m_kind), m_info) : m_definitionsCode;
    const bool unexpected = reason == StoreReason::change ? !m_storeFailureReported : byUser && m_layoutIsKept;
    setLayoutIsKept(code == status::ok);
    if (code == status::ok)
        m_definitionsState = DefinitionsState::loaded;
    else if (unexpected)
    {
        m_storeFailureReported = true;
        report(code);
    }
    return code == status::ok;
}

void TemplateSession::reloadKnownFolders()
{
    if (const int code = util::loadTemplateFolders(m_homeFolder, &m_knownFolders); code != status::ok)
        report(code);
}

std::string TemplateSession::chosenFolder(const std::string& typed) const
{
    const std::string folder(util::trimmed(typed));
    return folder.empty() ? m_homeFolder : folder;
}

std::string TemplateSession::usedFolder(const std::string& typed) const
{
    const std::string chosen = chosenFolder(typed);
    return chosen != m_wantedFolder || isFolder(chosen) ? chosen : m_folder;
}

bool TemplateSession::changesRows(const util::TemplatePreferences& preferences, const std::string& folder) const
{
    return usedFolder(folder) != m_folder || preferences.matchFilter != m_info.preferences.matchFilter;
}

bool TemplateSession::acceptPreferences(const util::TemplatePreferences& preferences, const std::string& folder)
{
    const bool refill = changesRows(preferences, folder);
    m_info.preferences = preferences;
    m_folder = usedFolder(folder);
    m_wantedFolder = chosenFolder(folder);

    // The folder that is wanted leads the list; the host's is always in it.
    std::vector<std::string> folders = {m_wantedFolder};
    const auto add = [&folders](const std::string& known)
    {
        if (std::find(folders.begin(), folders.end(), known) == folders.end())
            folders.push_back(known);
    };
    std::for_each(m_knownFolders.begin(), m_knownFolders.end(), add);
    add(m_homeFolder);
    m_knownFolders = std::move(folders);
    inOneMessage(
        [this]
        {
            if (const int code = util::saveTemplateFolders(m_homeFolder, m_knownFolders); code != status::ok)
                report(code);
            storeDefinitions(StoreReason::change);
        });
    return refill;
}

void TemplateSession::editCell(std::size_t row, const GridColumnInfo& column, const std::string& text)
{
    if (m_rows.edit(row, column, text))
        notify([](TemplateSessionObserver& observer) { observer.rowsEdited(); });
}

void TemplateSession::sort(const std::vector<util::TemplateSortLevel>& levels)
{
    m_info.sortLevels = levels;
    const std::vector<std::size_t> order = sortedOrder(m_rows, levels, m_info.columns);
    m_rows.reorder(order);
    notify([&order](TemplateSessionObserver& observer) { observer.rowsReordered(order); });
}

std::string TemplateSession::proposeName()
{
    util::Parameterized set;
    const int code = util::genTemplateName(kindFolder(), templateNamePrefix(m_kind), &set);
    if (code == status::ok)
        return nameOf(set);
    report(code);
    return nameWithoutGenerator;
}

std::size_t TemplateSession::importTemplates()
{
    std::size_t saved = 0;
    inOneMessage([&] { saved = TessaronResources::importTemplates(kindFolder(), m_prompts, m_failures); });
    return saved;
}

bool TemplateSession::exportTemplates(const std::vector<std::size_t>& rows)
{
    bool written = false;
    inOneMessage([&] { written = TessaronResources::exportTemplates(m_rows, rows, m_prompts, m_failures); });
    return written;
}

std::size_t TemplateSession::deleteTemplates(const std::vector<std::size_t>& rows)
{
    std::set<std::size_t> deleted;
    inOneMessage(
        [&]
        {
            for (const std::size_t row : rows)
            {
                const int code = util::deleteTemplateFile(kindFolder(), m_rows.storedAt(row));
                if (code != status::ok)
                    report(code, templateLine(nameOf(m_rows.storedAt(row))));
                else
                    deleted.insert(row);
            }
            removeRows(deleted);
        });
    return deleted.size();
}

void TemplateSession::removeRows(const std::set<std::size_t>& rows)
{
    const std::vector<std::size_t> edited = m_rows.editedRows();
    if (std::includes(rows.begin(), rows.end(), edited.begin(), edited.end()))
        return fill();
    std::vector<std::size_t> left;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (rows.count(row) == 0)
            left.push_back(row);
        else
            std::erase(m_existingNames, nameOf(m_rows.storedAt(row)));
    m_rows.reorder(left);
    notify([&left](TemplateSessionObserver& observer) { observer.rowsReplaced(left); });
}

bool TemplateSession::storeRow(std::size_t row)
{
    util::Parameterized set = m_rows.at(row);
    std::string name = nameOf(set);
    if (name != nameOf(m_rows.storedAt(row)))
    {
        name = std::string(util::trimmed(name));
        set.set(keys::templateName, name);
        // Under another name it is another template: the one it was made from stays.
        set.erase(keys::templateGuid);
        set.erase(keys::templateDateCreated);
    }
    const std::string path = util::templatePath(kindFolder(), name);
    int code = util::saveTemplateFile(path, true, &set);
    if (code == status::templateNameDuplicated)
    {
        if (!m_prompts.askOkCancelError(replaceQuestion(name)))
            return false;
        code = util::saveTemplateFile(path, false, &set);
    }
    if (code != status::ok)
    {
        report(code, name.empty() ? "" : templateLine(name));
        return false;
    }
    m_rows.markStored(row, std::move(set));
    return true;
}

bool TemplateSession::storeEdits()
{
    const std::vector<std::size_t> edited = m_rows.editedRows();
    bool all = true;
    inOneMessage(
        [&]
        {
            for (const std::size_t row : edited)
                all = storeRow(row) && all;
        });
    if (!edited.empty())
        notify([](TemplateSessionObserver& observer) { observer.rowsEdited(); });
    return all;
}

bool TemplateSession::settleEdits()
{
    return !m_rows.hasEdits() || !m_prompts.askOkCancel(translated(unsavedEditsText)) || storeEdits();
}

void TemplateSession::applyTemplate(std::size_t row, util::Parameterized& result) const
{
    util::Parameterized set = m_rows.at(row);
    for (const util::Key& key : {keys::toolDiameter, keys::toolLengthOfCut, keys::toolStickOutLength})
        set.erase(key);
    result.clear();
    for (const auto& [key, value] : set.params())
        result.set(key, value);
}

util::Parameterized TemplateSession::currentAs(const std::string& name) const
{
    // The operation may carry the identity of a template that was applied to it.
    util::Parameterized set = m_current;
    set.erase(keys::templateGuid);
    set.erase(keys::templateDateCreated);
    set.set(keys::templateName, name);
    return set;
}

std::string TemplateSession::storedName(const std::string& shown) const
{
    const auto found = std::find_if(m_existingNames.begin(), m_existingNames.end(),
                                    [&shown](const std::string& name) { return util::readableText(name) == shown; });
    return found == m_existingNames.end() ? shown : *found;
}

bool TemplateSession::saveCurrent(const std::string& typed, util::Parameterized* result)
{
    const std::string name = storedName(typed);
    util::Parameterized set = currentAs(name);
    const int code = util::saveTemplateFile(util::templatePath(kindFolder(), name), false, &set);
    if (code != status::ok)
    {
        report(code);
        return false;
    }
    m_prompts.showMessage(translated("The template saved with name: ") + util::readableText(nameOf(set)));
    if (result)
        *result = std::move(set);
    return true;
}

bool TemplateSession::saveCurrentAs(const std::function<bool(SaveAsAnswer& answer)>& dialog,
                                    util::Parameterized* result, bool* loadSaved)
{
    SaveAsAnswer answer{proposedSaveName(m_existingNames), m_info.preferences.loadSavedTemplates};
    if (loadSaved)
        *loadSaved = answer.loadSaved;
    while (dialog(answer))
    {
        keepSaveName(answer.name);
        const std::string name = storedName(answer.name);
        util::Parameterized set = currentAs(name);
        const std::string path = util::templatePath(kindFolder(), name);
        int code = util::saveTemplateFile(path, true, &set);
        if (code == status::templateNameDuplicated)
        {
            if (!m_prompts.askOkCancel(replaceQuestion(name)))
                continue;
            code = util::saveTemplateFile(path, false, &set);
        }
        if (code != status::ok)
        {
            report(code);
            continue;
        }
        storeDefinitions(StoreReason::end);
        if (result)
            *result = std::move(set);
        if (loadSaved)
            *loadSaved = answer.loadSaved;
        return true;
    }
    return false;
}

std::string proposedSaveName(const std::vector<std::string>& existingNames)
{
    return lastSaveName().empty() && !existingNames.empty() ? existingNames.front() : lastSaveName();
}

void keepSaveName(const std::string& name)
{
    lastSaveName() = name;
}

} // namespace TessaronResources
