// Feeds arbitrary bytes to the archive readers of FUZZ_RECORD, to the polymorphic ones if FUZZ_POLYMORPHIC is 1. What
// reads must survive being written and read again.

#include <tessaron/exchange/PolymorphicArchives.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <istream>
#include <sstream>
#include <streambuf>

namespace
{

using Record = FUZZ_RECORD;

/// A stream over the input that cannot seek and comes in small pieces, as from a pipe.
class PipeBuffer : public std::streambuf
{
public:
    PipeBuffer(const std::uint8_t* bytes, std::size_t size)
        : m_next(const_cast<char*>(reinterpret_cast<const char*>(bytes))), m_left(size)
    {
    }

protected:
    int_type underflow() override
    {
        const std::size_t step = m_left < 37 ? m_left : 37;
        if (step == 0)
            return traits_type::eof();
        setg(m_next, m_next, m_next + step);
        m_next += step;
        m_left -= step;
        return traits_type::to_int_type(*gptr());
    }

private:
    char* m_next;
    std::size_t m_left;
};

void readRecord(std::istream& stream, Record& record)
{
#if FUZZ_POLYMORPHIC
    exchange::readPolymorphicArchive(stream, record);
#else
    exchange::readArchive(stream, record);
#endif
}

template <class AnyRecord>
std::string written(const AnyRecord& record, bool asXml)
{
    std::ostringstream stream;
    if constexpr (!exchange::archive::hasBinary<AnyRecord>)
        exchange::writeArchive(stream, record);
    else
        exchange::writeArchive(stream, record, asXml ? exchange::ArchiveFormat::xml : exchange::ArchiveFormat::binary);
    return stream.str();
}

bool hasNonFinite(const std::string& xml)
{
    return xml.find(">nan<") != std::string::npos || xml.find(">-nan<") != std::string::npos ||
           xml.find(">inf<") != std::string::npos || xml.find(">-inf<") != std::string::npos;
}

void checkRoundTrip(const Record& record, bool asXml)
{
    const std::string first = written(record, asXml);
    if (asXml && hasNonFinite(first))
        return;
    std::istringstream stream(first);
    Record again{};
    exchange::readArchive(stream, again);
    if (written(again, asXml) != first)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Record record{};
    try
    {
        if (size % 2 == 0)
        {
            std::istringstream stream(std::string(reinterpret_cast<const char*>(bytes), size));
            readRecord(stream, record);
        }
        else
        {
            PipeBuffer pipe(bytes, size);
            std::istream stream(&pipe);
            readRecord(stream, record);
        }
    }
    catch (const boost::archive::archive_exception&)
    {
        return 0;
    }
    checkRoundTrip(record, true);
    checkRoundTrip(record, false);
    return 0;
}
