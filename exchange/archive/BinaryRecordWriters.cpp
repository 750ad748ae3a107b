#include "exchange/archive/BinaryWriter.h"
#include "exchange/archive/WriteRecord.h"

namespace exchange::archive
{

RecordWriter binaryRecordWriter(RecordKind kind)
{
    static constexpr auto writers = recordWriters<BinaryWriter, inBinary>();
    return writers[static_cast<std::size_t>(kind)];
}

} // namespace exchange::archive
