#ifndef UTIL_TEXT_FOLDCASE_H
#define UTIL_TEXT_FOLDCASE_H

#include <string>
#include <string_view>

namespace TessaronResources
{

/// A text with its capital letters made small, in the Latin, Greek and Cyrillic alphabets, whatever the process's
/// locale. Bytes that are no UTF-8 stay as they are.
std::string foldCase(std::string_view text);

} // namespace TessaronResources

#endif
