#include "frame/configuration/UserProfile.h"

#include "templates/TemplatePrompts.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

using namespace TessaronResources;

namespace
{

/// Another value of an environment variable, for a while.
class Environment
{
public:
    Environment(const char* name, const std::string& value) : variable(name)
    {
        if (const char* const before = std::getenv(variable))
            m_before = before;
        ::setenv(variable, value.c_str(), 1);
    }
    ~Environment() { m_before ? ::setenv(variable, m_before->c_str(), 1) : ::unsetenv(variable); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* variable;
    std::optional<std::string> m_before;
};

TEST(UserProfile, KeepsEveryPathAsItIs)
{
    const TemporaryFolder home;
    const Environment config("XDG_CONFIG_HOME", home / "not/yet");
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
    const Environment refused("XDG_CONFIG_HOME", home / "file");
    keepProfileText(profileSection, lastFolderEntry, "/parts");
    EXPECT_EQ(profileText(profileSection, lastFolderEntry), "");
}

TEST(UserProfile, StandsWithTheConfigurationFilesOfTheUser)
{
    // Only an absolute path names a folder for configuration files.
    const TemporaryFolder home;
    const Environment user("HOME", home.path());
    const Environment config("XDG_CONFIG_HOME", "relative");
    keepProfileText(profileSection, lastFolderEntry, "/parts");
    EXPECT_EQ(profileText(profileSection, lastFolderEntry), "/parts");
    EXPECT_TRUE(std::filesystem::exists(home / ".config/Halvorsund Technologies/TessaronResources.ini"));
    EXPECT_FALSE(std::filesystem::exists("relative"));
}

} // namespace
