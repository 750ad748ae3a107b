#include "exchange/archive/ByteSink.h"

#include "exchange/archive/Failure.h"

#include <exception>
#include <ostream>

namespace exchange::archive
{

using boost::archive::archive_exception;

ByteSink::ByteSink(std::ostream& stream)
    : m_stream(stream.rdbuf()), m_buffer(new char[bufferSize]), m_cursor(m_buffer.get()), m_end(m_cursor + bufferSize)
{
    if (!stream.good() || m_stream == nullptr)
        fail(archive_exception::output_stream_error);
}

void ByteSink::put(const char* bytes, std::size_t size)
{
    try
    {
        if (m_stream->sputn(bytes, static_cast<std::streamsize>(size)) == static_cast<std::streamsize>(size))
            return;
    }
    catch (const std::exception&)
    {
        // A stream buffer of the caller's may report in its own way; what the caller gets is one kind of exception.
    }
    fail(archive_exception::output_stream_error);
}

void ByteSink::drain()
{
    put(m_buffer.get(), static_cast<std::size_t>(m_cursor - m_buffer.get()));
    m_cursor = m_buffer.get();
}

void ByteSink::makeRoom(std::size_t size)
{
    drain();
    if (size > bufferSize)
        fail(archive_exception::output_stream_error);
}

void ByteSink::appendLarge(const void* bytes, std::size_t size)
{
    drain();
    if (size >= bufferSize)
        return put(static_cast<const char*>(bytes), size);
    std::memcpy(m_cursor, bytes, size);
    m_cursor += size;
}

void ByteSink::flush()
{
    drain();
    bool flushed = false;
    try
    {
        flushed = m_stream->pubsync() == 0;
    }
    catch (const std::exception&)
    {
        // See put().
    }
    if (!flushed)
        fail(archive_exception::output_stream_error);
}

} // namespace exchange::archive
