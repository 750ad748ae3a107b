#ifndef EXCHANGE_ARCHIVE_RECORDTABLE_H
#define EXCHANGE_ARCHIVE_RECORDTABLE_H

#include <tessaron/exchange/archive/Records.h>

#include <cstddef>
#include <iosfwd>
#include <tuple>

namespace exchange::archive
{

/// The name of the outermost element.
const char* recordName(RecordKind kind);

template <class... Records>
std::tuple<Records...> recordTypes(const std::tuple<RecordEntry<Records>...>&);
/// The classes of the records, by kind.
using RecordTypes = decltype(recordTypes(records));
inline constexpr std::size_t recordCount = std::tuple_size_v<RecordTypes>;

typedef void (*RecordReader)(std::istream& stream, void* record);
typedef void (*RecordWriter)(std::ostream& stream, const char* name, const void* record);

// What is done with a kind of record. Each function has a source file to itself: their templates are what takes long to
// compile, and the four have none in common. Those for binary archives give null where there are
// none.
RecordReader xmlRecordReader(RecordKind kind);
RecordWriter xmlRecordWriter(RecordKind kind);
RecordReader binaryRecordReader(RecordKind kind);
RecordWriter binaryRecordWriter(RecordKind kind);

} // namespace exchange::archive

#endif
