#ifndef EXCHANGE_ARCHIVE_RECORDTYPES_H
#define EXCHANGE_ARCHIVE_RECORDTYPES_H

#include "exchange/archive/RecordTable.h"
#include <tessaron/exchange/OrrimantInputSerialization.h>
#include <tessaron/exchange/Tessaron3dInputSerialization.h>
#include <tessaron/exchange/Tessaron5xInputSerialization.h>
#include <tessaron/exchange/ToolpathRecordsSerialization.h>

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace exchange::archive
{

/// A table by kind: what `entryFor` gives for the class of each record that archives of a format hold, and null for the
/// others.
template <class Function, unsigned format, class EntryFor, std::size_t... places>
constexpr std::array<Function, recordCount> recordTable(EntryFor entryFor, std::index_sequence<places...>)
{
    const auto entry = [&entryFor](auto place) -> Function
    {
        if constexpr (isRecordIn(format, static_cast<RecordKind>(place())))
            return entryFor(std::type_identity<std::tuple_element_t<place(), RecordTypes>>());
        else
            return nullptr;
    };
    return {entry(std::integral_constant<std::size_t, places>())...};
}

} // namespace exchange::archive

#endif
