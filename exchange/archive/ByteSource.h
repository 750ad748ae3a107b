#ifndef EXCHANGE_ARCHIVE_BYTESOURCE_H
#define EXCHANGE_ARCHIVE_BYTESOURCE_H

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>

namespace exchange::archive
{

/// A window on an input stream: the bytes from cursor() to end() are at hand, and *end() is always a zero byte, so that
/// scanners need no bounds check of their own. Never waits for more than the stream has to offer at the moment.
class ByteSource
{
public:
    explicit ByteSource(std::istream& stream);
    /// Gives back to the stream what was fetched and not consumed, when the stream can seek.
    ~ByteSource();
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    const char* cursor() const { return m_cursor; }
    const char* end() const { return m_end; }
    std::size_t available() const { return static_cast<std::size_t>(m_end - m_cursor); }
    void advanceTo(const char* cursor) { m_cursor = cursor; }

    /// Tries to have at least `size` bytes at hand (at most maxWindow); false when the input ends before that. Moves
    /// the window: pointers into it are stale after a call.
    bool want(std::size_t size) { return available() >= size || fill(size); }
    /// As want(), but the end of the input is "input stream error".
    void need(std::size_t size);

    /// Reads exactly `size` bytes, however many; the end of the input is "input stream error".
    void read(void* bytes, std::size_t size);

    /// The most bytes that can still come: exact for streams that can seek, otherwise the largest number there is.
    std::uint64_t remaining() const { return m_remaining == unknown ? unknown : m_remaining + available(); }

    static constexpr std::size_t maxWindow = std::size_t{64} * 1024;
    static constexpr std::uint64_t unknown = ~std::uint64_t{0};

private:
    bool fill(std::size_t size);
    std::size_t fetch(char* bytes, std::size_t size);

    static constexpr std::size_t bufferSize = 2 * maxWindow;
    std::streambuf* m_stream;
    std::unique_ptr<char[]> m_buffer;
    const char* m_cursor;
    const char* m_end;
    std::uint64_t m_remaining = unknown;
};

} // namespace exchange::archive

#endif
