#include "exchange/archive/BinaryWriter.h"
#include "exchange/archive/WriteRecord.h"

namespace exchange::archive
{

RecordWriter binaryRecordWriter(RecordKind kind)
{
    static constexpr auto writers = recordWriters<BinaryWriter>(BinaryRecordTypes());
    return entryOf(writers, kind);
}

} // namespace exchange::archive
