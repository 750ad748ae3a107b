#include "tests/support/TemporaryFolder.h"
#include <tessaron/frame/EntryPoints.h>

#include <gtest/gtest.h>
#include <wx/app.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using TessaronResources::getConfigFilePath;
using TessaronResources::getDefaultConfigFilePath;

namespace testing_support
{
namespace
{

namespace fs = std::filesystem;

constexpr int product(int number)
{
    return number * 65536;
}

/// A machine with folders of its own for its users' configuration and for shared data.
class ConfigPaths : public testing::Test
{
protected:
    ConfigPaths()
    {
        fs::create_directory(m_root / "config");
        fs::create_directories(shared());
        ::setenv("XDG_CONFIG_HOME", (m_root / "config").c_str(), 1);
        ::setenv("XDG_DATA_DIRS", (m_root / "data").c_str(), 1);
    }

    fs::path config() const { return m_root / "config/Halvorsund Technologies"; }
    fs::path shared() const { return m_root / "data/Halvorsund Technologies"; }
    /// Everything below the test's folder.
    std::vector<std::string> tree() const
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_root))
            names.push_back(entry.path().lexically_relative(m_root).string());
        std::sort(names.begin(), names.end());
        return names;
    }

    const TemporaryFolder m_folder;
    const fs::path m_root = m_folder.path();
};

TEST_F(ConfigPaths, TheProductIsInTheUpperHalf)
{
    const struct
    {
        int code;
        const char* file;
    } cases[] = {
        {product(100), "Tessaron2x.cfg"},
        {product(100) + 7, "Tessaron2x.cfg"},
        {product(100) + 65535, "Tessaron2x.cfg"},
        {product(101), "Tessaron3x.cfg"},
        {product(1), "Tessaron Universal Client.cfg"},
        {0, ""},
        {100, ""},
        {product(99) + 65535, ""},
        {product(102), ""},
        {-1, ""},
        {product(-100), ""},
        {product(1) - 65536 * 2 + 1, ""},
    };
    const std::string folder = fs::canonical(TESSARON_LIBRARY).parent_path().string() + '/';
    const std::vector<std::string> before = tree();
    for (const auto& [code, file] : cases)
    {
        const std::string shipped = *file ? folder + file : "";
        EXPECT_EQ(getDefaultConfigFilePath("Any", code), shipped) << code;
        EXPECT_EQ(getConfigFilePath("Any", code, false), shipped) << code;
        if (!*file)
        {
            EXPECT_EQ(getConfigFilePath("Any", code, true), "") << code;
        }
    }
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(wxAppConsole::GetInstance(), nullptr) << "asking for a path started the toolkit";
}

TEST_F(ConfigPaths, TheSubfolderIsTakenAsGiven)
{
    const struct
    {
        const char* subfolder;
        const char* path;
    } cases[] = {
        {"Host", "/Host/Tessaron2x.cfg"},
        {"Host\\2026\\Mill", "/Host/2026/Mill/Tessaron2x.cfg"},
        {"Host/2026", "/Host/2026/Tessaron2x.cfg"},
        {"Fräsen 1", "/Fräsen 1/Tessaron2x.cfg"},
        {"", "//Tessaron2x.cfg"},
        {nullptr, "//Tessaron2x.cfg"},
    };
    for (const auto& [subfolder, path] : cases)
    {
        const std::string expected = config().string() + path;
        EXPECT_EQ(getConfigFilePath(subfolder, product(100), true), expected);
        EXPECT_TRUE(fs::is_directory(fs::path(expected).parent_path()));
        EXPECT_FALSE(fs::exists(expected)) << "the host writes the file";
    }
}

TEST_F(ConfigPaths, FallsBackToTheShippedFileUntilTheUserHasOne)
{
    const std::string shipped = getDefaultConfigFilePath("Host", product(101));
    fs::create_directories(config() / "Host");
    EXPECT_EQ(getConfigFilePath("Host", product(101), false), shipped);

    const fs::path own = config() / "Host/Tessaron3x.cfg";
    fs::create_directory(own);
    EXPECT_EQ(getConfigFilePath("Host", product(101), false), shipped) << "a folder is no file";
    fs::remove(own);
    fs::create_symlink(m_root / "nowhere", own);
    EXPECT_EQ(getConfigFilePath("Host", product(101), false), shipped);
    fs::remove(own);

    writeBytes(own, "x");
    EXPECT_EQ(getConfigFilePath("Host", product(101), false), own);
    EXPECT_EQ(getConfigFilePath("Host", product(101), true), own);
    EXPECT_EQ(readBytes(own), "x");
    EXPECT_FALSE(fs::exists(shared() / "Tessaron3x.ini")) << "a user who has a file is not recorded";
}

TEST_F(ConfigPaths, RecordsTheUsersFileEachTimeWhileItIsMissing)
{
    fs::create_directory(shared() / "Host");
    const std::string path = getConfigFilePath("Host", product(1), true);
    EXPECT_EQ(readBytes(shared() / "Host/Tessaron.ini"), "[Profiles]\n__UserProfile0=" + path + "\nCount=1\n");
    getConfigFilePath("Host", product(1) + 3, true);
    EXPECT_EQ(readBytes(shared() / "Host/Tessaron.ini"),
              "[Profiles]\n__UserProfile0=" + path + "\nCount=2\n__UserProfile1=" + path + "\n");
}

TEST_F(ConfigPaths, MakesTheUsersFoldersButNotTheSharedOne)
{
    const std::string path = getConfigFilePath("A\\B", product(100), true);
    struct stat data = {};
    ASSERT_EQ(::stat((config() / "A/B").c_str(), &data), 0);
    EXPECT_EQ(data.st_mode & 0777, 0700u);
    EXPECT_TRUE(fs::is_empty(shared()));

    fs::remove_all(m_root / "data");
    EXPECT_EQ(getConfigFilePath("A\\B", product(100), true), path);
    EXPECT_FALSE(fs::exists(m_root / "data"));
}

TEST_F(ConfigPaths, TheListStaysEveryUsersWhateverOneUsersNewFilesAre)
{
    // Any group that this user may give a file to.
    gid_t group = 54321;
    if (::geteuid() != 0 && ::getgroups(1, &group) < 1)
        group = ::getegid();
    writeBytes(shared() / "Tessaron2x.ini", "[Profiles]\nCount=0\n");
    ASSERT_EQ(::chown((shared() / "Tessaron2x.ini").c_str(), static_cast<uid_t>(-1), group), 0);
    fs::permissions(shared() / "Tessaron2x.ini", fs::perms(0664));
    fs::permissions(shared(), fs::perms(0775));
    const mode_t before = ::umask(077);
    getConfigFilePath("", product(100), true);
    getConfigFilePath("", product(101), true);
    ::umask(before);
    struct stat data = {};
    ASSERT_EQ(::stat((shared() / "Tessaron2x.ini").c_str(), &data), 0);
    EXPECT_NE(readBytes(shared() / "Tessaron2x.ini").find("Count=1"), std::string::npos);
    EXPECT_EQ(data.st_mode & 0777, 0664u);
    EXPECT_EQ(data.st_gid, group);
    ASSERT_EQ(::stat((shared() / "Tessaron3x.ini").c_str(), &data), 0);
    EXPECT_EQ(data.st_mode & 0777, 0664u) << "a new list has its folder's rights";
}

TEST_F(ConfigPaths, AFolderThatCannotBeMadeIsIgnored)
{
    writeBytes(config(), "a file where the maker's folder should be");
    EXPECT_EQ(getConfigFilePath("Host", product(100), true), config() / "Host/Tessaron2x.cfg");
    fs::create_directories(shared() / "Tessaron2x.ini");
    EXPECT_EQ(getConfigFilePath("", product(100), true), config().string() + "//Tessaron2x.cfg");
    EXPECT_TRUE(fs::is_empty(shared() / "Tessaron2x.ini"));
}

TEST_F(ConfigPaths, FollowsTheVariablesOfTheDesktop)
{
    ::setenv("HOME", (m_root / "home").c_str(), 1);
    const std::string below = "/Halvorsund Technologies/Host/Tessaron2x.cfg";
    for (const char* const variable : {"", "relative", static_cast<const char*>(nullptr)})
    {
        ::unsetenv("XDG_CONFIG_HOME");
        if (variable)
            ::setenv("XDG_CONFIG_HOME", variable, 1);
        EXPECT_EQ(getConfigFilePath("Host", product(100), true), (m_root / "home/.config").string() + below);
    }

    // The list of profiles goes where the shared folder is, not where it might be.
    ::setenv("XDG_CONFIG_HOME", (m_root / "config").c_str(), 1);
    const fs::path second = m_root / "second/Halvorsund Technologies";
    fs::create_directories(second / "Host");
    ::setenv("XDG_DATA_DIRS", ("relative:" + (m_root / "data").string() + "/:" + (m_root / "second").string()).c_str(),
             1);
    getConfigFilePath("Host", product(100), true);
    EXPECT_TRUE(fs::exists(second / "Host/Tessaron2x.ini"));
    fs::create_directories(shared() / "Host");
    getConfigFilePath("Host", product(100), true);
    EXPECT_TRUE(fs::exists(shared() / "Host/Tessaron2x.ini"));
}

TEST_F(ConfigPaths, ProcessesThatRecordAtTheSameTimeLoseNoEntry)
{
    constexpr int processes = 4;
    constexpr int calls = 25;
    writeBytes(shared() / "Tessaron2x.ini", "[Other]\nKept=yes\n");
    std::array<int, 2> start{};
    ASSERT_EQ(::pipe(start.data()), 0);
    std::vector<pid_t> children;
    for (int i = 0; i < processes; ++i)
    {
        const pid_t child = ::fork();
        if (child == 0)
        {
            ::setenv("XDG_CONFIG_HOME", (m_root / std::to_string(i)).c_str(), 1);
            ::close(start[1]);
            char byte = 0;
            static_cast<void>(::read(start[0], &byte, 1)); // ends when the parent lets go of its end
            for (int call = 0; call < calls; ++call)
                getConfigFilePath("", product(100), true);
            ::_exit(0);
        }
        children.push_back(child);
    }
    ::close(start[0]);
    ::close(start[1]);
    for (const pid_t child : children)
    {
        int status = -1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }

    const std::string list = readBytes(shared() / "Tessaron2x.ini");
    EXPECT_EQ(list.rfind("[Other]\nKept=yes\n", 0), 0u);
    EXPECT_NE(list.find("\nCount=" + std::to_string(processes * calls) + "\n"), std::string::npos) << list;
    for (int entry = 0; entry < processes * calls; ++entry)
        EXPECT_NE(list.find("\n__UserProfile" + std::to_string(entry) + '='), std::string::npos) << entry;
    for (int i = 0; i < processes; ++i)
    {
        const std::string path = (m_root / std::to_string(i)).string() + '/';
        int found = 0;
        for (std::size_t at = list.find(path); at != std::string::npos; at = list.find(path, at + 1))
            ++found;
        EXPECT_EQ(found, calls) << path;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(shared()), {}), 1) << "something was left behind";
}

TEST(ConfigPathsHost, AHostThatChangesItsFolderStillFindsTheShippedFile)
{
    const fs::path library = fs::canonical(TESSARON_LIBRARY);
    const std::string command = "cd '" + library.parent_path().string() + "' && env -u DISPLAY -u WAYLAND_DISPLAY '" +
                                LATE_LOADER + "' './" + library.filename().string() + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::array<char, 4096> line{};
    ASSERT_TRUE(output && std::fgets(line.data(), static_cast<int>(line.size()), output.get()));
    EXPECT_EQ(line.data(), library.parent_path().string() + "/Tessaron2x.cfg\n");
}

} // namespace
} // namespace testing_support
