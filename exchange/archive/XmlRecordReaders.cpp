#include "exchange/archive/ReadRecord.h"
#include "exchange/archive/XmlReader.h"

namespace exchange::archive
{

RecordReader xmlRecordReader(RecordKind kind)
{
    static constexpr auto readers = recordReaders<XmlReader, inXml>();
    return readers[static_cast<std::size_t>(kind)];
}

} // namespace exchange::archive
