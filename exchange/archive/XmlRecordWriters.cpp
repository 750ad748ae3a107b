#include "exchange/archive/WriteRecord.h"
#include "exchange/archive/XmlWriter.h"

namespace exchange::archive
{

RecordWriter xmlRecordWriter(RecordKind kind)
{
    static constexpr auto writers = recordWriters<XmlWriter, inXml>();
    return writers[static_cast<std::size_t>(kind)];
}

} // namespace exchange::archive
