#include "exchange/archive/ByteSource.h"

#include "exchange/archive/Failure.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <istream>

namespace exchange::archive
{

namespace
{

std::uint64_t bytesBehind(std::streambuf& stream)
{
    const std::streamoff here = stream.pubseekoff(0, std::ios_base::cur, std::ios_base::in);
    if (here < 0)
        return ByteSource::unknown;
    const std::streamoff end = stream.pubseekoff(0, std::ios_base::end, std::ios_base::in);
    const std::streamoff back = stream.pubseekoff(here, std::ios_base::beg, std::ios_base::in);
    if (back != here)
        fail(boost::archive::archive_exception::input_stream_error);
    return end <= here ? ByteSource::unknown : static_cast<std::uint64_t>(end - here);
}

} // namespace

ByteSource::ByteSource(std::istream& stream)
    : m_stream(stream.rdbuf()), m_buffer(new char[bufferSize + 1]), m_cursor(m_buffer.get()), m_end(m_cursor)
{
    m_buffer[0] = '\0';
    if (!stream.good() || m_stream == nullptr)
        failInput();
    try
    {
        m_remaining = bytesBehind(*m_stream);
    }
    catch (const boost::archive::archive_exception&)
    {
        throw;
    }
    catch (const std::exception&)
    {
        m_remaining = unknown;
    }
}

ByteSource::~ByteSource()
{
    try
    {
        if (m_remaining != unknown && m_cursor != m_end)
            m_stream->pubseekoff(m_cursor - m_end, std::ios_base::cur, std::ios_base::in);
    }
    catch (const std::exception&)
    {
        // The archive itself is read; where the stream stands behind it is a courtesy.
    }
}

std::size_t ByteSource::fetch(char* bytes, std::size_t size)
{
    try
    {
        std::streamsize ready = m_stream->in_avail();
        if (ready <= 0)
        {
            if (m_stream->sgetc() == std::char_traits<char>::eof())
                return 0;
            ready = std::max<std::streamsize>(m_stream->in_avail(), 1);
        }
        const std::streamsize wanted = std::min(ready, static_cast<std::streamsize>(size));
        const std::size_t got = static_cast<std::size_t>(std::max<std::streamsize>(m_stream->sgetn(bytes, wanted), 0));
        if (m_remaining != unknown)
            m_remaining -= std::min<std::uint64_t>(m_remaining, got);
        return got;
    }
    catch (const std::exception&)
    {
        // A stream buffer of the caller's may report in its own way; what the caller gets is one kind of exception.
        failInput();
    }
}

bool ByteSource::fill(std::size_t size)
{
    const std::size_t kept = available();
    std::memmove(m_buffer.get(), m_cursor, kept);
    m_cursor = m_buffer.get();
    char* end = m_buffer.get() + kept;
    while (static_cast<std::size_t>(end - m_cursor) < size)
    {
        const std::size_t got = fetch(end, static_cast<std::size_t>(m_buffer.get() + bufferSize - end));
        if (got == 0)
            break;
        end += got;
    }
    *end = '\0';
    m_end = end;
    return available() >= size;
}

void ByteSource::need(std::size_t size)
{
    if (!want(size))
        failInput();
}

void ByteSource::read(void* bytes, std::size_t size)
{
    char* to = static_cast<char*>(bytes);
    const std::size_t atHand = std::min(size, available());
    std::memcpy(to, m_cursor, atHand);
    m_cursor += atHand;
    to += atHand;
    size -= atHand;
    while (size != 0)
    {
        const std::size_t got = fetch(to, size);
        if (got == 0)
            failInput();
        to += got;
        size -= got;
    }
}

} // namespace exchange::archive
