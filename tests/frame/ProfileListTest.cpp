#include "frame/configuration/ProfileList.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace testing_support
{
namespace
{

using TessaronResources::withProfile;

TEST(ProfileList, AddsAnEntryAndLeavesTheRestAlone)
{
    const struct
    {
        const char* name;
        const char* before;
        const char* after;
    } cases[] = {
        {"new file", "", "[Profiles]\n__UserProfile0=/p\nCount=1\n"},
        {"next entry", "[Profiles]\n__UserProfile0=/a\nCount=1\n",
         "[Profiles]\n__UserProfile0=/a\nCount=2\n__UserProfile1=/p\n"},
        {"other sections and comments", "; kept\n[A]\nCount=9\n\n[Profiles]\nCount=1\n\n[B]\nx = y\n",
         "; kept\n[A]\nCount=9\n\n[Profiles]\nCount=2\n__UserProfile1=/p\n\n[B]\nx = y\n"},
        {"no section yet", "[A]\nCount=9", "[A]\nCount=9\n[Profiles]\n__UserProfile0=/p\nCount=1\n"},
        {"letters and blanks", " [ PROFILES ] \n count = 3 \n", " [ PROFILES ] \nCount=4\n__UserProfile3=/p\n"},
        {"the first section counts", "[Profiles]\n[Profiles]\nCount=5\n",
         "[Profiles]\n__UserProfile0=/p\nCount=1\n[Profiles]\nCount=5\n"},
        {"line ends of Windows", "[Profiles]\r\nCount=1\r\n", "[Profiles]\r\nCount=2\r\n__UserProfile1=/p\r\n"},
        {"a count that is no number", "[Profiles]\nCount=many\n", "[Profiles]\nCount=1\n__UserProfile0=/p\n"},
        {"a number with a tail", "[Profiles]\nCount=2 users\n", "[Profiles]\nCount=3\n__UserProfile2=/p\n"},
        {"a count below 0", "[Profiles]\nCount=-4\n", "[Profiles]\nCount=1\n__UserProfile0=/p\n"},
        {"the largest count", "[Profiles]\nCount=2147483647\n",
         "[Profiles]\nCount=2147483648\n__UserProfile2147483647=/p\n"},
        {"an entry beyond the count", "[Profiles]\n__UserProfile0=/old\n", "[Profiles]\n__UserProfile0=/p\nCount=1\n"},
        {"bytes of any kind", "\xff\n[Profiles]\nCount=0\n", "\xff\n[Profiles]\nCount=1\n__UserProfile0=/p\n"},
    };
    for (const auto& [name, before, after] : cases)
        EXPECT_EQ(withProfile(before, "/p"), after) << name;
}

TEST(ProfileList, AddsNothingThatWouldDamageTheList)
{
    EXPECT_EQ(withProfile("", "/a\nCount=100"), std::nullopt);
    EXPECT_EQ(withProfile("[Profiles]\nCount=2147483648\n", "/p"), std::nullopt);
}

TEST(ProfileList, TellsWhetherTheEntryIsThere)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(TessaronResources::addProfile(folder.path(), "list.ini", "/p"));
    EXPECT_FALSE(TessaronResources::addProfile(folder / "none", "list.ini", "/p"));
    EXPECT_FALSE(TessaronResources::addProfile(folder.path(), "list.ini", "/p\n"));
    EXPECT_EQ(readBytes(folder / "list.ini"), "[Profiles]\n__UserProfile0=/p\nCount=1\n");

    // Nobody can read a link to itself, the superuser included.
    std::filesystem::create_symlink(folder / "loop.ini", folder / "loop.ini");
    EXPECT_FALSE(TessaronResources::addProfile(folder.path(), "loop.ini", "/p"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "loop.ini"));
}

} // namespace
} // namespace testing_support
