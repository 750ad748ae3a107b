#include "exchange/archive/RecordTable.h"

namespace exchange::archive
{

const char* recordName(RecordKind kind)
{
    return std::apply(
        [kind](const auto&... entries)
        {
            const char* const names[] = {entries.name...};
            return names[static_cast<std::size_t>(kind)];
        },
        records);
}

} // namespace exchange::archive
