#include <tessaron/exchange/Archives.h>

#include "exchange/archive/DetectFormat.h"
#include "exchange/archive/Failure.h"
#include "exchange/archive/MemoryBuffer.h"
#include "exchange/archive/RecordTable.h"
#include "util/platform/AtomicFile.h"

#include <cerrno>
#include <exception>
#include <fstream>
#include <istream>
#include <system_error>

namespace exchange
{

using boost::archive::archive_exception;

ArchiveFileError::ArchiveFileError(exception_code errorCode, const std::string& text)
    : std::exception(), archive_exception(errorCode), m_text(text)
{
}

ArchiveFileError::~ArchiveFileError() noexcept = default;

namespace archive
{

ArchiveFormat detectFormat(std::istream& stream)
{
    int first = std::char_traits<char>::eof();
    try
    {
        if (stream.good() && stream.rdbuf() != nullptr)
        {
            // The line ends behind an XML document that came before this one.
            std::streambuf& buffer = *stream.rdbuf();
            first = buffer.sgetc();
            while (first == ' ' || first == '\n' || first == '\t' || first == '\r')
                first = buffer.snextc();
        }
    }
    catch (const std::exception&)
    {
        // A stream buffer of the caller's may report in its own way; what the caller gets is one kind of exception.
    }
    switch (first)
    {
    case std::char_traits<char>::eof():
        failInput();
    case '<':
    case 0xEF:
        return ArchiveFormat::xml;
    default:
        return ArchiveFormat::binary;
    }
}

void write(std::ostream& stream, RecordKind kind, const void* record, ArchiveFormat format)
{
    const RecordWriter writer = format == ArchiveFormat::xml ? xmlRecordWriter(kind) : binaryRecordWriter(kind);
    writer(stream, recordName(kind), record);
}

void read(std::istream& stream, RecordKind kind, void* record)
{
    const bool isXml = detectFormat(stream) == ArchiveFormat::xml;
    const RecordReader reader = isXml ? xmlRecordReader(kind) : binaryRecordReader(kind);
    if (reader == nullptr)
        failSyntax();
    reader(stream, record);
}

void read(std::string_view bytes, RecordKind kind, void* record)
{
    MemoryBuffer buffer(bytes);
    std::istream stream(&buffer);
    read(stream, kind, record);
}

void writeFile(const std::string& path, RecordKind kind, const void* record, ArchiveFormat format)
{
    try
    {
        util::AtomicFile file(path);
        try
        {
            write(file.stream(), kind, record, format);
        }
        catch (const archive_exception& error)
        {
            // Where the file is to blame, commit() tells the reason.
            if (!file.failed())
                throw ArchiveFileError(error.code, "Cannot write '" + path + "': " + error.what());
        }
        file.commit();
    }
    catch (const util::AtomicFileError& error)
    {
        throw ArchiveFileError(archive_exception::output_stream_error, error.what());
    }
}

void readFile(const std::string& path, RecordKind kind, void* record)
{
    std::ifstream file(path, std::ios_base::in | std::ios_base::binary);
    const auto refuse = [&path](archive_exception::exception_code code, const std::string& reason)
    { throw ArchiveFileError(code, "Cannot read '" + path + "': " + reason); };
    if (!file)
        refuse(archive_exception::input_stream_error, std::generic_category().message(errno));
    try
    {
        read(file, kind, record);
    }
    catch (const archive_exception& error)
    {
        refuse(error.code, error.what());
    }
}

} // namespace archive

} // namespace exchange
