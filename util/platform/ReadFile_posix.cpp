#include "util/platform/ReadFile_posix.h"

#include "util/platform/UniqueFd_posix.h"

#include <cerrno>

#include <fcntl.h>

namespace util
{

namespace
{

// Without O_NONBLOCK, opening a pipe would wait for somebody to write into it.
constexpr int readFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

std::int64_t nanoseconds(const timespec& time)
{
    return static_cast<std::int64_t>(time.tv_sec) * 1000000000 + time.tv_nsec;
}

} // namespace

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

FileContents readFileAt(int folder, const char* path, std::size_t limit)
{
    FileContents contents;
    const UniqueFd file(system::openat(folder, path, readFlags));
    struct stat data = {};
    if (!file.isOpen() || system::fstat(file.get(), &data) != 0)
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
        const ssize_t count = system::read(file.get(), contents.bytes.data() + length, expected);
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

FileContents readFile(const std::string& path, std::size_t limit)
{
    return readFileAt(AT_FDCWD, path.c_str(), limit);
}

bool canBeRead(const std::string& path)
{
    const UniqueFd file(system::open(path.c_str(), readFlags));
    struct stat data = {};
    return file.isOpen() && system::fstat(file.get(), &data) == 0 && !S_ISDIR(data.st_mode);
}

} // namespace util
