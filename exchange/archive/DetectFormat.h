#ifndef EXCHANGE_ARCHIVE_DETECTFORMAT_H
#define EXCHANGE_ARCHIVE_DETECTFORMAT_H

#include <tessaron/exchange/Archives.h>

#include <iosfwd>

namespace exchange::archive
{

/// The format of the archive that a stream holds, by its first byte: archives of text start with "<" or a byte order
/// mark, binary ones with the low byte of a length. Takes the blanks before it, such as the line ends of an archive of
/// text that came before, from the stream.
ArchiveFormat detectFormat(std::istream& stream);

} // namespace exchange::archive

#endif
