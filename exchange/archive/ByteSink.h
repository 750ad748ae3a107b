#ifndef EXCHANGE_ARCHIVE_BYTESINK_H
#define EXCHANGE_ARCHIVE_BYTESINK_H

#include <cstddef>
#include <cstring>
#include <iosfwd>
#include <memory>

namespace exchange::archive
{

/// Collects bytes and hands them to a stream in large blocks. It goes to the stream's buffer directly, so the stream's
/// formatting flags and exception mask play no part. Failures are "output stream error".
class ByteSink
{
public:
    explicit ByteSink(std::ostream& stream);

    /// Room for at least `size` bytes; advanceTo() says how many of them were used. Fails where the buffer is smaller.
    char* reserve(std::size_t size)
    {
        if (static_cast<std::size_t>(m_end - m_cursor) < size) [[unlikely]]
            makeRoom(size);
        return m_cursor;
    }
    void advanceTo(char* cursor) { m_cursor = cursor; }

    /// `bytes` may be null when there are none.
    void append(const void* bytes, std::size_t size)
    {
        if (size == 0)
            return;
        if (static_cast<std::size_t>(m_end - m_cursor) < size) [[unlikely]]
            return appendLarge(bytes, size);
        std::memcpy(m_cursor, bytes, size);
        m_cursor += size;
    }

    /// Hands everything to the stream and has the stream pass it on.
    void flush();

    static constexpr std::size_t maxReserve = 4096;

private:
    void drain();
    void makeRoom(std::size_t size);
    void appendLarge(const void* bytes, std::size_t size);
    void put(const char* bytes, std::size_t size);

    static constexpr std::size_t bufferSize = std::size_t{128} * 1024;
    std::streambuf* m_stream;
    std::unique_ptr<char[]> m_buffer;
    char* m_cursor;
    char* m_end;
};

} // namespace exchange::archive

#endif
