#include "util/platform/FolderLock.h"

#include "util/platform/UniqueFd_posix.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace util
{

FolderLock::FolderLock(const std::string& folder, Kind kind, int patience)
    // Opened for itself alone: locks belong to what one opening gave.
    : m_folder(std::make_unique<UniqueFd>(system::open(folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY)))
{
    if (!m_folder->isOpen())
        return;
    const int operation = (kind == Kind::exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(patience);
    for (auto pause = std::chrono::microseconds(100);;)
    {
        m_held = system::flock(m_folder->get(), operation) == 0;
        m_busy = !m_held && errno == EWOULDBLOCK;
        if (m_held || !m_busy || std::chrono::steady_clock::now() >= end)
            return;
        std::this_thread::sleep_for(pause);
        pause = std::min(2 * pause, std::chrono::microseconds(3200));
    }
}

FolderLock::~FolderLock()
{
    // A child that was forked meanwhile may have the folder open, too, and would keep the lock.
    if (m_held)
        system::flock(m_folder->get(), LOCK_UN);
}

} // namespace util
