#include "engine/templates/TemplateFile.h"

#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <sstream>
#include <utility>

namespace util::store
{

namespace
{

namespace status = exchange::status;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutMark(std::string_view bytes)
{
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
        bytes.remove_prefix(byteOrderMark.size());
    return bytes;
}

/// A program that rewrote a file with line ends of two characters did so inside texts too.
bool hasForeignLineEnds(std::string_view bytes)
{
    const std::size_t end = bytes.find('\n');
    return end != std::string_view::npos && end > 0 && bytes[end - 1] == '\r';
}

std::string withOwnLineEnds(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n')
            text += bytes[i];
    return text;
}

template <class Record>
int read(std::string_view bytes, Record& record)
{
    bytes = withoutMark(bytes);
    std::string converted;
    if (hasForeignLineEnds(bytes))
        bytes = converted = withOwnLineEnds(bytes);
    // Binary archives read differently on different machines, so they are no template files.
    if (bytes.empty() || bytes.front() != '<')
        return status::templateFormatError;
    try
    {
        Record result;
        exchange::readArchive(bytes, result);
        record = std::move(result);
        return status::ok;
    }
    catch (const boost::archive::archive_exception&)
    {
        return status::templateFormatError;
    }
}

template <class Record>
bool writeOnce(const Record& record, std::string& bytes)
{
    try
    {
        std::ostringstream stream;
        exchange::writeArchive(stream, record);
        bytes = std::move(stream).str();
        return true;
    }
    catch (const boost::archive::archive_exception&)
    {
        return false;
    }
}

/// What is about to take the place of a good file must itself be good.
template <class Record>
int write(const Record& record, std::string& bytes)
{
    std::string written;
    std::string again;
    Record back;
    if (!writeOnce(record, written) || read(written, back) != status::ok || !writeOnce(back, again) || written != again)
        return status::templateWriteError;
    bytes = std::move(written);
    return status::ok;
}

} // namespace

FileKind fileKind(std::string_view bytes)
{
    // A set starts with its "params", a list with its "count"; the outermost element's name says nothing.
    const std::string_view head = bytes.substr(0, 2048);
    const std::size_t params = head.find("<params");
    const std::size_t count = head.find("<count>");
    if (params == count)
        return FileKind::other;
    return params < count ? FileKind::oneSet : FileKind::listOfSets;
}

int readSet(std::string_view bytes, Parameterized& set)
{
    return read(bytes, set);
}

int readSets(std::string_view bytes, std::vector<Parameterized>& sets)
{
    return read(bytes, sets);
}

int writeSet(const Parameterized& set, std::string& bytes)
{
    return write(set, bytes);
}

int writeSets(const std::vector<Parameterized>& sets, std::string& bytes)
{
    return write(sets, bytes);
}

} // namespace util::store
