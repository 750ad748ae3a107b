#include "util/platform/AtomicFile.h"

#include "util/platform/TemporaryFile.h"
#include "util/platform/UniqueFd_posix.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <ostream>
#include <streambuf>
#include <system_error>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <time.h>

namespace util
{

namespace
{

/// Has a write to a pipe whose reader is gone fail, where the host's process would end by the signal.
class BrokenPipeGuard
{
public:
    BrokenPipeGuard()
    {
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        sigset_t pending;
        m_wasPending = sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    ~BrokenPipeGuard()
    {
        const int error = errno;
        constexpr timespec now{};
        if (!m_wasPending)
            sigtimedwait(&m_pipe, nullptr, &now);
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
        errno = error;
    }
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

private:
    sigset_t m_pipe{};
    sigset_t m_before{};
    bool m_wasPending = false;
};

/// A buffered output to a file descriptor that remembers the first error.
class FdBuffer : public std::streambuf
{
public:
    explicit FdBuffer(int fd) : m_fd(fd) { empty(); }

    int error() const { return m_error; }

protected:
    int_type overflow(int_type character) override
    {
        if (!drain())
            return traits_type::eof();
        if (!traits_type::eq_int_type(character, traits_type::eof()))
        {
            *pptr() = traits_type::to_char_type(character);
            pbump(1);
        }
        return traits_type::not_eof(character);
    }
    std::streamsize xsputn(const char* bytes, std::streamsize size) override
    {
        if (size < epptr() - pptr())
        {
            traits_type::copy(pptr(), bytes, static_cast<std::size_t>(size));
            pbump(static_cast<int>(size));
            return size;
        }
        return drain() && put(bytes, static_cast<std::size_t>(size)) ? size : 0;
    }
    int sync() override { return drain() ? 0 : -1; }

private:
    void empty() { setp(m_buffer.data(), m_buffer.data() + m_buffer.size()); }
    bool drain()
    {
        const bool written = put(pbase(), static_cast<std::size_t>(pptr() - pbase()));
        empty();
        return written;
    }
    bool put(const char* bytes, std::size_t size)
    {
        while (size != 0 && m_error == 0)
        {
            const BrokenPipeGuard guard;
            const ssize_t written = system::write(m_fd, bytes, size);
            if (written < 0)
                m_error = errno;
            else
            {
                bytes += written;
                size -= static_cast<std::size_t>(written);
            }
        }
        return m_error == 0;
    }

    int m_fd;
    int m_error = 0;
    std::array<char, std::size_t{64} * 1024> m_buffer;
};

[[noreturn]] void failStep(const std::string& path, const char* step, int error)
{
    throw AtomicFileError("Cannot write '" + path + "': " + step + ": " + std::generic_category().message(error));
}

std::string resolved(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error))
        return path;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    // A link that leads nowhere is replaced by the file.
    return error ? path : target.string();
}

std::string folderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// A path, if it has no zero byte: the system would take it to end there, and find another file.
const std::string& withoutZero(const std::string& path)
{
    if (const std::size_t zero = path.find('\0'); zero != std::string::npos)
        throw AtomicFileError("Cannot write '" + path.substr(0, zero) + "': a zero byte follows in the path");
    return path;
}

} // namespace

AtomicFileError::~AtomicFileError() = default;

class AtomicFile::Impl
{
public:
    Impl(const std::string& path, NewFile rights)
        : m_path(withoutZero(path)), m_target(resolved(path)), m_file(isForPassing() ? open() : create()),
          m_buffer(m_file.get()), m_stream(&m_buffer)
    {
        if (isTemporary())
            setRights(rights);
    }
    ~Impl()
    {
        if (isTemporary() && !m_committed)
            system::unlinkat(AT_FDCWD, m_temporary.c_str(), 0);
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    std::ostream& stream() { return m_stream; }
    bool failed() const { return !m_stream.good() || m_buffer.error() != 0; }

    void commit()
    {
        m_stream.flush();
        if (m_buffer.error() != 0)
            failStep(m_path, isTemporary() ? "writing the temporary file" : "writing", m_buffer.error());
        if (!isTemporary())
        {
            check(m_file.close(), "closing it");
            return;
        }
        check(system::fsync(m_file.get()) == 0, "bringing it to the disk");
        check(m_file.close(), "closing the temporary file");
        const UniqueFd folder(system::open(folderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        check(folder.isOpen(), "opening the folder");
        check(system::rename(m_temporary.c_str(), m_target.c_str()) == 0, "renaming the temporary file");
        m_committed = true;
        // Some file systems cannot do this for folders and say so; the rename is all they offer.
        check(system::fsync(folder.get()) == 0 || errno == EINVAL, "bringing the folder to the disk");
    }

private:
    /// After a system call: fails with its errno.
    void check(bool done, const char* step) const
    {
        if (!done)
            failStep(m_path, step, errno);
    }
    bool isTemporary() const { return !m_temporary.empty(); }
    /// Whether the target passes bytes on, as pipes and devices do, and has none that could be replaced.
    bool isForPassing() const
    {
        struct stat target = {};
        return system::fstatat(AT_FDCWD, m_target.c_str(), &target, 0) == 0 && !S_ISREG(target.st_mode) &&
               !S_ISDIR(target.st_mode);
    }
    int open()
    {
        const int fd = system::open(m_target.c_str(), O_WRONLY | O_CLOEXEC);
        check(fd >= 0, "opening it");
        return fd;
    }
    int create()
    {
        for (;;)
        {
            m_temporary = temporaryPath(m_target);
            const int fd = system::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (fd >= 0)
                return fd;
            check(errno == EEXIST, "creating a temporary file beside it");
        }
    }
    // The new file is ours in any case; where the rights cannot be copied, it has the usual ones.
    void setRights(NewFile rights)
    {
        struct stat model = {};
        if (system::fstatat(AT_FDCWD, m_target.c_str(), &model, 0) == 0)
            copyRights(model.st_gid, model.st_mode & 07777);
        else if (rights == NewFile::ofFolder && system::fstatat(AT_FDCWD, folderOf(m_target).c_str(), &model, 0) == 0)
            copyRights(model.st_gid, model.st_mode & 0666);
    }
    void copyRights(gid_t group, mode_t mode)
    {
        struct stat own = {};
        const bool sameGroup = (system::fstat(m_file.get(), &own) == 0 && own.st_gid == group) ||
                               system::fchown(m_file.get(), static_cast<uid_t>(-1), group) == 0;
        // What one group was allowed must not become another's.
        if (!sameGroup)
            mode = (mode & ~static_cast<mode_t>(S_IRWXG | S_ISGID)) | (mode & S_IRWXO) << 3;
        static_cast<void>(system::fchmod(m_file.get(), mode));
    }

    std::string m_path;
    std::string m_target;
    std::string m_temporary;
    UniqueFd m_file;
    FdBuffer m_buffer;
    std::ostream m_stream;
    bool m_committed = false;
};

AtomicFile::AtomicFile(const std::string& path, NewFile rights) : m_impl(std::make_unique<Impl>(path, rights)) {}

AtomicFile::~AtomicFile() = default;

std::ostream& AtomicFile::stream()
{
    return m_impl->stream();
}

bool AtomicFile::failed() const
{
    return m_impl->failed();
}

void AtomicFile::commit()
{
    m_impl->commit();
}

} // namespace util
