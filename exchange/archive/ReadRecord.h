#ifndef EXCHANGE_ARCHIVE_READRECORD_H
#define EXCHANGE_ARCHIVE_READRECORD_H

#include "exchange/archive/IArchive.h"
#include "exchange/archive/RecordTypes.h"

#include <utility>

namespace exchange::archive
{

/// Reads into a fresh record, so that the caller's is untouched when reading fails.
template <class Record, class Reader>
void readRecord(std::istream& stream, void* record)
{
    Record fresh{};
    {
        IArchive<Reader> archive(stream);
        archive.readRoot(fresh);
    }
    *static_cast<Record*>(record) = std::move(fresh);
}

template <class Reader, unsigned format>
constexpr auto recordReaders()
{
    return recordTable<RecordReader, format>([]<class Record>(std::type_identity<Record>)
                                             { return &readRecord<Record, Reader>; },
                                             std::make_index_sequence<recordCount>());
}

} // namespace exchange::archive

#endif
