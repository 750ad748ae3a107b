#ifndef TEMPLATES_COLUMNS_SORTKEY_H
#define TEMPLATES_COLUMNS_SORTKEY_H

#include <tessaron/util/Parameterized.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace TessaronResources
{

/// What a value is sorted by: made once for each row, so that comparing costs little. A default-constructed key stands
/// for no value.
struct SortKey
{
    std::uint64_t order = 0; ///< decides most comparisons; 0: no value
    std::string text;        ///< decides between texts that begin alike

    bool isEmpty() const { return order == 0; }
    /// Negative, zero or positive, as this key comes before, beside or after the other. Neither is empty.
    int compare(const SortKey& other) const
    {
        return order != other.order ? (order < other.order ? -1 : 1) : text.compare(other.text);
    }
};

/// Makes the keys of one column.
typedef std::function<SortKey(const util::Parameterized::Value&)> SortKeyMaker;

/// Numbers sort by size; one that is not a number has no key.
SortKey numberSortKey(double number);
/// The same for a value, which has no key unless it holds a number.
SortKey numberSortKey(const util::Parameterized::Value& value);
/// Texts sort letter by letter ignoring case, and the numbers in them by size: "T2" before "T10".
SortKey textSortKey(std::string_view text);

} // namespace TessaronResources

#endif
