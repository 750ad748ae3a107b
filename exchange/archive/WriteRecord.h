#ifndef EXCHANGE_ARCHIVE_WRITERECORD_H
#define EXCHANGE_ARCHIVE_WRITERECORD_H

#include "exchange/archive/OArchive.h"
#include "exchange/archive/RecordTypes.h"

namespace exchange::archive
{

template <class Record, class Writer>
void writeRecord(std::ostream& stream, const char* name, const void* record)
{
    OArchive<Writer> archive(stream);
    archive << boost::serialization::make_nvp(name, *static_cast<const Record*>(record));
    archive.finish();
}

template <class Writer, class... Records>
constexpr std::array<RecordWriter, sizeof...(Records)> recordWriters(TypeList<Records...>)
{
    return {&writeRecord<Records, Writer>...};
}

} // namespace exchange::archive

#endif
