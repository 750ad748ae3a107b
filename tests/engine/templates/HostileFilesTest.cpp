#include "engine/templates/FileNames.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include <sys/stat.h>

namespace keys = util::keys;
namespace status = exchange::status;
using util::Parameterized;

namespace
{

/// A folder with one good template, "good", and its bytes.
class HostileFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        good.set(keys::templateDescription, std::string("first\nsecond"));
        good.set(keys::toolDiameter, 0.1);
        ASSERT_EQ(util::saveTemplateFile(folder / "good", true, &good), status::ok);
        bytes = readBytes(folder / "good.vtmpl");
    }
    std::string withLineEnds(const std::string& end) const
    {
        std::string result;
        for (const char c : bytes)
            c == '\n' ? result += end : result += c;
        return result;
    }

    TemporaryFolder folder;
    Parameterized good;
    std::string bytes;
};

TEST_F(HostileFiles, WhatProgramsDoToTextFilesIsAccepted)
{
    const std::string cases[] = {"\xEF\xBB\xBF" + bytes, withLineEnds("\r\n"), "\xEF\xBB\xBF" + withLineEnds("\r\n"),
                                 bytes + "\n\n"};
    for (const std::string& content : cases)
        for (const char* const name : {"import.vtmpl", "import.VTMPL", "import.xml", "import"})
        {
            writeBytes(folder / name, content);
            Parameterized set;
            EXPECT_EQ(util::loadTemplateFile(folder / name, &set), status::ok) << name;
            EXPECT_EQ(set, good);
            std::vector<Parameterized> sets;
            EXPECT_EQ(util::loadTemplateArrayFile(folder / name, &sets), status::ok) << name;
            EXPECT_EQ(sets, std::vector<Parameterized>{good});
        }
}

struct BadFile
{
    const char* what;
    std::function<void(const std::string& path)> make;
    int code;
    int listed; ///< what listing a folder with the file gives
};

TEST_F(HostileFiles, BadFilesGetTheirCodeFromEveryCallAndHideNothing)
{
    Parameterized anonymous = good;
    anonymous.erase(keys::templateGuid);
    std::string withoutGuid = bytes;
    const std::string guid = good.stringOr(keys::templateGuid, "");
    withoutGuid.erase(withoutGuid.find(guid), guid.size());

    const auto content = [](const std::string& text)
    { return [text](const std::string& path) { writeBytes(path, text); }; };
    const auto sparse = [](std::uintmax_t size, const std::string& head)
    {
        return [size, head](const std::string& path)
        {
            writeBytes(path, head);
            std::filesystem::resize_file(path, size);
        };
    };
    constexpr std::uintmax_t gigabyte = std::uintmax_t(1) << 30U;
    const BadFile cases[] = {
        {"empty", content(""), status::templateFormatError, status::templateFormatError},
        {"text", content("Dear Sir or Madam"), status::templateFormatError, status::templateFormatError},
        {"cut", content(bytes.substr(0, bytes.size() - 40)), status::templateFormatError, status::templateFormatError},
        {"other XML", content("<?xml version=\"1.0\"?>\n<a><count>3</count></a>"), status::templateFormatError,
         status::ok},
        {"binary archive", content(std::string("\x16\0\0\0\0\0\0\0serialization::archive", 30)),
         status::templateFormatError, status::templateFormatError},
        {"UTF-16", content(std::string("\xFF\xFE<\0?\0x\0", 8)), status::templateFormatError,
         status::templateFormatError},
        {"without guid", content(withoutGuid), status::templateWithoutGuid, status::templateWithoutGuid},
        {"2 GB", sparse(2 * gigabyte, ""), status::templateFormatError, status::templateFormatError},
        {"2 GB with a good start", sparse(2 * gigabyte, bytes.substr(0, 200)), status::templateFormatError,
         status::templateFormatError},
        {"folder", [](const std::string& path) { std::filesystem::create_directory(path); }, status::templateReadError,
         status::ok},
        {"pipe", [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }, status::templateReadError,
         status::ok},
        {"link to nothing", [](const std::string& path) { std::filesystem::create_symlink("nowhere", path); },
         status::templateReadError, status::ok},
    };
    for (const BadFile& bad : cases)
    {
        SCOPED_TRACE(bad.what);
        const std::string path = folder / "bad.vtmpl";
        bad.make(path);
        const auto start = std::chrono::steady_clock::now();

        Parameterized set;
        EXPECT_EQ(util::loadTemplateFile(path, &set), bad.code);
        EXPECT_TRUE(set.empty());
        std::vector<Parameterized> sets(1);
        EXPECT_EQ(util::loadTemplateArrayFile(path, &sets), bad.code);
        EXPECT_EQ(sets.size(), 1U);
        std::vector<Parameterized> listed;
        EXPECT_EQ(util::loadTemplateFiles(folder.path(), 0, &listed), bad.listed);
        EXPECT_EQ(listed, std::vector<Parameterized>{good});

        // Far below what reading gigabytes would take.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
        std::filesystem::remove(path);
    }
    Parameterized set;
    EXPECT_EQ(util::loadTemplateFile(folder / "missing.vtmpl", &set), status::templateReadError);
    EXPECT_EQ(util::loadTemplateFile("", &set), status::templateReadError);
}

TEST_F(HostileFiles, FirstBadFileInNameOrderGivesTheCodeAndAllAreNamed)
{
    writeBytes(folder / "a.vtmpl", "bad");
    std::string withoutGuid = bytes;
    const std::string guid = good.stringOr(keys::templateGuid, "");
    withoutGuid.erase(withoutGuid.find(guid), guid.size());
    writeBytes(folder / "b.vtmpl", withoutGuid);
    std::vector<Parameterized> listed;
    std::vector<util::FaultyTemplateFile> faulty;
    EXPECT_EQ(util::loadTemplateFiles(folder.path(), 0, &listed, &faulty), status::templateFormatError);
    EXPECT_EQ(listed.size(), 1U);
    ASSERT_EQ(faulty.size(), 2U);
    EXPECT_EQ(faulty[0].path, folder / "a.vtmpl");
    EXPECT_EQ(faulty[0].code, status::templateFormatError);
    EXPECT_EQ(faulty[1].path, folder / "b.vtmpl");
    EXPECT_EQ(faulty[1].code, status::templateWithoutGuid);

    std::filesystem::remove(folder / "a.vtmpl");
    EXPECT_EQ(util::loadTemplateFiles(folder.path(), 0, &listed), status::templateWithoutGuid);
    EXPECT_EQ(listed.size(), 1U);
    EXPECT_EQ(util::findFaultyTemplateFiles(folder.path(), &faulty), status::templateWithoutGuid);
    EXPECT_EQ(faulty.size(), 1U);
    EXPECT_EQ(util::loadTemplateFiles(folder.path() + "/missing", 0, &listed, &faulty), status::ok);
    EXPECT_TRUE(faulty.empty());
}

TEST_F(HostileFiles, CorruptTemplateCanBeReplacedAndDeleted)
{
    writeBytes(folder / "bad.vtmpl", "bad");
    Parameterized set = good;
    EXPECT_EQ(util::saveTemplateFile(folder / "bad", true, &set), status::templateNameDuplicated);
    EXPECT_EQ(util::saveTemplateFile(folder / "bad", false, &set), status::ok);
    writeBytes(folder / "bad.vtmpl", "bad");
    Parameterized bad;
    bad.set(keys::templateName, std::string("bad"));
    EXPECT_EQ(util::deleteTemplateFile(folder.path(), bad), status::ok);
}

TEST_F(HostileFiles, FolderInTheWayMovesTheTemplateAside)
{
    std::filesystem::create_directory(folder / "aside.vtmpl");
    Parameterized set = good;
    ASSERT_EQ(util::saveTemplateFile(folder / "aside", true, &set), status::ok);
    ASSERT_EQ(util::saveTemplateFile(folder / "aside", false, &set), status::ok);
    std::vector<Parameterized> listed;
    ASSERT_EQ(util::loadTemplateFiles(folder.path(), 0, &listed), status::ok);
    EXPECT_EQ(listed.front().stringOr(keys::templateName, ""), "aside");
    EXPECT_EQ(util::deleteTemplateFile(folder.path(), listed.front()), status::ok);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "aside.vtmpl"));
}

TEST_F(HostileFiles, EveryCutOfATemplateIsAnError)
{
    for (std::size_t length = 0; length + 30 < bytes.size(); length += 7)
    {
        writeBytes(folder / "cut.xml", bytes.substr(0, length));
        Parameterized set;
        ASSERT_EQ(util::loadTemplateFile(folder / "cut.xml", &set), status::templateFormatError) << length;
    }
}

} // namespace
