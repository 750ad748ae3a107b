#include "util/platform/UserFolders.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace util
{

namespace
{

// The variables name absolute paths; anything else in them counts as not set.
std::string absoluteFolder(const char* text)
{
    std::string path = text && *text == '/' ? text : "";
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string homeFolder()
{
    if (std::string home = absoluteFolder(std::getenv("HOME")); !home.empty())
        return home;
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16384> texts{};
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) != 0 || !found || !found->pw_dir)
        return {};
    return found->pw_dir;
}

std::vector<std::string> foldersOf(const std::string& list)
{
    std::vector<std::string> folders;
    for (std::size_t begin = 0; begin <= list.size();)
    {
        const std::size_t end = std::min(list.find(':', begin), list.size());
        const std::string folder = absoluteFolder(list.substr(begin, end - begin).c_str());
        if (!folder.empty())
            folders.push_back(folder);
        begin = end + 1;
    }
    return folders;
}

} // namespace

std::string userConfigurationFolder()
{
    std::string folder = absoluteFolder(std::getenv("XDG_CONFIG_HOME"));
    if (!folder.empty())
        return folder;
    const std::string home = homeFolder();
    return home.empty() ? home : home + "/.config";
}

std::vector<std::string> sharedDataFolders()
{
    const char* const variable = std::getenv("XDG_DATA_DIRS");
    const std::vector<std::string> folders = foldersOf(variable ? variable : "");
    return folders.empty() ? foldersOf("/usr/local/share:/usr/share") : folders;
}

void makeUserFolder(const std::string& path)
{
    constexpr mode_t userOnly = 0700;
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        ::mkdir(path.substr(0, end).c_str(), userOnly);
    ::mkdir(path.c_str(), userOnly);
}

} // namespace util
