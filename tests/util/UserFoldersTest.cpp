#include "util/platform/UserFolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

// A machine without shared folders of its own has the usual ones, and never the root directory.
TEST(UserFolders, CountOnlyWhatIsAbsolute)
{
    const std::vector<std::string> usual = {"/usr/local/share", "/usr/share"};
    for (const char* const list : {"", ":", "share", "share:other"})
    {
        ::setenv("XDG_DATA_DIRS", list, 1);
        EXPECT_EQ(util::sharedDataFolders(), usual) << list;
    }
    ::setenv("XDG_DATA_DIRS", "share:/opt/share/", 1);
    EXPECT_EQ(util::sharedDataFolders(), std::vector<std::string>{"/opt/share"});

    ::unsetenv("XDG_CONFIG_HOME");
    ::setenv("HOME", "relative", 1);
    EXPECT_EQ(util::userConfigurationFolder().rfind('/', 0), 0U) << util::userConfigurationFolder();
}
