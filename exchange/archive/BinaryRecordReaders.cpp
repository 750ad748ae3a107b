#include "exchange/archive/BinaryReader.h"
#include "exchange/archive/ReadRecord.h"

namespace exchange::archive
{

RecordReader binaryRecordReader(RecordKind kind)
{
    static constexpr auto readers = recordReaders<BinaryReader, inBinary>();
    return readers[static_cast<std::size_t>(kind)];
}

} // namespace exchange::archive
