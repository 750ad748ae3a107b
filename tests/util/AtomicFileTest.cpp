#include "util/platform/AtomicFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>

namespace testing_support
{
namespace
{

namespace fs = std::filesystem;

class AtomicFile : public testing::Test
{
protected:
    std::string path(const char* name) const { return m_folder / name; }
    static void write(const std::string& path, const std::string& text)
    {
        util::AtomicFile file(path);
        file.stream() << text;
        file.commit();
    }
    /// The text of the error that writing ends with; "" when it does not.
    static std::string writeError(const std::string& path)
    {
        try
        {
            write(path, "new");
        }
        catch (const util::AtomicFileError& error)
        {
            return error.what();
        }
        return "";
    }

    const TemporaryFolder m_folder;
};

TEST_F(AtomicFile, ReplacesTheTargetOnCommitOnly)
{
    write(path("a"), "old");
    {
        util::AtomicFile file(path("a"));
        file.stream() << std::string(200'000, 'n') << "ew" << std::flush;
        EXPECT_EQ(readBytes(path("a")), "old");
        EXPECT_EQ(m_folder.entryCount(), 2);
        file.commit();
    }
    EXPECT_EQ(readBytes(path("a")), std::string(200'000, 'n') + "ew");
    EXPECT_EQ(m_folder.entryCount(), 1);
}

TEST_F(AtomicFile, LeavesNothingBehindWithoutACommit)
{
    write(path("a"), "old");
    try
    {
        util::AtomicFile file(path("a"));
        file.stream() << "new";
        throw std::runtime_error("in the middle of a save");
    }
    catch (const std::runtime_error&)
    {
    }
    EXPECT_EQ(readBytes(path("a")), "old");
    EXPECT_EQ(m_folder.entryCount(), 1);
}

TEST_F(AtomicFile, KeepsRightsAndLinks)
{
    write(path("a"), "old");
    fs::permissions(path("a"), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink("a", path("link"));
    write(path("link"), "new");
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(readBytes(path("a")), "new");
    EXPECT_EQ(fs::status(path("a")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(AtomicFile, LastOfTwoWritersWins)
{
    util::AtomicFile first(path("a"));
    util::AtomicFile second(path("a"));
    first.stream() << "first";
    second.stream() << "second";
    second.commit();
    first.commit();
    EXPECT_EQ(readBytes(path("a")), "first");
    EXPECT_EQ(m_folder.entryCount(), 1);
}

TEST_F(AtomicFile, RelativeNamesAreInTheWorkingFolder)
{
    const fs::path before = fs::current_path();
    fs::current_path(m_folder.path());
    write("plain", "text");
    fs::current_path(before);
    EXPECT_EQ(readBytes(path("plain")), "text");
}

TEST_F(AtomicFile, ErrorsNameFileStepAndReason)
{
    write(path("a"), "old");
    fs::create_directory(path("folder"));
    const struct
    {
        std::string target;
        std::string named;
        const char* problem;
    } cases[] = {
        {path("none/a"), path("none/a"), "creating a temporary file beside it: No such file or directory"},
        {path("folder"), path("folder"), "renaming the temporary file: Is a directory"},
        {path("a") + std::string("\0.txt", 5), path("a"), "a zero byte follows in the path"},
    };
    for (const auto& [target, named, problem] : cases)
        EXPECT_EQ(writeError(target), "Cannot write '" + named + "': " + problem);
    EXPECT_EQ(readBytes(path("a")), "old");
    EXPECT_EQ(m_folder.entryCount(), 2);
}

} // namespace
} // namespace testing_support
