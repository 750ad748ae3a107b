#include "exchange/archive/WriteRecord.h"
#include "exchange/archive/XmlWriter.h"

namespace exchange::archive
{

RecordWriter xmlRecordWriter(RecordKind kind)
{
    static constexpr auto writers = recordWriters<XmlWriter>(XmlRecordTypes());
    return entryOf(writers, kind);
}

} // namespace exchange::archive
