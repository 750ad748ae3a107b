#include "util/platform/AtomicFile.h"

#include "util/platform/Descriptor_posix.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <ostream>
#include <streambuf>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace util
{

namespace
{

/// A buffered output to a file descriptor that remembers the first error.
class DescriptorBuffer : public std::streambuf
{
public:
    explicit DescriptorBuffer(int descriptor) : m_descriptor(descriptor) { empty(); }

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
            const ssize_t written = uninterrupted([&] { return ::write(m_descriptor, bytes, size); });
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

    int m_descriptor;
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
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string temporaryName(const std::string& path)
{
    static std::atomic<unsigned> counter{0};
    const std::size_t slash = path.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    // A name of the full length that the system takes has no room for more.
    constexpr std::size_t longestPart = 200;
    return path.substr(0, name) + '.' + path.substr(name, longestPart) + '.' + std::to_string(::getpid()) + '-' +
           std::to_string(++counter) + ".tmp";
}

} // namespace

AtomicFileError::~AtomicFileError() = default;

class AtomicFile::Impl
{
public:
    explicit Impl(const std::string& path)
        : m_path(path), m_target(resolved(path)), m_file(create()), m_buffer(m_file.number()), m_stream(&m_buffer)
    {
        keepRights();
    }
    ~Impl()
    {
        if (!m_committed)
            ::unlink(m_temporary.c_str());
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    std::ostream& stream() { return m_stream; }
    bool failed() const { return !m_stream.good() || m_buffer.error() != 0; }

    void commit()
    {
        m_stream.flush();
        if (m_buffer.error() != 0)
            failStep(m_path, "writing the temporary file", m_buffer.error());
        check(uninterrupted([&] { return ::fsync(m_file.number()); }) == 0, "bringing it to the disk");
        check(m_file.close(), "closing the temporary file");
        check(::rename(m_temporary.c_str(), m_target.c_str()) == 0, "renaming the temporary file");
        m_committed = true;
        const std::string folder = folderOf(m_target);
        const Descriptor entry(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        check(entry.number() >= 0, "opening the folder");
        // Some file systems cannot do this for folders and say so; the rename is all they offer.
        check(uninterrupted([&] { return ::fsync(entry.number()); }) == 0 || errno == EINVAL,
              "bringing the folder to the disk");
    }

private:
    /// After a system call: fails with its errno.
    void check(bool done, const char* step) const
    {
        if (!done)
            failStep(m_path, step, errno);
    }
    int create()
    {
        for (;;)
        {
            m_temporary = temporaryName(m_target);
            const int descriptor = uninterrupted(
                [&] { return ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); });
            if (descriptor >= 0)
                return descriptor;
            check(errno == EEXIST, "creating a temporary file beside it");
        }
    }
    void keepRights()
    {
        struct stat old = {};
        if (::stat(m_target.c_str(), &old) == 0)
            // The new file is ours in any case; where the rights cannot be copied, it has the usual ones.
            static_cast<void>(::fchmod(m_file.number(), old.st_mode & 07777));
    }

    std::string m_path;
    std::string m_target;
    std::string m_temporary;
    Descriptor m_file;
    DescriptorBuffer m_buffer;
    std::ostream m_stream;
    bool m_committed = false;
};

AtomicFile::AtomicFile(const std::string& path) : m_impl(std::make_unique<Impl>(path)) {}

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
