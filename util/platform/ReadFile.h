#ifndef UTIL_PLATFORM_READFILE_H
#define UTIL_PLATFORM_READFILE_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace util
{

/// Tells one state of a file from another without reading it.
struct FileStamp
{
    std::uint64_t device = 0;
    std::uint64_t file = 0;    ///< the file's number on its device
    std::uint64_t size = 0;    ///< bytes
    std::int64_t modified = 0; ///< nanoseconds since 1970; so is `changed`
    std::int64_t changed = 0;  ///< last change of the contents or of the file's own data; no program can set it

    bool operator==(const FileStamp& other) const = default;
};

enum class FileState
{
    ok,
    missing,
    notAFile, ///< a folder, a device, a pipe
    tooLarge,
    failed, ///< refused, or the device failed
};

/// What a file held, and the state it was in.
struct FileContents
{
    FileState state = FileState::failed;
    FileStamp stamp;
    std::string bytes; ///< only when state is ok
};

/// Reads a file to its end, unless it is larger than `limit` bytes. Links are followed. Never waits for anybody,
/// whatever lies under the path.
FileContents readFile(const std::string& path, std::size_t limit);

/// Whether a file, or anything else but a folder, can be opened for reading. Nothing is read, and the call never waits.
bool canBeRead(const std::string& path);

} // namespace util

#endif
