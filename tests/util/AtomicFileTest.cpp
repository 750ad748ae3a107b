#include "util/platform/AtomicFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string>

#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

namespace testing_support
{
namespace
{

namespace fs = std::filesystem;

class AtomicFile : public testing::Test
{
protected:
    AtomicFile()
    {
        std::string name = (fs::temp_directory_path() / "tessaron-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_folder = name;
    }
    ~AtomicFile() override { fs::remove_all(m_folder); }

    std::string path(const char* name) const { return (m_folder / name).string(); }
    static std::string content(const std::string& path)
    {
        std::ifstream file(path, std::ios_base::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    std::ptrdiff_t fileCount() const { return std::distance(fs::directory_iterator(m_folder), {}); }
    static void write(const std::string& path, const std::string& text)
    {
        util::AtomicFile file(path);
        file.stream() << text;
        file.commit();
    }

    fs::path m_folder;
};

TEST_F(AtomicFile, ReplacesTheTargetOnCommitOnly)
{
    write(path("a"), "old");
    {
        util::AtomicFile file(path("a"));
        file.stream() << std::string(200'000, 'n') << "ew" << std::flush;
        EXPECT_EQ(content(path("a")), "old");
        EXPECT_EQ(fileCount(), 2);
        file.commit();
    }
    EXPECT_EQ(content(path("a")), std::string(200'000, 'n') + "ew");
    EXPECT_EQ(fileCount(), 1);
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
    EXPECT_EQ(content(path("a")), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AtomicFile, KeepsRightsAndLinks)
{
    write(path("a"), "old");
    fs::permissions(path("a"), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink("a", path("link"));
    write(path("link"), "new");
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(content(path("a")), "new");
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
    EXPECT_EQ(content(path("a")), "first");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AtomicFile, RelativeNamesAreInTheWorkingFolder)
{
    const fs::path before = fs::current_path();
    fs::current_path(m_folder);
    write("plain", "text");
    fs::current_path(before);
    EXPECT_EQ(content(path("plain")), "text");
}

TEST_F(AtomicFile, ErrorsNameFileStepAndReason)
{
    const auto message = [](const std::string& target) -> std::string
    {
        try
        {
            write(target, "text");
        }
        catch (const util::AtomicFileError& error)
        {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(message(path("none/a")),
              "Cannot write '" + path("none/a") + "': creating a temporary file beside it: No such file or directory");
    fs::create_directory(path("folder"));
    EXPECT_EQ(message(path("folder")),
              "Cannot write '" + path("folder") + "': renaming the temporary file: Is a directory");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AtomicFile, APathWithAZeroByteIsRefused)
{
    write(path("a"), "old");
    try
    {
        write(path("a") + std::string("\0.txt", 5), "new");
        ADD_FAILURE() << "written";
    }
    catch (const util::AtomicFileError& error)
    {
        EXPECT_EQ(std::string(error.what()), "Cannot write '" + path("a") + "': a zero byte follows in the path");
    }
    EXPECT_EQ(content(path("a")), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AtomicFile, FullDiskLeavesTheOldFile)
{
    write(path("a"), "old");
    // A limit on the size of files stands in for the disk.
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit small = before;
    small.rlim_cur = 100'000;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    std::string message;
    try
    {
        util::AtomicFile file(path("a"));
        file.stream() << std::string(300'000, 'n');
        EXPECT_TRUE(file.failed());
        file.commit();
    }
    catch (const util::AtomicFileError& error)
    {
        message = error.what();
    }
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(message, "Cannot write '" + path("a") + "': writing the temporary file: File too large");
    EXPECT_EQ(content(path("a")), "old");
    EXPECT_EQ(fileCount(), 1);
}

} // namespace
} // namespace testing_support
