#ifndef EXCHANGE_ARCHIVE_BINARYREADER_H
#define EXCHANGE_ARCHIVE_BINARYREADER_H

#include "exchange/archive/ByteSource.h"
#include "exchange/archive/Failure.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace exchange::archive
{

/// Reads the values of a binary archive. It has the operations of XmlReader; elements and names have no trace here. An
/// early end of the input, and bytes that are no value of the wanted type, are "input stream error".
class BinaryReader
{
public:
    static constexpr bool blocks = true;

    /// Reads the header.
    explicit BinaryReader(std::istream& stream);

    unsigned version() const { return m_version; }

    void open(const char*) {}
    void close(const char*) {}
    void openRoot() {}
    void closeRoot() {}

    void classInfo(bool& tracking, unsigned& version);
    int classId() { return get<std::int16_t>(); }
    std::string_view className();
    unsigned objectId() { return get<std::uint32_t>(); }

    template <class T>
    void value(const char*, T& value)
    {
        content(value);
    }
    void content(bool& value) { value = flag(); }
    void content(int& value) { value = get<std::int32_t>(); }
    void content(unsigned& value) { value = get<std::uint32_t>(); }
    void content(std::size_t& value) { value = get<std::uint64_t>(); }
    void content(double& value) { value = get<double>(); }
    void content(std::string& value);
    std::size_t count() { return hasNarrowCounts() ? get<std::uint32_t>() : get<std::uint64_t>(); }
    unsigned itemVersion();
    /// Whether a sequence of numbers has an item version between its count and the block of its numbers.
    bool blocksHaveItemVersion() const { return m_version == 4 || m_version == 5; }
    void block(void* bytes, std::size_t size)
    {
        if (m_source.available() < size)
            return m_source.read(bytes, size);
        std::memcpy(bytes, m_source.cursor(), size);
        m_source.advanceTo(m_source.cursor() + size);
    }

    /// A fixed array of numbers with its count, which may be smaller than the array but not larger.
    template <class T, std::size_t N>
    void numbers(T (&array)[N])
    {
        const std::uint64_t full = N;
        if (m_source.available() >= sizeof full + sizeof array && !hasNarrowCounts() &&
            std::memcmp(m_source.cursor(), &full, sizeof full) == 0) [[likely]]
        {
            std::memcpy(array, m_source.cursor() + sizeof full, sizeof array);
            m_source.advanceTo(m_source.cursor() + sizeof full + sizeof array);
            return;
        }
        const std::size_t stored = count();
        if (stored > N)
            fail(boost::archive::archive_exception::array_size_too_short);
        if (stored != 0)
            block(array, stored * sizeof(T));
    }

    /// How many flat records of that size are at hand, at cursor(); see FlatItems.h.
    std::size_t flatCount(std::size_t size) const { return hasNarrowCounts() ? 0 : m_source.available() / size; }
    const char* cursor() const { return m_source.cursor(); }
    void advanceTo(const char* cursor) { m_source.advanceTo(cursor); }

    /// See ByteSource::remaining().
    std::uint64_t remaining() const { return m_source.remaining(); }

    void finish() {}

private:
    template <class T>
    T get()
    {
        if (m_source.available() < sizeof(T)) [[unlikely]]
            m_source.need(sizeof(T));
        T value;
        std::memcpy(&value, m_source.cursor(), sizeof value);
        m_source.advanceTo(m_source.cursor() + sizeof value);
        return value;
    }
    bool flag();
    bool hasNarrowCounts() const { return m_version <= 5; }

    ByteSource m_source;
    unsigned m_version = 0;
    std::string m_className;
};

} // namespace exchange::archive

#endif
