#include "engine/templates/ExpertDatabase.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/exchange/StatusTable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <set>

namespace status = exchange::status;
namespace store = util::store;
using util::TechnologyExpertData;

namespace
{

const std::string shipped = TESSARON_EXPERT_DATABASE;

void change(const std::string& path, const std::string& sql)
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    sqlite3_close(database);
}

TEST(ExpertDatabase, ListsAreCompleteAndFitTheirUse)
{
    TechnologyExpertData data;
    ASSERT_EQ(store::readExpertDatabase(shipped, data), status::ok);
    const struct
    {
        const TechnologyExpertData::List& list;
        std::size_t least;
        const char* oneOfThem;
        bool hasFactors;
    } lists[] = {
        {data.partMaterials, 40, "Titanium Alloy (Ti-6Al-4V, Grade 5)", false},
        {data.hardnessScales, 5, "Rockwell C (HRC)", false},
        {data.partHoldings, 8, "Vacuum Table", true},
        {data.toolCoatings, 8, "Uncoated", true},
        {data.machineTapers, 15, "HSK-A 63", true},
        {data.toolHolders, 10, "Shrink Fit", true},
        {data.aggressivenesses, 3, "Conservative", true},
    };
    for (const auto& [list, least, oneOfThem, hasFactors] : lists)
    {
        SCOPED_TRACE(oneOfThem);
        EXPECT_GE(list.size(), least);
        std::set<int> codes;
        std::set<std::string> texts;
        bool differs = false;
        for (const util::ExpertOption& option : list)
        {
            codes.insert(option.code);
            texts.insert(option.text);
            EXPECT_GE(option.factor, 0.25) << option.text;
            EXPECT_LE(option.factor, 2.0) << option.text;
            differs = differs || option.factor != 1.0;
        }
        EXPECT_EQ(codes.size(), list.size());
        EXPECT_EQ(texts.size(), list.size());
        EXPECT_EQ(texts.count(oneOfThem), 1U);
        EXPECT_EQ(differs, hasFactors);
        EXPECT_EQ(util::templateOptions(list).front().second, list.front().text);
    }
}

TEST(ExpertDatabase, OptionsComeInTheirPlaces)
{
    const TemporaryFolder folder;
    const std::string path = folder / "expert.db";
    std::filesystem::copy(shipped, path);
    change(path, "UPDATE tool_coating SET place = place + 100; "
                 "UPDATE tool_coating SET place = 1, factor = 0.5 WHERE code = 3;");
    TechnologyExpertData data;
    ASSERT_EQ(store::readExpertDatabase(path, data), status::ok);
    EXPECT_EQ(data.toolCoatings.front().code, 3);
    EXPECT_EQ(data.toolCoatings.front().factor, 0.5);
}

TEST(ExpertDatabase, MissingOrCorruptIsToldFromAFailingQuery)
{
    const TemporaryFolder folder;
    const std::string good = readBytes(shipped);
    const auto file = [&folder](const std::string& name, const std::string& bytes)
    {
        writeBytes(folder / name, bytes);
        return folder / name;
    };
    std::string noise = good;
    for (std::size_t i = 4096; i < noise.size(); ++i)
        noise[i] = static_cast<char>(i * 37);
    std::filesystem::create_directory(folder / "folder.db");
    const std::string cases[] = {folder / "missing.db",
                                 folder / "folder.db",
                                 file("empty.db", ""),
                                 file("text.db", "not a database, whatever its length may be"),
                                 file("cut.db", good.substr(0, 6000)),
                                 file("noise.db", noise)};
    for (const std::string& path : cases)
    {
        TechnologyExpertData data;
        data.partMaterials.resize(1);
        EXPECT_EQ(store::readExpertDatabase(path, data), status::expertDatabaseCorrupted) << path;
        EXPECT_EQ(data.partMaterials.size(), 1U);
    }

    TechnologyExpertData data;
    for (const char* const sql : {"DROP TABLE tool_holder", "ALTER TABLE tool_holder RENAME COLUMN factor TO weight"})
    {
        const std::string path = file("changed.db", good);
        change(path, sql);
        EXPECT_EQ(store::readExpertDatabase(path, data), status::expertDatabaseQueryFailed) << sql;
    }
    const std::string path = file("changed.db", good);
    change(path, "DELETE FROM machine_taper");
    EXPECT_EQ(store::readExpertDatabase(path, data), status::expertDatabaseCorrupted);
}

} // namespace
