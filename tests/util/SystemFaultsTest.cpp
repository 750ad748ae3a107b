#include "tests/support/SystemFaults.h"
#include "tests/support/TemporaryFolder.h"
#include "util/platform/AtomicFile.h"
#include "util/platform/Folder.h"
#include "util/platform/FolderLock.h"
#include "util/platform/TemporaryFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace testing_support
{
namespace
{

constexpr std::size_t anySize = std::size_t(1) << 30U;

class SystemFailure : public testing::Test
{
protected:
    SystemFailure() { writeBytes(target, "old"); }

    /// Saves over the target; the error's text, or nothing.
    std::string save(const std::string& bytes = "new")
    {
        try
        {
            util::AtomicFile file(target);
            file.stream() << bytes << std::flush;
            m_failedBeforeCommit = file.failed();
            file.commit();
            return "";
        }
        catch (const util::AtomicFileError& error)
        {
            return error.what();
        }
    }

    TemporaryFolder folder;
    const std::string target = folder / "target";
    bool m_failedBeforeCommit = false;
};

TEST_F(SystemFailure, CallsThatASignalInterruptsAreMadeAgain)
{
    for (const char* const call : {"openat", "close", "read", "write", "fsync", "fchmod", "flock"})
    {
        SystemFaults faults;
        faults.fail(call, EINTR, call == std::string("close") ? 1 : 3);
        const std::string bytes = std::string(200'000, 'n') + call;
        EXPECT_EQ(save(bytes), "") << call;

        const util::FolderLock lock(folder.path(), util::FolderLock::Kind::exclusive, 0);
        EXPECT_TRUE(lock.isHeld()) << call;
        EXPECT_TRUE(util::FolderLock(folder.path(), util::FolderLock::Kind::shared, 0).isBusy()) << call;
        const util::Folder opened(folder.path());
        std::vector<std::string> names;
        EXPECT_TRUE(opened.entries(names)) << call;
        EXPECT_EQ(names, std::vector<std::string>{"target"}) << call;
        EXPECT_EQ(opened.read("target", anySize).bytes, bytes) << call;
        EXPECT_GT(faults.failures(), 0) << call << " was not interrupted";
    }
}

TEST_F(SystemFailure, WhatAGroupWasAllowedDoesNotBecomeAnothers)
{
    ASSERT_EQ(save("old"), "");
    ASSERT_EQ(::chmod(target.c_str(), 0664), 0);
    if (::chown(target.c_str(), static_cast<uid_t>(-1), 54321) != 0)
        GTEST_SKIP() << "only the superuser can give a file to any group";
    struct stat data = {};
    {
        SystemFaults faults;
        faults.fail("fchown", EPERM);
        EXPECT_EQ(save("refused"), "");
        EXPECT_EQ(faults.failures(), 1);
    }
    ASSERT_EQ(::stat(target.c_str(), &data), 0);
    EXPECT_EQ(data.st_mode & 07777, 0644u);
    EXPECT_NE(data.st_gid, 54321u);
}

TEST_F(SystemFailure, ASaveThatFailsLeavesTheOldFileAndTellsTheStep)
{
    const struct
    {
        const char* call;
        int error;
        int after;
        const char* problem;
    } cases[] = {
        {"openat", ENOSPC, 0, "creating a temporary file beside it: No space left on device"},
        {"write", ENOSPC, 0, "writing the temporary file: No space left on device"},
        {"write", EIO, 2, "writing the temporary file: Input/output error"},
        {"fsync", EIO, 0, "bringing it to the disk: Input/output error"},
        {"fsync", ENOSPC, 0, "bringing it to the disk: No space left on device"},
        {"close", EIO, 0, "closing the temporary file: Input/output error"},
        {"openat", EMFILE, 1, "opening the folder: Too many open files"},
        {"rename", EACCES, 0, "renaming the temporary file: Permission denied"},
    };
    for (const auto& [call, error, after, problem] : cases)
    {
        SystemFaults faults;
        faults.limitWrites(50'000);
        faults.fail(call, error, 1, after);
        EXPECT_EQ(save(std::string(200'000, 'n')), "Cannot write '" + target + "': " + problem);
        EXPECT_EQ(m_failedBeforeCommit, call == std::string("write")) << problem;
        EXPECT_EQ(readBytes(target), "old") << problem;
        EXPECT_EQ(folder.entryCount(), 1) << problem;
    }
}

TEST_F(SystemFailure, AWriteThatTakesOnlyAPartIsContinued)
{
    SystemFaults faults;
    faults.limitWrites(777);
    std::string bytes;
    for (int i = 0; i < 50'000; ++i)
        bytes += std::to_string(i);
    EXPECT_EQ(save(bytes), "");
    EXPECT_EQ(readBytes(target), bytes);
}

TEST_F(SystemFailure, BytesAreOnTheDiskBeforeTheNameAndTheNameBeforeTheReturn)
{
    const SystemFaults faults;
    ASSERT_EQ(save(), "");
    std::vector<std::string> steps;
    std::copy_if(faults.calls().begin(), faults.calls().end(), std::back_inserter(steps),
                 [](const std::string& call) { return call == "write" || call == "fsync" || call == "rename"; });
    EXPECT_EQ(steps, (std::vector<std::string>{"write", "fsync", "rename", "fsync"}));
}

TEST_F(SystemFailure, AFileSystemWithoutSyncForFoldersIsNoFailure)
{
    SystemFaults faults;
    faults.fail("fsync", EINVAL, 1, 1);
    EXPECT_EQ(save(), "");
    faults.fail("fsync", EIO, 1, 1);
    EXPECT_EQ(save(), "Cannot write '" + target + "': bringing the folder to the disk: Input/output error");
}

TEST_F(SystemFailure, AFolderOrFileThatDoesNotReadToItsEndIsNotTakenForShort)
{
    const util::Folder opened(folder.path());
    SystemFaults faults;
    faults.fail("readdir", EIO, 1, 1);
    std::vector<std::string> names;
    EXPECT_FALSE(opened.entries(names));
    faults.fail("read", EIO, 1, 1);
    const util::FileContents contents = opened.read("target", anySize);
    EXPECT_EQ(contents.state, util::FileState::failed);
    EXPECT_EQ(contents.bytes, "");
}

TEST_F(SystemFailure, AFolderLockThatTheFileSystemDoesNotKnowIsNotBusy)
{
    SystemFaults faults;
    faults.fail("flock", ENOLCK, 1);
    const util::FolderLock lock(folder.path(), util::FolderLock::Kind::exclusive, 0);
    EXPECT_FALSE(lock.isHeld());
    EXPECT_FALSE(lock.isBusy());
}

TEST(TemporaryFile, NamesAreKnownAgainAndNoOthers)
{
    const auto nameFor = [](const std::string& target)
    { return std::filesystem::path(util::temporaryPath("/folder/" + target)).filename().string(); };
    std::string longName;
    while (longName.size() < 240)
        longName += "€";
    EXPECT_TRUE(util::isTemporaryName(nameFor("a.vtmpl"), ".vtmpl"));
    EXPECT_TRUE(util::isTemporaryName(nameFor(longName + ".vtmpl"), ".vtmpl"));
    EXPECT_LE(nameFor(longName + ".vtmpl").size(), 255U);
    EXPECT_NE(nameFor("a"), nameFor("a"));
    for (const char* const other : {"a.vtmpl.12-3.tmp", ".a.vtmpl", ".notes.tmp", ".a.vtmpl.tmp", ".a.vtmpl.12.tmp",
                                    ".a.vtmpl.-3.tmp", ".a.vtmpl.12-.tmp", ".a.xml.12-3.tmp", ".tmp", ""})
        EXPECT_FALSE(util::isTemporaryName(other, ".vtmpl")) << other;
}

} // namespace
} // namespace testing_support
