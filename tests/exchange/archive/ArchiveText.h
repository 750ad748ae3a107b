#ifndef TESTS_EXCHANGE_ARCHIVE_ARCHIVETEXT_H
#define TESTS_EXCHANGE_ARCHIVE_ARCHIVETEXT_H

#include "AnyRecord.h"

#include <boost/archive/archive_exception.hpp>

#include <stdexcept>
#include <string>

namespace testing_support
{

inline std::string golden(const std::string& file)
{
    return fileBytes(TESSARON_TEST_DATA "/golden/" + file);
}

/// The text with the first occurrence of `from` replaced; a test whose text has changed must not pass unnoticed.
inline std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    if (at == std::string::npos)
        throw std::runtime_error("not in the text: " + from);
    return text.replace(at, from.size(), to);
}

inline std::string replacedAll(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// The archive of a feed rate that stands there as this text.
inline std::string feedRateArchive(const std::string& number)
{
    return replaced(golden("rec_customrecord.xml"), "<string>a&lt;b &amp; c&gt;d</string>",
                    "<feedrate>" + number + "</feedrate>");
}

template <class Record>
Record readFrom(const std::string& archive)
{
    std::istringstream stream(archive);
    Record record{};
    exchange::readArchive(stream, record);
    return record;
}

template <class Record>
std::string written(const Record& record, exchange::ArchiveFormat format)
{
    std::ostringstream stream;
    exchange::writeArchive(stream, record, format);
    return stream.str();
}

/// The text of the exception that reading ends with; "" when it does not. Only archive exceptions may come out.
inline std::string readError(const AnyRecord& record, const std::string& archive)
{
    std::istringstream stream(archive);
    try
    {
        record.read(stream);
    }
    catch (const boost::archive::archive_exception& error)
    {
        return error.what();
    }
    return "";
}

} // namespace testing_support

#endif
