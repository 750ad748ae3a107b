#ifndef EXCHANGE_ARCHIVE_DETECTFORMAT_H
#define EXCHANGE_ARCHIVE_DETECTFORMAT_H

#include <tessaron/exchange/Archives.h>

#include <iosfwd>

namespace exchange::archive
{

/// The format of the archive that a stream holds, by its first byte: archives of text start with "<", or with blanks or
/// a byte order mark before it; binary ones with the low byte of a length.
ArchiveFormat detectFormat(std::istream& stream);

} // namespace exchange::archive

#endif
