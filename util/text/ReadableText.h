#ifndef UTIL_TEXT_READABLETEXT_H
#define UTIL_TEXT_READABLETEXT_H

#include <string>
#include <string_view>

namespace util
{

/// A text as UTF-8, to be shown. What is no UTF-8, as texts of older programs and names of files may be, is taken to be
/// in the system's code page, or else, where that does not fit or is UTF-8 itself, in Latin-1 with the letters that
/// Windows added to it. The result is always valid.
std::string readableText(std::string_view text);

} // namespace util

#endif
