#include "engine/templates/TemplateListing.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace keys = util::keys;
namespace status = exchange::status;
using testing::ElementsAre;
using testing::IsEmpty;
using util::Parameterized;

namespace
{

class TemplateStore : public testing::Test
{
protected:
    static Parameterized makeTemplate(const std::string& name, double diameter = 10.0)
    {
        Parameterized set;
        set.set(keys::templateName, name);
        set.set(keys::toolDiameter, diameter);
        set.set(keys::toolNumFlutes, 4);
        set.set(keys::templateDescription, std::string("two\nlines <&> \"quoted\""));
        return set;
    }
    int save(const std::string& name, bool failIfExists = false, double diameter = 10.0)
    {
        Parameterized set = makeTemplate(name, diameter);
        return util::saveTemplateFile(util::templatePath(folder.path(), name), failIfExists, &set);
    }
    std::vector<Parameterized> list(int expectedCode = status::ok) const
    {
        std::vector<Parameterized> templates;
        EXPECT_EQ(util::loadTemplateFiles(folder.path(), 0, &templates), expectedCode);
        return templates;
    }
    std::vector<std::string> names(int expectedCode = status::ok) const
    {
        std::vector<std::string> result;
        for (const Parameterized& set : list(expectedCode))
            result.push_back(set.stringOr(keys::templateName, "?"));
        return result;
    }

    TemporaryFolder folder;
};

TEST_F(TemplateStore, SavedTemplateComesBackWithWhatTheStoreKeeps)
{
    Parameterized set = makeTemplate("Roughing");
    const Parameterized given = set;
    ASSERT_EQ(util::saveTemplateFile(folder.path() + "\\Roughing", false, &set), status::ok);
    for (const auto& [key, value] : given.params())
        EXPECT_EQ(set.at(key), value) << key;
    EXPECT_EQ(set.stringOr(keys::templateGuid, "").size(), 36U);
    EXPECT_EQ(set.stringOr(keys::templateVersion, ""), "1");
    EXPECT_EQ(set.stringOr(keys::templateCam, ""), "KORVEN");
    EXPECT_EQ(set.size(), given.size() + 5);

    Parameterized read;
    ASSERT_EQ(util::loadTemplateFile(folder / "Roughing.vtmpl", &read), status::ok);
    EXPECT_EQ(read, set);
    EXPECT_THAT(list(), ElementsAre(set));
}

TEST_F(TemplateStore, TemplateThatNamesNoCamSystemCountsAsOfTheDefaultOne)
{
    Parameterized set = makeTemplate("own");
    set.set(keys::templateCam, std::string("OTHER CAM"));
    ASSERT_EQ(util::saveTemplateFile(folder / "own", false, &set), status::ok);
    ASSERT_EQ(save("silent"), status::ok);
    std::string bytes = readBytes(folder / "silent.vtmpl");
    bytes.replace(bytes.find("Template CAM"), 12, "Template CAx");
    writeBytes(folder / "silent.vtmpl", bytes);

    const auto cam = [](const Parameterized& listed) { return listed.stringOr(keys::templateCam, ""); };
    for (const char* const name : {"own", "silent"})
    {
        const std::string expected = name == std::string("own") ? "OTHER CAM" : "KORVEN";
        std::vector<Parameterized> read(1);
        ASSERT_EQ(util::loadTemplateFile(folder / name + ".vtmpl", &read.front()), status::ok);
        EXPECT_EQ(cam(read.front()), expected);
        ASSERT_EQ(util::loadTemplateArrayFile(folder / name + ".vtmpl", &read), status::ok);
        EXPECT_EQ(cam(read.front()), expected);
    }
    EXPECT_EQ(cam(list().at(0)), "OTHER CAM");
    EXPECT_EQ(cam(list().at(1)), "KORVEN");
}

TEST_F(TemplateStore, ListsInNameOrderWithoutLetterCase)
{
    for (const char* name : {"b", "C", "a", "B", "A"})
        ASSERT_EQ(save(name), status::ok);
    EXPECT_THAT(names(), ElementsAre("A", "a", "B", "b", "C"));
}

TEST_F(TemplateStore, MissingFolderIsEmptyAndSavingMakesIt)
{
    const std::string missing = folder / "not/yet/there";
    std::vector<Parameterized> templates(3);
    EXPECT_EQ(util::loadTemplateFiles(missing, 0, &templates), status::ok);
    EXPECT_THAT(templates, IsEmpty());
    Parameterized set = makeTemplate("a");
    EXPECT_EQ(util::genTemplateName(missing, "TESSARON", &set), status::ok);
    EXPECT_EQ(set.stringOr(keys::templateName, ""), "TESSARON1");
    EXPECT_EQ(util::saveTemplateFile(missing + "\\TESSARON1", true, &set), status::ok);
    EXPECT_EQ(util::loadTemplateFiles(folder.path() + "\\not\\yet\\there", 0, &templates), status::ok);
    EXPECT_THAT(templates, ElementsAre(set));
}

TEST_F(TemplateStore, AnyNameComesBackUnchanged)
{
    std::vector<std::string> all = {"a/b",     "a\\b",      "..",   ".",     ".hidden", "CON",      "con", "nul.txt",
                                    "50%",     "50%25",     "%2F",  "a:b*c", "tab\tx",  " ",        "x ",  "x.",
                                    "x.vtmpl", "F\xC3\xA4", "Case", "case",  "CASE",    "\x80\xFF", "%~x", "<&>'\""};
    all.push_back(std::string(255, 'x'));
    all.push_back(std::string(255, 'x') + "y");
    all.push_back(std::string(249, 'z'));
    all.push_back(std::string(90, '/') + "end");
    for (const std::string& name : all)
    {
        ASSERT_EQ(save(name, true), status::ok) << name;
        ASSERT_EQ(save(name, true), status::templateNameDuplicated) << name;
    }
    EXPECT_THAT(names(), testing::UnorderedElementsAreArray(all));

    for (const std::string& name : all)
    {
        ASSERT_EQ(save(name, false, 12.0), status::ok) << name;
        ASSERT_EQ(util::deleteTemplateFile(folder.path(), makeTemplate(name)), status::ok) << name;
        ASSERT_EQ(util::deleteTemplateFile(folder.path(), makeTemplate(name)), status::templateReadError) << name;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(TemplateStore, PathNamesTheTemplateWhereTheSetDoesNot)
{
    Parameterized set = makeTemplate("old");
    ASSERT_EQ(util::saveTemplateFile(folder / "new", false, &set), status::ok);
    EXPECT_EQ(set.stringOr(keys::templateName, ""), "new");
    set.erase(keys::templateName);
    ASSERT_EQ(util::saveTemplateFile(folder / "a%2Fb.vtmpl", false, &set), status::ok);
    EXPECT_EQ(set.stringOr(keys::templateName, ""), "a/b");
    EXPECT_THAT(names(), ElementsAre("a/b", "new"));
    EXPECT_EQ(util::saveTemplateFile(folder / "", false, &set), status::templateNameMissing);
    EXPECT_EQ(util::deleteTemplateFile(folder.path(), Parameterized()), status::templateNameMissing);
}

TEST_F(TemplateStore, ReplacingKeepsTheIdentityOfTheTemplate)
{
    Parameterized first = makeTemplate("a");
    ASSERT_EQ(util::saveTemplateFile(folder / "a", true, &first), status::ok);
    // As if it had been made long ago.
    first.set(keys::templateDateCreated, std::string("1000"));
    Parameterized aged = first;
    std::filesystem::remove(folder / "a.vtmpl");
    ASSERT_EQ(util::saveTemplateFile(folder / "a", true, &aged), status::ok);
    EXPECT_EQ(aged.stringOr(keys::templateDateCreated, ""), "1000");

    Parameterized second = makeTemplate("a", 20.0);
    ASSERT_EQ(util::saveTemplateFile(folder / "a", false, &second), status::ok);
    EXPECT_EQ(second.at(keys::templateGuid), aged.at(keys::templateGuid));
    EXPECT_EQ(second.stringOr(keys::templateDateCreated, ""), "1000");
    EXPECT_GE(std::stoll(second.stringOr(keys::templateDateModified, "")), 1700000000);

    Parameterized imported = makeTemplate("a", 30.0);
    imported.set(keys::templateGuid, std::string("from elsewhere"));
    imported.set(keys::templateDateCreated, std::string("not a time"));
    ASSERT_EQ(util::saveTemplateFile(folder / "a", false, &imported), status::ok);
    EXPECT_EQ(imported.stringOr(keys::templateGuid, ""), "from elsewhere");
    EXPECT_EQ(imported.at(keys::templateDateCreated), imported.at(keys::templateDateModified));
    EXPECT_THAT(list(), ElementsAre(imported));
}

TEST_F(TemplateStore, RefusedSaveLeavesFileAndSetAlone)
{
    ASSERT_EQ(save("a"), status::ok);
    const std::string before = readBytes(folder / "a.vtmpl");
    Parameterized other = makeTemplate("a", 99.0);
    const Parameterized given = other;
    EXPECT_EQ(util::saveTemplateFile(folder / "a", true, &other), status::templateNameDuplicated);
    EXPECT_EQ(other, given);

    other.set(keys::feedrate, std::numeric_limits<double>::quiet_NaN());
    // Whether the archive takes such a number or not, what it took must come back.
    const bool taken = util::saveTemplateFile(folder / "b", true, &other) == status::ok;
    EXPECT_EQ(list().size(), taken ? 2U : 1U);
    EXPECT_EQ(util::saveTemplateFile(folder / "a.vtmpl/inside", true, &other), status::templateWriteError);
    EXPECT_EQ(readBytes(folder / "a.vtmpl"), before);
}

TEST_F(TemplateStore, DeletesOnlyTheTemplateThatIsMeant)
{
    ASSERT_EQ(save("a"), status::ok);
    ASSERT_EQ(save("b"), status::ok);
    Parameterized stranger = makeTemplate("a");
    stranger.set(keys::templateGuid, std::string("another guid"));
    EXPECT_EQ(util::deleteTemplateFile(folder.path(), stranger), status::templateReadError);
    EXPECT_EQ(util::deleteTemplateFile(folder.path(), list().front()), status::ok);
    EXPECT_THAT(names(), ElementsAre("b"));
}

TEST_F(TemplateStore, FilesPutThereByHandGoByTheirFileNames)
{
    ASSERT_EQ(save("a"), status::ok);
    std::filesystem::copy(folder / "a.vtmpl", folder / "50% copy.vtmpl");
    EXPECT_THAT(names(), ElementsAre("50% copy", "a"));
    EXPECT_EQ(save("50% copy", true), status::templateNameDuplicated);
    EXPECT_EQ(save("50% copy", false), status::ok);
    EXPECT_TRUE(std::filesystem::exists(folder / "50% copy.vtmpl"));
    EXPECT_EQ(util::deleteTemplateFile(folder.path(), makeTemplate("50% copy")), status::ok);
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(TemplateStore, ArraysComeBackInTheirOrderWithGuids)
{
    ASSERT_EQ(save("kept"), status::ok);
    std::vector<Parameterized> given = {makeTemplate("z"), makeTemplate("a/b"), list().front()};
    ASSERT_EQ(util::saveTemplateArrayFile(folder / "all.XML", given), status::ok);
    std::vector<Parameterized> read;
    ASSERT_EQ(util::loadTemplateArrayFile(folder / "all.XML", &read), status::ok);
    ASSERT_EQ(read.size(), 3U);
    EXPECT_EQ(read[0].stringOr(keys::templateName, ""), "z");
    EXPECT_EQ(read[1].stringOr(keys::templateName, ""), "a/b");
    EXPECT_NE(read[0].at(keys::templateGuid), read[1].at(keys::templateGuid));
    EXPECT_EQ(read[2], given[2]);

    ASSERT_EQ(util::saveTemplateArrayFile(folder / "none.vtmpl", {}), status::ok);
    ASSERT_EQ(util::loadTemplateArrayFile(folder / "none.vtmpl", &read), status::ok);
    EXPECT_THAT(read, IsEmpty());
    EXPECT_EQ(util::saveTemplateArrayFile(folder / "no/such/folder/x", given), status::templateWriteError);
    EXPECT_EQ(util::saveTemplateArrayFile(folder / "", given), status::templateNameMissing);
    for (const util::Key& key : {keys::templateVersion, keys::templateDateCreated, keys::templateDateModified})
    {
        Parameterized lacking = given[2];
        lacking.erase(key);
        ASSERT_EQ(util::saveTemplateArrayFile(folder / "all.XML", {lacking}), status::ok);
        ASSERT_EQ(util::loadTemplateArrayFile(folder / "all.XML", &read), status::ok);
        EXPECT_FALSE(read.front().stringOr(key, "").empty()) << key.c_str();
        lacking.set(key, read.front().stringOr(key, ""));
        EXPECT_EQ(read.front(), lacking) << "what it has stays";
    }
    // Exported lists in the folder are no templates of it, and no fault either.
    EXPECT_THAT(names(), ElementsAre("kept"));
}

TEST_F(TemplateStore, WithoutAFolderMeansTheCurrentOne)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    Parameterized set = makeTemplate("a");
    EXPECT_EQ(util::saveTemplateFile("a", true, &set), status::ok);
    EXPECT_THAT(names(), ElementsAre("a"));
    std::vector<Parameterized> read;
    EXPECT_EQ(util::loadTemplateFiles("", 0, &read), status::ok);
    EXPECT_EQ(read.size(), 1U);
    EXPECT_EQ(util::saveTemplateArrayFile("array.vtmpl", read), status::ok);
    EXPECT_EQ(util::loadTemplateArrayFile("array.vtmpl", &read), status::ok);
    EXPECT_EQ(util::saveTemplateDefs("", "x", {}), status::ok);
    util::TemplateInfo info;
    EXPECT_EQ(util::loadTemplateDefs("", "x", &info), status::ok);
    EXPECT_EQ(util::saveTemplateFolders("", {"/f"}), status::ok);
    std::vector<std::string> folders;
    EXPECT_EQ(util::loadTemplateFolders("", &folders), status::ok);
    EXPECT_EQ(folders.size(), 1U);
    EXPECT_EQ(util::genTemplateName("", "a", &set), status::ok);
    EXPECT_EQ(util::deleteTemplateFile("", read.front()), status::ok);
    EXPECT_THAT(names(), IsEmpty());
    std::filesystem::current_path(before);
}

TEST_F(TemplateStore, GeneratesTheFirstFreeName)
{
    Parameterized set;
    for (const char* expected : {"TESSARON1", "TESSARON2", "TESSARON3"})
    {
        ASSERT_EQ(util::genTemplateName(folder.path(), "TESSARON", &set), status::ok);
        EXPECT_EQ(set.stringOr(keys::templateName, ""), expected);
        ASSERT_EQ(save(expected), status::ok);
    }
    ASSERT_EQ(util::deleteTemplateFile(folder.path(), makeTemplate("TESSARON2")), status::ok);
    ASSERT_EQ(util::genTemplateName(folder.path(), "TESSARON", &set), status::ok);
    EXPECT_EQ(set.stringOr(keys::templateName, ""), "TESSARON2");
    writeBytes(folder / "file", "");
    EXPECT_EQ(util::genTemplateName(folder / "file", "TESSARON", &set), status::templateReadError);
}

TEST_F(TemplateStore, NullOutputsAreRefused)
{
    EXPECT_EQ(util::getTechnologyExpertData(nullptr), status::internalError);
    EXPECT_EQ(util::loadTemplateDefs("x", "y", nullptr), status::internalError);
    EXPECT_EQ(util::loadTemplateFolders("x", nullptr), status::internalError);
    EXPECT_EQ(util::loadTemplateFiles("x", 0, nullptr), status::internalError);
    EXPECT_EQ(util::loadTemplateFile("x", nullptr), status::internalError);
    EXPECT_EQ(util::loadTemplateArrayFile("x", nullptr), status::internalError);
    EXPECT_EQ(util::saveTemplateFile("x", false, nullptr), status::internalError);
    EXPECT_EQ(util::genTemplateName("x", "y", nullptr), status::internalError);
}

} // namespace
