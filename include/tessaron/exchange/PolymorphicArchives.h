#ifndef TESSARON_EXCHANGE_POLYMORPHICARCHIVES_H
#define TESSARON_EXCHANGE_POLYMORPHICARCHIVES_H

// Stability: stable.

#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/archive/PolymorphicPointer.h>
#include <tessaron/exchange/archive/PolymorphicVector.h>

#include <boost/archive/polymorphic_iarchive.hpp>
#include <boost/archive/polymorphic_oarchive.hpp>

#include <memory>

/// Archives for code that takes the serialization library's polymorphic archives (boost::archive::polymorphic_oarchive
/// and polymorphic_iarchive), so that one compiled routine serves every format.
///
/// The records they hold are geom::PointNd<2>, geom::PointNd<3>, geom::Transform, util::Parameterized and the curves
/// behind boost::shared_ptr of geom::ParametricCurve<2> and <3>. XML is the same, byte for byte, as that of
/// writeArchive(). Binary is not: sequences of numbers are stored otherwise, so a binary archive is read by the kind of
/// class that wrote it.
///
/// Formats, checks and errors are those of <tessaron/exchange/Archives.h>.
namespace exchange
{

/// Gives a stream the face of a polymorphic output archive.
class TESSARON_EXCHANGE_API PolymorphicWriter
{
public:
    /// Writes the head of an archive to the stream, which must outlive this object.
    explicit PolymorphicWriter(std::ostream& stream, ArchiveFormat format = ArchiveFormat::xml);
    /// An archive that was not finished is incomplete.
    ~PolymorphicWriter();
    PolymorphicWriter(const PolymorphicWriter&) = delete;
    PolymorphicWriter& operator=(const PolymorphicWriter&) = delete;

    /// Where to write the records, with operator<< and name-value pairs (for which include the records' serialization
    /// headers, such as <tessaron/exchange/geom/CurveSerialization.h>). Valid as long as this object.
    boost::archive::polymorphic_oarchive& archive();
    /// Completes the archive; once, at the end.
    void finish();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

/// Gives a stream the face of a polymorphic input archive.
class TESSARON_EXCHANGE_API PolymorphicReader
{
public:
    /// Reads the head of an archive, XML or binary as its first bytes tell, from the stream, which must outlive this
    /// object.
    explicit PolymorphicReader(std::istream& stream);
    ~PolymorphicReader();
    PolymorphicReader(const PolymorphicReader&) = delete;
    PolymorphicReader& operator=(const PolymorphicReader&) = delete;

    /// Where to read the records, with operator>> and name-value pairs. Valid as long as this object.
    boost::archive::polymorphic_iarchive& archive();
    /// Reads the end of the archive; once, at the end. The name of an outermost element may be any.
    void finish();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

namespace archive
{

TESSARON_EXCHANGE_API void writePolymorphic(std::ostream& stream, RecordKind kind, const void* record,
                                            ArchiveFormat format);
TESSARON_EXCHANGE_API void readPolymorphic(std::istream& stream, RecordKind kind, void* record);

template <class Record>
using IfPolymorphic = std::enable_if_t<isRecordIn(inPolymorphic, RecordKindOf<Record>::value)>;

} // namespace archive

/// Writes one record through a polymorphic archive; see writeArchive().
template <class Record, class = archive::IfPolymorphic<Record>>
void writePolymorphicArchive(std::ostream& stream, const Record& record, ArchiveFormat format = ArchiveFormat::xml)
{
    archive::writePolymorphic(stream, archive::RecordKindOf<Record>::value, &record, format);
}

/// Reads one record through a polymorphic archive; see readArchive().
template <class Record, class = archive::IfPolymorphic<Record>>
void readPolymorphicArchive(std::istream& stream, Record& record)
{
    archive::readPolymorphic(stream, archive::RecordKindOf<Record>::value, &record);
}

} // namespace exchange

#endif
