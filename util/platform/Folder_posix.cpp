#include "util/platform/Folder.h"

#include "util/platform/ReadFile_posix.h"
#include "util/platform/UniqueFd_posix.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace util
{

Folder::Folder(const std::string& path)
    : m_fd(std::make_unique<UniqueFd>(system::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY))), m_path(path)
{
    m_state = m_fd->isOpen() ? FileState::ok : stateOfError(errno);
}

Folder::~Folder() = default;

std::pair<std::uint64_t, std::uint64_t> Folder::identity() const
{
    struct stat data = {};
    if (system::fstat(m_fd->get(), &data) != 0)
        return {};
    return {data.st_dev, data.st_ino};
}

bool Folder::canBeWritten() const
{
    return m_fd->isOpen() && system::faccessat(m_fd->get(), ".", W_OK | X_OK, AT_EACCESS) == 0;
}

bool Folder::entries(std::vector<std::string>& names) const
{
    names.clear();
    // Opened once more, for a reading position of its own.
    UniqueFd fd(system::openat(m_fd->get(), ".", O_RDONLY | O_CLOEXEC | O_DIRECTORY));
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(fd.isOpen() ? ::fdopendir(fd.get()) : nullptr, &::closedir);
    if (!stream)
        return false;
    fd.release();
    errno = 0;
    while (const dirent* const entry = system::readdir(stream.get()))
    {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            names.emplace_back(name);
        errno = 0;
    }
    return errno == 0;
}

FileState Folder::stamp(const std::string& name, FileStamp& result) const
{
    struct stat data = {};
    if (system::fstatat(m_fd->get(), name.c_str(), &data, 0) != 0)
        return stateOfError(errno);
    if (!S_ISREG(data.st_mode))
        return FileState::notAFile;
    result = makeStamp(data);
    return FileState::ok;
}

FileContents Folder::read(const std::string& name, std::size_t limit) const
{
    return readFileAt(m_fd->get(), name.c_str(), limit);
}

bool Folder::remove(const std::string& name) const
{
    if (system::unlinkat(m_fd->get(), name.c_str(), 0) != 0)
        return false;
    system::fsync(m_fd->get());
    return true;
}

std::string nativePath(const std::string& path)
{
    std::error_code error;
    if (path.find('\\') == std::string::npos || std::filesystem::exists(path, error))
        return path;
    std::string native = path;
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

} // namespace util
