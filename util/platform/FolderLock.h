#ifndef UTIL_PLATFORM_FOLDERLOCK_H
#define UTIL_PLATFORM_FOLDERLOCK_H

#include <memory>
#include <string>

namespace util
{

class UniqueFd;

/// An advisory lock on a folder that holds between processes as well as between threads, for the lifetime of the
/// object. It leaves nothing in the folder, needs no right to write there, and ends with the process however that ends.
class FolderLock
{
public:
    enum class Kind
    {
        shared,   ///< excludes exclusive locks
        exclusive ///< excludes all other locks
    };

    /// Waits for the lock for `patience` milliseconds at most.
    FolderLock(const std::string& folder, Kind kind, int patience = 10000);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// The lock holds.
    bool isHeld() const { return m_held; }
    /// Somebody else holds the folder. Neither held nor busy: there is no such folder, or its file system has no
    /// such locks.
    bool isBusy() const { return m_busy; }

private:
    std::unique_ptr<UniqueFd> m_folder;
    bool m_held = false;
    bool m_busy = false;
};

} // namespace util

#endif
