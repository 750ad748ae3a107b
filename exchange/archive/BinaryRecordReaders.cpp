#include "exchange/archive/BinaryReader.h"
#include "exchange/archive/ReadRecord.h"

namespace exchange::archive
{

RecordReader binaryRecordReader(RecordKind kind)
{
    static constexpr auto readers = recordReaders<BinaryReader>(BinaryRecordTypes());
    return entryOf(readers, kind);
}

} // namespace exchange::archive
