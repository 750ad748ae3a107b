#include "exchange/archive/BinaryReader.h"

#include "exchange/archive/BinaryFormat.h"
#include "exchange/archive/Failure.h"

#include <algorithm>

namespace exchange::archive
{

using boost::archive::archive_exception;

namespace
{

/// Whether the header starts as a 32-bit writer's does: the same signature behind a length of four bytes.
bool isNarrowHeader(const char* bytes)
{
    const std::uint32_t length = signatureSize;
    return std::memcmp(bytes, &length, sizeof length) == 0 && std::memcmp(bytes + sizeof length, signature, 4) == 0;
}

} // namespace

BinaryReader::BinaryReader(std::istream& stream) : m_source(stream)
{
    m_source.need(sizeof(std::uint64_t));
    if (isNarrowHeader(m_source.cursor()))
        fail(archive_exception::incompatible_native_format, "size of size_t");
    if (get<std::uint64_t>() != signatureSize)
        fail(archive_exception::invalid_signature);
    m_source.need(signatureSize);
    if (std::memcmp(m_source.cursor(), signature, signatureSize) != 0)
        fail(archive_exception::invalid_signature);
    m_source.advanceTo(m_source.cursor() + signatureSize);

    m_version = get<unsigned char>();
    // Up to version 5 it is one byte. Version 7 came with one byte at first and with two later; the byte behind it is
    // the size of int otherwise.
    m_source.need(1);
    if (m_version > 5 && (m_version != 7 || *m_source.cursor() == 0))
        m_version += 256u * get<unsigned char>();
    if (m_version == 0 || m_version > libraryVersion)
        fail(archive_exception::unsupported_version);

    unsigned char marks[sizeof nativeMarks];
    block(marks, sizeof marks);
    static constexpr const char* markNames[] = {"size of int", "size of long", "size of float", "size of double"};
    for (std::size_t i = 0; i < std::size(markNames); ++i)
        if (marks[i] != nativeMarks[i])
            fail(archive_exception::incompatible_native_format, markNames[i]);
    if (!std::equal(marks, marks + sizeof marks, nativeMarks))
        fail(archive_exception::incompatible_native_format, "endian setting");
}

bool BinaryReader::flag()
{
    const auto byte = get<unsigned char>();
    if (byte > 1)
        failInput();
    return byte == 1;
}

void BinaryReader::classInfo(bool& tracking, unsigned& version)
{
    tracking = flag();
    switch (m_version)
    {
    case 6:
        version = get<std::uint16_t>();
        break;
    case 3:
    case 4:
    case 5:
    case 7:
        version = get<std::uint8_t>();
        break;
    default:
        version = get<std::uint32_t>();
    }
}

unsigned BinaryReader::itemVersion()
{
    // Versions up to 3 of the library did not store it.
    return m_version <= 3 ? 0 : get<std::uint32_t>();
}

std::string_view BinaryReader::className()
{
    const std::size_t size = get<std::uint64_t>();
    if (size > maxClassName)
        fail(archive_exception::invalid_class_name);
    m_className.resize(size);
    block(m_className.data(), size);
    return m_className;
}

void BinaryReader::content(std::string& value)
{
    std::size_t left = get<std::uint64_t>();
    if (left > m_source.remaining())
        failInput();
    // Where nobody knows how much is to come, memory grows with what has come.
    value.clear();
    while (left != 0)
    {
        m_source.need(1);
        const std::size_t step = std::min(left, m_source.available());
        value.append(m_source.cursor(), step);
        m_source.advanceTo(m_source.cursor() + step);
        left -= step;
    }
}

} // namespace exchange::archive
