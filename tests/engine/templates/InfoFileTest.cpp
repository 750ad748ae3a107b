#include "engine/templates/InfoFile.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <limits>

namespace status = exchange::status;
using util::TemplateInfo;

namespace
{

/// A record in which no field has its default.
TemplateInfo makeInfo()
{
    TemplateInfo info;
    util::TemplateColumn list;
    list.title = "Holder & <Co>";
    list.key = "Tool Holder Type";
    list.format = "%d";
    list.options = {{-3, "minus three"}, {std::numeric_limits<int>::max(), ""}, {0, "zero\nlines"}};
    list.type = util::templateColumnType::list;
    list.width = 1;
    list.shown = false;
    list.offered = false;
    info.columns = {list, util::TemplateColumn()};
    info.windowWidth = 1;
    info.windowHeight = 2;
    info.headingHeight = 3;
    info.headingTextColour = 0x00FF8040;
    info.headingBackColour = 0xFFFFFFFE;
    info.sortLevels = {{"Template Name", true}, {"Tool Diameter", false}};
    info.preferences = {true, 2, true, false, "DejaVu Sans 12", 7};
    return info;
}

TEST(TemplateDefs, EveryFieldComesBack)
{
    const TemporaryFolder folder;
    const TemplateInfo info = makeInfo();
    for (const std::string name : {"tessaron_template_info", "odd/name?"})
    {
        TemplateInfo read;
        EXPECT_EQ(util::loadTemplateDefs(folder.path(), name, &read), status::templateColumnsMissing);
        EXPECT_EQ(read, TemplateInfo());
        ASSERT_EQ(util::saveTemplateDefs(folder.path(), name, info), status::ok);
        ASSERT_EQ(util::loadTemplateDefs(folder.path(), name, &read), status::ok);
        EXPECT_EQ(read, info);
        ASSERT_EQ(util::saveTemplateDefs(folder.path(), name, TemplateInfo()), status::ok);
        ASSERT_EQ(util::loadTemplateDefs(folder.path(), name, &read), status::ok);
        EXPECT_EQ(read, TemplateInfo());
    }
    EXPECT_EQ(util::loadTemplateDefs(folder / "missing", "x", nullptr), status::internalError);
    EXPECT_EQ(util::saveTemplateDefs(folder.path(), "", info), status::templateNameMissing);
    EXPECT_EQ(util::saveTemplateDefs(folder / "new\\sub", "x", info), status::ok);
    TemplateInfo read;
    EXPECT_EQ(util::loadTemplateDefs(folder / "new/sub", "x", &read), status::ok);
    EXPECT_EQ(read, info);
}

TEST(TemplateDefs, DamagedDefinitionsAreAFormatErrorAndChangeNothing)
{
    const TemporaryFolder folder;
    ASSERT_EQ(util::saveTemplateDefs(folder.path(), "x", makeInfo()), status::ok);
    ASSERT_EQ(util::saveTemplateFolders(folder.path(), {"a"}), status::ok);
    const std::string good = readBytes(folder / "x.xml");
    const std::string folders = readBytes(folder / "template_folders.xml");
    for (const std::string& bytes : {std::string(), good.substr(0, good.size() / 2), folders})
    {
        writeBytes(folder / "x.xml", bytes);
        TemplateInfo read = makeInfo();
        EXPECT_EQ(util::loadTemplateDefs(folder.path(), "x", &read), status::templateFormatError);
        EXPECT_EQ(read, makeInfo());
    }
    std::filesystem::remove(folder / "x.xml");
    std::filesystem::create_directory(folder / "x.xml");
    TemplateInfo read;
    EXPECT_EQ(util::loadTemplateDefs(folder.path(), "x", &read), status::templateReadError);
    EXPECT_EQ(util::saveTemplateDefs(folder.path(), "x", read), status::templateWriteError);
}

TEST(TemplateDefs, DamagedFilesAreKeptBesideTheNewOnes)
{
    const TemporaryFolder folder;
    const struct
    {
        std::string name;
        std::function<int()> save;
    } files[] = {
        {"x", [&] { return util::saveTemplateDefs(folder.path(), "x", makeInfo()); }},
        {"template_folders", [&] { return util::saveTemplateFolders(folder.path(), {"/a"}); }},
    };
    for (const auto& [name, save] : files)
    {
        SCOPED_TRACE(name);
        for (const char* const bytes : {"damaged", "again"})
        {
            writeBytes(folder / (name + ".xml"), bytes);
            EXPECT_EQ(save(), status::ok);
        }
        const std::string good = readBytes(folder / (name + ".xml"));
        EXPECT_EQ(save(), status::ok);
        EXPECT_EQ(readBytes(folder / (name + ".xml")), good);
        EXPECT_EQ(readBytes(folder / (name + ".damaged.xml")), "damaged");
        EXPECT_EQ(readBytes(folder / (name + ".damaged-2.xml")), "again");
        EXPECT_FALSE(std::filesystem::exists(folder / (name + ".damaged-3.xml")));
    }
}

TEST(TemplateDefs, CountsInAFileAreNotTrusted)
{
    std::vector<util::Parameterized> sets = util::store::setsOfInfo(makeInfo());
    sets[0].set("sort_count", std::numeric_limits<int>::max());
    sets[1].set("option_count", -1);
    TemplateInfo info;
    ASSERT_TRUE(util::store::infoOfSets(sets, info));
    EXPECT_LE(info.sortLevels.size(), sets[0].size());
    EXPECT_TRUE(info.columns[0].options.empty());
}

TEST(TemplateDefs, ASaveRemovesWhatKilledOnesLeft)
{
    const TemporaryFolder folder;
    const std::string old = folder / ".defs.xml.123-1.tmp";
    const std::string young = folder / ".defs.xml.123-2.tmp";
    const std::string ofAnother = folder / ".other.xml.123-3.tmp";
    for (const std::string& path : {old, young, ofAnother})
        writeBytes(path, "half");
    for (const std::string& path : {old, ofAnother})
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
    EXPECT_EQ(util::saveTemplateDefs(folder.path(), "defs", {}), status::ok);
    EXPECT_FALSE(std::filesystem::exists(old));
    EXPECT_TRUE(std::filesystem::exists(young));
    EXPECT_TRUE(std::filesystem::exists(ofAnother));
}

TEST(TemplateFolders, ListComesBackAndIsEmptyAtFirst)
{
    const TemporaryFolder folder;
    std::vector<std::string> read = {"old"};
    ASSERT_EQ(util::loadTemplateFolders(folder / "not there", &read), status::ok);
    EXPECT_TRUE(read.empty());
    const std::vector<std::string> folders = {"C:\\Templates", "/srv/templates & more", ""};
    ASSERT_EQ(util::saveTemplateFolders(folder.path(), folders), status::ok);
    ASSERT_EQ(util::loadTemplateFolders(folder.path(), &read), status::ok);
    EXPECT_EQ(read, folders);
    // They are no templates.
    std::vector<util::Parameterized> templates;
    EXPECT_EQ(util::loadTemplateFiles(folder.path(), 0, &templates), status::ok);
    EXPECT_TRUE(templates.empty());

    writeBytes(folder / "template_folders.xml", "");
    EXPECT_EQ(util::loadTemplateFolders(folder.path(), &read), status::templateFormatError);
    EXPECT_EQ(read, folders);
}

} // namespace
