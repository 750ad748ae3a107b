#include "exchange/archive/NumberText.h"

#include <charconv>

namespace exchange::archive
{

char* formatDouble(char* to, double value)
{
    return std::to_chars(to, to + maxDoubleText, value, std::chars_format::general, 17).ptr;
}

} // namespace exchange::archive
