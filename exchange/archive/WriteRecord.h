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

template <class Writer, unsigned format>
constexpr auto recordWriters()
{
    return recordTable<RecordWriter, format>([]<class Record>(std::type_identity<Record>)
                                             { return &writeRecord<Record, Writer>; },
                                             std::make_index_sequence<recordCount>());
}

} // namespace exchange::archive

#endif
