#ifndef EXCHANGE_ARCHIVE_NESTING_H
#define EXCHANGE_ARCHIVE_NESTING_H

namespace exchange::archive
{

/// How many elements may lie in one another. Classes of a host can nest without end, and each level takes its share of
/// the stack, of which threads may have as little as a megabyte; the records nest ten deep.
inline constexpr int deepestNesting = 1000;

} // namespace exchange::archive

#endif
