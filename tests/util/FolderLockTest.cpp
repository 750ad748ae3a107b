#include "util/platform/FolderLock.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace testing_support
{
namespace
{

using util::FolderLock;

TEST(FolderLock, ExcludesOthersForAsLongAsItLives)
{
    const TemporaryFolder folder;
    {
        const FolderLock reader(folder.path(), FolderLock::Kind::shared);
        EXPECT_TRUE(reader.isHeld());
        EXPECT_TRUE(FolderLock(folder.path(), FolderLock::Kind::shared, 0).isHeld());
        const FolderLock writer(folder.path(), FolderLock::Kind::exclusive, 20);
        EXPECT_FALSE(writer.isHeld());
        EXPECT_TRUE(writer.isBusy());
    }
    const FolderLock writer(folder.path(), FolderLock::Kind::exclusive, 0);
    EXPECT_TRUE(writer.isHeld());
    EXPECT_TRUE(FolderLock(folder.path(), FolderLock::Kind::shared, 0).isBusy());
}

TEST(FolderLock, IsNeitherHeldNorBusyWithoutAFolder)
{
    const TemporaryFolder folder;
    const FolderLock lock(folder / "missing", FolderLock::Kind::exclusive, 0);
    EXPECT_FALSE(lock.isHeld());
    EXPECT_FALSE(lock.isBusy());
}

} // namespace
} // namespace testing_support
