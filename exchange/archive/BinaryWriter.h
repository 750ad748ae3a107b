#ifndef EXCHANGE_ARCHIVE_BINARYWRITER_H
#define EXCHANGE_ARCHIVE_BINARYWRITER_H

#include "exchange/archive/ByteSink.h"

#include <cstdint>
#include <string>

namespace exchange::archive
{

/// Writes the values of a binary archive. It has the operations of XmlWriter; elements and names leave no trace here.
class BinaryWriter
{
public:
    /// Arrays of numbers go as one block.
    static constexpr bool blocks = true;

    explicit BinaryWriter(std::ostream& stream);

    void openHead(const char*) {}
    void closeHead() {}
    void openElement(const char*) {}
    void close(const char*) {}

    void classInfo(int, bool tracking, unsigned version);
    void newClass(int classId, const char* key, bool tracking, unsigned version);
    void knownClass(int classId) { put(static_cast<std::int16_t>(classId)); }
    void nullPointer();
    void newObject(unsigned objectId) { put(objectId); }
    void knownObject(unsigned objectId) { put(objectId); }

    template <class T>
    void value(const char*, const T& value)
    {
        content(value);
    }
    void content(bool value) { put(static_cast<unsigned char>(value)); }
    void content(int value) { put(value); }
    void content(unsigned value) { put(value); }
    void content(unsigned long value) { count(value); }
    void content(double value) { put(value); }
    void content(const std::string& value)
    {
        count(value.size());
        m_sink.append(value.data(), value.size());
    }
    void count(std::size_t count) { put(static_cast<std::uint64_t>(count)); }
    void itemVersion(unsigned version) { put(version); }
    void block(const void* bytes, std::size_t size) { m_sink.append(bytes, size); }
    /// A fixed array of numbers, with its count: count() and block() in one step.
    template <class T, std::size_t N>
    void numbers(const T (&array)[N])
    {
        const std::uint64_t count = N;
        static_assert(sizeof count + sizeof array <= ByteSink::maxReserve);
        char* const to = m_sink.reserve(sizeof count + sizeof array);
        std::memcpy(to, &count, sizeof count);
        std::memcpy(to + sizeof count, array, sizeof array);
        m_sink.advanceTo(to + sizeof count + sizeof array);
    }

    void finish() { m_sink.flush(); }

private:
    template <class T>
    void put(T value)
    {
        char* const to = m_sink.reserve(sizeof value);
        std::memcpy(to, &value, sizeof value);
        m_sink.advanceTo(to + sizeof value);
    }

    ByteSink m_sink;
};

} // namespace exchange::archive

#endif
