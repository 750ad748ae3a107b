#include "exchange/archive/ReadRecord.h"
#include "exchange/archive/XmlReader.h"

namespace exchange::archive
{

RecordReader xmlRecordReader(RecordKind kind)
{
    static constexpr auto readers = recordReaders<XmlReader>(XmlRecordTypes());
    return entryOf(readers, kind);
}

} // namespace exchange::archive
