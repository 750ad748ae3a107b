#include "frame/ConfigPaths.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace TessaronResources::configPaths
{

namespace
{

constexpr std::chrono::seconds patience(10);
constexpr std::chrono::milliseconds pause(1);

// The XDG variables name absolute paths; anything else in them counts as not set.
std::string absoluteFolder(const char* text)
{
    std::string path = text && *text == '/' ? text : "";
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string homeFolder()
{
    if (const char* const home = std::getenv("HOME"); home && *home)
        return home;
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16384> texts{};
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) != 0 || !found || !found->pw_dir)
        return {};
    return found->pw_dir;
}

} // namespace

const char separator = '/';

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
    const std::string list = variable && *variable ? variable : "/usr/local/share:/usr/share";
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

bool canBeRead(const std::string& path)
{
    // Without O_NONBLOCK, opening a pipe would wait for somebody to write into it.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0)
        return false;
    struct stat data = {};
    const bool isFile = ::fstat(file, &data) == 0 && !S_ISDIR(data.st_mode);
    ::close(file);
    return isFile;
}

void makeFolders(const std::string& path)
{
    // Folders below the user's configuration folder are the user's alone.
    constexpr mode_t userOnly = 0700;
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        ::mkdir(path.substr(0, end).c_str(), userOnly);
    ::mkdir(path.c_str(), userOnly);
}

FolderClaim::FolderClaim(const std::string& folder)
    : m_handle(::open(folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY))
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (m_handle >= 0 && !m_held)
    {
        m_held = ::flock(m_handle, LOCK_EX | LOCK_NB) == 0;
        if (m_held || (errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= end)
            return;
        std::this_thread::sleep_for(pause);
    }
}

FolderClaim::~FolderClaim()
{
    if (m_handle >= 0)
        ::close(m_handle);
}

} // namespace TessaronResources::configPaths
