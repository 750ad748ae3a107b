#include "frame/configuration/UserProfile.h"

#include "templates/TemplateUser.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

using namespace TessaronResources;

namespace
{

/// Another home for the profiles of this process, for a while.
class ConfigHome
{
public:
    explicit ConfigHome(const std::string& path)
    {
        if (const char* const before = std::getenv(variable))
            m_before = before;
        ::setenv(variable, path.c_str(), 1);
    }
    ~ConfigHome() { m_before ? ::setenv(variable, m_before->c_str(), 1) : ::unsetenv(variable); }
    ConfigHome(const ConfigHome&) = delete;
    ConfigHome& operator=(const ConfigHome&) = delete;

private:
    static constexpr const char* variable = "XDG_CONFIG_HOME";
    std::optional<std::string> m_before;
};

TEST(UserProfile, KeepsEveryPathAsItIs)
{
    const TemporaryFolder home;
    const ConfigHome config(home / "not/yet");
    EXPECT_EQ(profileText(profileSection, lastFolderEntry), "");
    for (const char* const path :
         {"/parts", "/cost $HOME 50%", "/a\\b \"c\" =#;[d]", " blanks ", "/F\xC3\xA4 \xE6\xBC\xA2", "/"})
    {
        keepProfileText(profileSection, lastFolderEntry, path);
        EXPECT_EQ(profileText(profileSection, lastFolderEntry), path);
    }
    EXPECT_EQ(profileText("Another Section", lastFolderEntry), "");
    const std::string file = home / "not/yet/Halvorsund Technologies/TessaronResources.ini";
    EXPECT_EQ(readBytes(file), "[Halvorsund Technologies, Inc.]\nLoadXmlDir=/\n");

    // Where nothing can be kept, the user is not bothered with it.
    writeBytes(home / "file", "");
    const ConfigHome refused(home / "file");
    keepProfileText(profileSection, lastFolderEntry, "/parts");
    EXPECT_EQ(profileText(profileSection, lastFolderEntry), "");
}

} // namespace
