#ifndef UTIL_PLATFORM_FOLDER_H
#define UTIL_PLATFORM_FOLDER_H

#include "util/platform/ReadFile.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace util
{

class UniqueFd;

/// An open folder.
class Folder
{
public:
    /// Opens a folder for reading; works in folders that cannot be written.
    explicit Folder(const std::string& path);
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();

    /// ok when the folder is open; otherwise missing, notAFile or failed.
    FileState state() const { return m_state; }
    const std::string& path() const { return m_path; }
    /// Same for two paths exactly when they lead to the same folder.
    std::pair<std::uint64_t, std::uint64_t> identity() const;

    /// Whether this user may make files in it, as far as that can be told without making one.
    bool canBeWritten() const;
    /// The names of all entries, in no order. False when the folder cannot be read to its end.
    bool entries(std::vector<std::string>& names) const;
    /// The stamp of a file; links are followed. Never waits, whatever the entry is.
    FileState stamp(const std::string& name, FileStamp& result) const;
    /// Reads a file to its end, unless it is larger than `limit` bytes. Links are followed. Never waits.
    FileContents read(const std::string& name, std::size_t limit) const;
    /// Puts a file with these bytes in the place of one that may be there, in one step, and returns when it is safe on
    /// disk. After a failure or a crash the old file is whole.
    bool replace(const std::string& name, const std::string& bytes) const;
    /// Removes a file and brings the folder to the disk.
    bool remove(const std::string& name) const;

private:
    std::unique_ptr<UniqueFd> m_fd;
    FileState m_state = FileState::failed;
    std::string m_path;
};

/// A path given by a host, in the platform's form. Both kinds of separator are taken as separators, except in a path
/// that exists just as it is written.
std::string nativePath(const std::string& path);

/// Makes a folder and those above it; false when it is not there afterwards.
bool makeFolders(const std::string& path);

} // namespace util

#endif
