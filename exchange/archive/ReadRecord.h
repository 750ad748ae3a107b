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

template <class Reader, class... Records>
constexpr std::array<RecordReader, sizeof...(Records)> recordReaders(TypeList<Records...>)
{
    return {&readRecord<Records, Reader>...};
}

} // namespace exchange::archive

#endif
