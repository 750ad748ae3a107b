#ifndef EXCHANGE_ARCHIVE_RECORDTABLE_H
#define EXCHANGE_ARCHIVE_RECORDTABLE_H

#include "exchange/archive/Records.h"

#include <iosfwd>

namespace exchange::archive
{

/// What can be done with a kind of record. The functions for binary archives are null where there are none.
struct RecordEntry
{
    /// The outermost element.
    const char* name;
    void (*writeXml)(std::ostream& stream, const void* record);
    void (*readXml)(std::istream& stream, void* record);
    void (*writeBinary)(std::ostream& stream, const void* record);
    void (*readBinary)(std::istream& stream, void* record);
};

const RecordEntry& recordEntry(RecordKind kind);

} // namespace exchange::archive

#endif
