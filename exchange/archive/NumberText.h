#ifndef EXCHANGE_ARCHIVE_NUMBERTEXT_H
#define EXCHANGE_ARCHIVE_NUMBERTEXT_H

namespace exchange::archive
{

/// The longest text that formatDouble() writes.
inline constexpr int maxDoubleText = 32;

/// Writes a double as printf's "%.17g" does in the "C" locale and returns the end of the text.
char* formatDouble(char* to, double value);

} // namespace exchange::archive

#endif
