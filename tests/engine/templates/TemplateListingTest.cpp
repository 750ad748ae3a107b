#include "engine/templates/TemplateListing.h"
#include "engine/templates/ParallelFor.h"
#include "tests/support/TemporaryFolder.h"
#include "util/platform/Folder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace keys = util::keys;
namespace status = exchange::status;
namespace store = util::store;
using util::Parameterized;

namespace
{

class TemplateListing : public testing::Test
{
protected:
    void save(const std::string& name, double diameter)
    {
        Parameterized set;
        set.set(keys::templateName, name);
        set.set(keys::toolDiameter, diameter);
        ASSERT_EQ(util::saveTemplateFile(util::templatePath(folder.path(), name), false, &set), status::ok);
    }
    /// Lists the folder; the result is how many files were read for it.
    std::size_t list()
    {
        store::TemplateListing listing = store::listTemplates(util::Folder(folder.path()));
        code = listing.code;
        templates = std::move(listing.templates);
        return listing.filesRead;
    }
    double diameter(std::size_t i) const { return templates[i].numberOr(keys::toolDiameter, -1); }
    /// Lists until all files have been the same for so long that the listing trusts their time stamps.
    void settle()
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (list() > 0 && std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
        ASSERT_EQ(list(), 0U);
    }

    TemporaryFolder folder;
    std::vector<Parameterized> templates;
    int code = 0;
};

TEST_F(TemplateListing, ReadsAFileAgainOnlyWhenItHasChanged)
{
    for (int i = 0; i < 200; ++i)
        save("t" + std::to_string(1000 + i), i);
    EXPECT_EQ(list(), 200U);
    settle();
    const std::vector<Parameterized> before = templates;

    save("t1007", -7.0);
    EXPECT_EQ(list(), 1U);
    ASSERT_EQ(templates.size(), 200U);
    for (std::size_t i = 0; i < 200; ++i)
        EXPECT_EQ(templates[i] != before[i], i == 7);
    EXPECT_EQ(diameter(7), -7.0);

    std::filesystem::remove(folder / "t1000.vtmpl");
    EXPECT_LE(list(), 1U);
    EXPECT_EQ(templates.size(), 199U);
}

TEST_F(TemplateListing, SeesEveryChangeHoweverQuick)
{
    save("a", 0.0);
    for (int i = 1; i <= 300; ++i)
    {
        save("a", i % 10);
        list();
        ASSERT_EQ(diameter(0), i % 10) << "after change " << i;
    }
}

TEST_F(TemplateListing, SeesAFileRewrittenInPlaceWithItsOldTimeAndSize)
{
    save("a", 1.0);
    settle();
    const auto time = std::filesystem::last_write_time(folder / "a.vtmpl");
    std::string bytes = readBytes(folder / "a.vtmpl");
    const std::size_t at = bytes.find("<value>1", bytes.find("Tool Diameter")) + 7;
    ASSERT_LT(at, bytes.size());
    bytes[at] = '2';
    writeBytes(folder / "a.vtmpl", bytes);
    std::filesystem::last_write_time(folder / "a.vtmpl", time);
    EXPECT_EQ(list(), 1U);
    EXPECT_EQ(diameter(0), 2.0);
}

TEST_F(TemplateListing, CorruptFilesAreRememberedWithTheirCodeAndHideNothing)
{
    save("a", 1.0);
    save("z", 2.0);
    writeBytes(folder / "m.vtmpl", "no archive");
    for (int round = 0; round < 2; ++round)
    {
        list();
        EXPECT_EQ(code, status::templateFormatError);
        EXPECT_EQ(templates.size(), 2U);
    }
    settle();
    EXPECT_EQ(code, status::templateFormatError);
    EXPECT_EQ(templates.size(), 2U);
    save("m", 3.0);
    list();
    EXPECT_EQ(code, status::ok);
    EXPECT_EQ(templates.size(), 3U);
}

TEST_F(TemplateListing, RemovesWhatDeadProcessesLeftAndNothingYounger)
{
    save("a", 1.0);
    const std::string young = folder / ".a.vtmpl.123-1.tmp";
    const std::string old = folder / ".a.vtmpl.123-2.tmp";
    const std::string foreign = folder / ".notes.tmp";
    for (const std::string& path : {young, old, foreign})
        writeBytes(path, "half");
    for (const std::string& path : {old, foreign})
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
    list();
    EXPECT_EQ(templates.size(), 1U);
    EXPECT_TRUE(std::filesystem::exists(young));
    EXPECT_FALSE(std::filesystem::exists(old));
    EXPECT_TRUE(std::filesystem::exists(foreign));
}

TEST_F(TemplateListing, ListingsAndSavesOfManyThreadsAgree)
{
    for (int i = 0; i < 100; ++i)
        save("t" + std::to_string(i), i);
    std::atomic<bool> done = false;
    std::atomic<int> wrong = 0;
    std::vector<std::jthread> readers;
    readers.reserve(3);
    for (int r = 0; r < 3; ++r)
        readers.emplace_back(
            [&, r]
            {
                while (!done)
                {
                    std::vector<Parameterized> listed;
                    if (util::loadTemplateFiles(folder.path(), r, &listed) != status::ok || listed.size() != 100)
                        ++wrong;
                }
            });
    for (int i = 0; i < 200; ++i)
        save("t" + std::to_string(i % 100), i);
    done = true;
    readers.clear();
    EXPECT_EQ(wrong, 0);
}

TEST(ParallelFor, CoversEveryPlaceOnceAndPassesFailuresOn)
{
    for (const std::size_t count : {0U, 1U, 31U, 64U, 1000U})
    {
        std::vector<std::atomic<int>> visits(count);
        store::parallelFor(count,
                           [&](std::size_t begin, std::size_t end)
                           {
                               for (std::size_t i = begin; i < end; ++i)
                                   ++visits[i];
                           });
        for (const auto& visit : visits)
            ASSERT_EQ(visit, 1);
    }
    EXPECT_THROW(store::parallelFor(1000, [](std::size_t begin, std::size_t)
                                    { begin < 500 ? void() : throw std::runtime_error("x"); }),
                 std::runtime_error);
}

} // namespace
