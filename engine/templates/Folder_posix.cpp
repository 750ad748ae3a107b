#include "engine/templates/Folder.h"

#include "util/platform/Descriptor_posix.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace util::store
{

namespace
{

std::int64_t nanoseconds(const timespec& time)
{
    return static_cast<std::int64_t>(time.tv_sec) * 1000000000 + time.tv_nsec;
}

FileStamp makeStamp(const struct stat& data)
{
    return {data.st_dev, data.st_ino, static_cast<std::uint64_t>(data.st_size), nanoseconds(data.st_mtim),
            nanoseconds(data.st_ctim)};
}

FileState stateOfError(int error)
{
    switch (error)
    {
    case ENOENT:
        return FileState::missing;
    case ENOTDIR:
    case EISDIR:
    case ENXIO: // a socket
        return FileState::notAFile;
    default:
        return FileState::failed;
    }
}

/// The same folder under a description of its own, with a reading position and locks of its own.
int openAgain(int folder)
{
    return uninterrupted([&] { return ::openat(folder, ".", O_RDONLY | O_CLOEXEC | O_DIRECTORY); });
}

FileContents readAt(int folder, const char* name, std::size_t limit)
{
    FileContents contents;
    // Without O_NONBLOCK, opening a pipe would wait for somebody to write into it.
    const Descriptor file(
        uninterrupted([&] { return ::openat(folder, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    struct stat data
    {
    };
    if (file.number() < 0 || ::fstat(file.number(), &data) != 0)
    {
        contents.state = stateOfError(errno);
        return contents;
    }
    contents.stamp = makeStamp(data);
    if (!S_ISREG(data.st_mode))
    {
        contents.state = FileState::notAFile;
        return contents;
    }

    // One byte more than expected, to meet the end of the file in the first turn.
    std::size_t expected = static_cast<std::size_t>(data.st_size) + 1;
    for (std::size_t length = 0;;)
    {
        if (length > limit || static_cast<std::uint64_t>(data.st_size) > limit)
        {
            contents.bytes = {};
            contents.state = FileState::tooLarge;
            return contents;
        }
        contents.bytes.resize(length + expected);
        const ssize_t count =
            uninterrupted([&] { return ::read(file.number(), contents.bytes.data() + length, expected); });
        if (count < 0)
        {
            contents.bytes = {};
            return contents;
        }
        length += static_cast<std::size_t>(count);
        if (count == 0)
        {
            contents.bytes.resize(length);
            contents.state = FileState::ok;
            return contents;
        }
        expected = contents.bytes.size() > length ? contents.bytes.size() - length : std::size_t(4096);
    }
}

} // namespace

Folder::Folder(const std::string& path)
    : m_handle(uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY); })), m_path(path)
{
    m_state = m_handle >= 0 ? FileState::ok : stateOfError(errno);
}

Folder::~Folder()
{
    if (m_handle >= 0)
        ::close(m_handle);
}

std::pair<std::uint64_t, std::uint64_t> Folder::identity() const
{
    struct stat data
    {
    };
    if (::fstat(m_handle, &data) != 0)
        return {};
    return {data.st_dev, data.st_ino};
}

bool Folder::entries(std::vector<std::string>& names) const
{
    names.clear();
    const int handle = openAgain(m_handle);
    DIR* const stream = handle < 0 ? nullptr : ::fdopendir(handle);
    if (!stream)
    {
        if (handle >= 0)
            ::close(handle);
        return false;
    }
    errno = 0;
    while (const dirent* const entry = ::readdir(stream))
    {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            names.emplace_back(name);
        errno = 0;
    }
    const bool complete = errno == 0;
    ::closedir(stream);
    return complete;
}

FileState Folder::stamp(const std::string& name, FileStamp& result) const
{
    struct stat data
    {
    };
    if (::fstatat(m_handle, name.c_str(), &data, 0) != 0)
        return stateOfError(errno);
    if (!S_ISREG(data.st_mode))
        return FileState::notAFile;
    result = makeStamp(data);
    return FileState::ok;
}

FileContents Folder::read(const std::string& name, std::size_t limit) const
{
    return readAt(m_handle, name.c_str(), limit);
}

bool Folder::remove(const std::string& name) const
{
    if (::unlinkat(m_handle, name.c_str(), 0) != 0)
        return false;
    ::fsync(m_handle);
    return true;
}

FileContents readFile(const std::string& path, std::size_t limit)
{
    return readAt(AT_FDCWD, path.c_str(), limit);
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

} // namespace util::store
