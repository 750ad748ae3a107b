#ifndef TESSARON_EXCHANGE_ARCHIVES_H
#define TESSARON_EXCHANGE_ARCHIVES_H

// Stability: stable.

#include <tessaron/exchange/archive/Records.h>
#include <tessaron/util/Export.h>

#include <boost/archive/archive_exception.hpp>

#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>

/// Writing and reading exchange records as archives: one call for one record.
///
/// A record is one of
///  - geom::PointNd<2>, geom::PointNd<3>, geom::VecNd<3>, geom::Transform, util::Parameterized, ParameterizedList;
///  - a curve or a mesh behind its shared pointer (boost::shared_ptr of geom::ParametricCurve<2>, of
///    geom::ParametricCurve<3>, topo::mesh::TriMeshPtr; null is a value like any other), a CurveList,
///    topo::mesh::TriMesh, topo::mesh::TriMeshFacet;
///  - the milling and drilling records: TessaronDrillHole, TessaronDrillHoles, Tessaron2dBoundaries, Tessaron2dInput,
///    Tessaron3dBoundaries, Tessaron3dInput, Tessaron5xFlankConstraint, Tessaron5xBoundaries, Tessaron5xInput;
///  - in XML archives only: OrrimantInput, ToolpathRecords and each kind of toolpath record.
/// Anything else, and a binary archive of the last group, does not compile.
///
/// Archives are written in library version 10 and read in version 10 and older. docs/archives.md describes the formats,
/// what is refused, and every error.
///
/// Errors of all functions here are boost::archive::archive_exception or derived from it. The functions keep no state:
/// any number of threads may use them at once, each on a record and a stream of its own.
namespace exchange
{

enum class ArchiveFormat
{
    xml,   ///< text, the same on every platform
    binary ///< for programs of the same word size and byte order only
};

/// The error of the calls that take a file's path: what() names the file and tells what went wrong.
class TESSARON_EXCHANGE_API ArchiveFileError : public boost::archive::archive_exception
{
public:
    ArchiveFileError(exception_code errorCode, const std::string& text);
    ~ArchiveFileError() noexcept override;
    const char* what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

namespace archive
{

TESSARON_EXCHANGE_API void write(std::ostream& stream, RecordKind kind, const void* record, ArchiveFormat format);
TESSARON_EXCHANGE_API void writeFile(const std::string& path, RecordKind kind, const void* record,
                                     ArchiveFormat format);
TESSARON_EXCHANGE_API void read(std::istream& stream, RecordKind kind, void* record);
TESSARON_EXCHANGE_API void read(std::string_view bytes, RecordKind kind, void* record);
TESSARON_EXCHANGE_API void readFile(const std::string& path, RecordKind kind, void* record);

template <class Record>
using IfBinary = std::enable_if_t<isRecordIn(inBinary, RecordKindOf<Record>::value)>;

} // namespace archive

/// Writes one record as an XML archive. The stream's formatting flags and locale play no part; open it in binary mode.
/// \throws boost::archive::archive_exception output_stream_error, when the stream does not take the bytes (what was
///         written by then is no archive); unregistered_class, for a curve of a class of the caller's own.
template <class Record, archive::RecordKind kind = archive::RecordKindOf<Record>::value>
void writeArchive(std::ostream& stream, const Record& record)
{
    archive::write(stream, kind, &record, ArchiveFormat::xml);
}

/// Writes one record as an archive of the given format.
template <class Record, class = archive::IfBinary<Record>>
void writeArchive(std::ostream& stream, const Record& record, ArchiveFormat format)
{
    archive::write(stream, archive::RecordKindOf<Record>::value, &record, format);
}

/// Writes one record into a file, as an XML archive. The file appears whole or not at all: what stood under the path
/// stays untouched until the archive is complete on the disk.
/// \throws ArchiveFileError naming the file and the step that failed.
template <class Record, archive::RecordKind kind = archive::RecordKindOf<Record>::value>
void writeArchiveFile(const std::string& path, const Record& record)
{
    archive::writeFile(path, kind, &record, ArchiveFormat::xml);
}

/// Writes one record into a file, as an archive of the given format.
template <class Record, class = archive::IfBinary<Record>>
void writeArchiveFile(const std::string& path, const Record& record, ArchiveFormat format)
{
    archive::writeFile(path, archive::RecordKindOf<Record>::value, &record, format);
}

/// Reads one record from an archive, XML or binary as the archive's first bytes tell. When the read fails, the record
/// is as it was. A stream that can seek is left right behind the archive; where another one stands is unspecified.
/// \throws boost::archive::archive_exception for everything that is not an archive of such a record.
template <class Record, archive::RecordKind kind = archive::RecordKindOf<Record>::value>
void readArchive(std::istream& stream, Record& record)
{
    archive::read(stream, kind, &record);
}

/// Reads one record from an archive in memory, which is not copied. When the read fails, the record is as it was.
/// \throws boost::archive::archive_exception for everything that does not start with an archive of such a record.
template <class Record, archive::RecordKind kind = archive::RecordKindOf<Record>::value>
void readArchive(std::string_view bytes, Record& record)
{
    archive::read(bytes, kind, &record);
}

/// Reads one record from an archive file, as readArchive() does.
/// \throws ArchiveFileError naming the file.
template <class Record, archive::RecordKind kind = archive::RecordKindOf<Record>::value>
void readArchiveFile(const std::string& path, Record& record)
{
    archive::readFile(path, kind, &record);
}

} // namespace exchange

#endif
