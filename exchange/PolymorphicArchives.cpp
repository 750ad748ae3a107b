#include <tessaron/exchange/PolymorphicArchives.h>

#include "exchange/archive/BinaryReader.h"
#include "exchange/archive/BinaryWriter.h"
#include "exchange/archive/DetectFormat.h"
#include "exchange/archive/PolymorphicIArchive.h"
#include "exchange/archive/PolymorphicOArchive.h"
#include "exchange/archive/RecordTable.h"
#include "exchange/archive/XmlReader.h"
#include "exchange/archive/XmlWriter.h"
#include <tessaron/exchange/geom/CurveSerialization.h>

#include <utility>
#include <variant>

namespace exchange
{

using archive::PolymorphicIArchive;
using archive::PolymorphicOArchive;

class PolymorphicWriter::Impl
{
public:
    std::variant<std::monostate, PolymorphicOArchive<archive::XmlWriter>, PolymorphicOArchive<archive::BinaryWriter>>
        archive;
};

PolymorphicWriter::PolymorphicWriter(std::ostream& stream, ArchiveFormat format) : m_impl(std::make_unique<Impl>())
{
    if (format == ArchiveFormat::xml)
        m_impl->archive.emplace<1>(stream);
    else
        m_impl->archive.emplace<2>(stream);
}

PolymorphicWriter::~PolymorphicWriter() = default;

boost::archive::polymorphic_oarchive& PolymorphicWriter::archive()
{
    if (auto* const xml = std::get_if<1>(&m_impl->archive))
        return *xml;
    return std::get<2>(m_impl->archive);
}

void PolymorphicWriter::finish()
{
    if (auto* const xml = std::get_if<1>(&m_impl->archive))
        xml->finish();
    else
        std::get<2>(m_impl->archive).finish();
}

class PolymorphicReader::Impl
{
public:
    std::variant<std::monostate, PolymorphicIArchive<archive::XmlReader>, PolymorphicIArchive<archive::BinaryReader>>
        archive;
};

PolymorphicReader::PolymorphicReader(std::istream& stream) : m_impl(std::make_unique<Impl>())
{
    if (archive::detectFormat(stream) == ArchiveFormat::xml)
        m_impl->archive.emplace<1>(stream);
    else
        m_impl->archive.emplace<2>(stream);
}

PolymorphicReader::~PolymorphicReader() = default;

boost::archive::polymorphic_iarchive& PolymorphicReader::archive()
{
    if (auto* const xml = std::get_if<1>(&m_impl->archive))
        return *xml;
    return std::get<2>(m_impl->archive);
}

void PolymorphicReader::finish()
{
    if (auto* const xml = std::get_if<1>(&m_impl->archive))
        xml->finish();
    else
        std::get<2>(m_impl->archive).finish();
}

namespace archive
{

namespace
{

template <class Record>
void writeAs(PolymorphicWriter& writer, RecordKind kind, const void* record)
{
    writer.archive() << boost::serialization::make_nvp(recordName(kind), *static_cast<const Record*>(record));
    writer.finish();
}

template <class Record>
void readAs(std::istream& stream, RecordKind kind, void* record)
{
    Record fresh{};
    {
        PolymorphicReader reader(stream);
        reader.archive() >> boost::serialization::make_nvp(recordName(kind), fresh);
        reader.finish();
    }
    *static_cast<Record*>(record) = std::move(fresh);
}

/// Calls an operation with the type of a record, given as a null pointer. The templates of the header let no kind
/// through that is not for polymorphic archives.
template <class Operation, std::size_t... places>
void withType(RecordKind kind, const Operation& operation, std::index_sequence<places...>)
{
    const auto tryPlace = [&](auto place)
    {
        if constexpr (isRecordIn(inPolymorphic, static_cast<RecordKind>(place())))
            if (kind == static_cast<RecordKind>(place()))
                operation(static_cast<std::tuple_element_t<place(), RecordTypes>*>(nullptr));
    };
    (tryPlace(std::integral_constant<std::size_t, places>()), ...);
}
template <class Operation>
void withType(RecordKind kind, const Operation& operation)
{
    withType(kind, operation, std::make_index_sequence<recordCount>());
}

} // namespace

void writePolymorphic(std::ostream& stream, RecordKind kind, const void* record, ArchiveFormat format)
{
    PolymorphicWriter writer(stream, format);
    withType(kind, [&](auto* type) { writeAs<std::remove_pointer_t<decltype(type)>>(writer, kind, record); });
}

void readPolymorphic(std::istream& stream, RecordKind kind, void* record)
{
    withType(kind, [&](auto* type) { readAs<std::remove_pointer_t<decltype(type)>>(stream, kind, record); });
}

} // namespace archive

} // namespace exchange
