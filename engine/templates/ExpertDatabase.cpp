#include "engine/templates/ExpertDatabase.h"

#include <tessaron/exchange/StatusTable.h>

#include <sqlite3.h>

#include <array>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace util::store
{

namespace
{

namespace status = exchange::status;

struct Close
{
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

struct ListQuery
{
    TechnologyExpertData::List TechnologyExpertData::*list;
    const char* text;
};

constexpr std::array<ListQuery, 7> queries = {{
    {&TechnologyExpertData::partMaterials, "SELECT code, name, 1.0 FROM part_material ORDER BY place"},
    {&TechnologyExpertData::hardnessScales, "SELECT code, name, 1.0 FROM hardness_scale ORDER BY place"},
    {&TechnologyExpertData::partHoldings, "SELECT code, name, factor FROM part_holding ORDER BY place"},
    {&TechnologyExpertData::toolCoatings, "SELECT code, name, factor FROM tool_coating ORDER BY place"},
    {&TechnologyExpertData::machineTapers, "SELECT code, name, factor FROM machine_taper ORDER BY place"},
    {&TechnologyExpertData::toolHolders, "SELECT code, name, factor FROM tool_holder ORDER BY place"},
    {&TechnologyExpertData::aggressivenesses, "SELECT code, name, factor FROM aggressiveness ORDER BY place"},
}};

/// SQLITE_ERROR means that the text does not fit the tables; all else is the file's or the system's fault.
int statusOf(int result)
{
    return (result & 0xFF) == SQLITE_ERROR ? status::expertDatabaseQueryFailed : status::expertDatabaseCorrupted;
}

int readList(sqlite3* database, const char* text, TechnologyExpertData::List& list)
{
    sqlite3_stmt* prepared = nullptr;
    if (const int result = sqlite3_prepare_v2(database, text, -1, &prepared, nullptr); result != SQLITE_OK)
        return statusOf(result);
    const std::unique_ptr<sqlite3_stmt, Close> statement(prepared);
    for (;;)
    {
        const int result = sqlite3_step(statement.get());
        if (result == SQLITE_DONE)
            return list.empty() ? status::expertDatabaseCorrupted : status::ok;
        if (result != SQLITE_ROW)
            return statusOf(result);
        const auto* const name = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 1));
        if (!name)
            return status::expertDatabaseCorrupted;
        list.push_back({sqlite3_column_int(statement.get(), 0), name, sqlite3_column_double(statement.get(), 2)});
    }
}

} // namespace

int readExpertDatabase(const std::string& path, TechnologyExpertData& data)
{
    // SQLite takes an empty file for a database without tables.
    std::error_code error;
    if (std::filesystem::file_size(path, error) == 0 || error)
        return status::expertDatabaseCorrupted;

    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, Close> database(opened);
    if (result != SQLITE_OK)
        return status::expertDatabaseCorrupted;

    TechnologyExpertData read;
    for (const ListQuery& query : queries)
        if (const int code = readList(database.get(), query.text, read.*query.list); code != status::ok)
            return code;
    data = std::move(read);
    return status::ok;
}

} // namespace util::store
