#ifndef UTIL_TEXT_FOLDCASE_H
#define UTIL_TEXT_FOLDCASE_H

#include <string>
#include <string_view>

namespace util
{

/// A UTF-8 text with the differences between capital and small letters taken out, in every alphabet that Unicode knows
/// and whatever the process's locale: two texts are equal but for case exactly when their folded forms are equal. "ß"
/// becomes "ss". Bytes that are no UTF-8 stay as they are.
std::string foldCase(std::string_view text);

} // namespace util

#endif
