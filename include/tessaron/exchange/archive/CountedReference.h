#ifndef TESSARON_EXCHANGE_ARCHIVE_COUNTEDREFERENCE_H
#define TESSARON_EXCHANGE_ARCHIVE_COUNTEDREFERENCE_H

// Stability: internal.

#include <boost/shared_ptr.hpp>

namespace exchange::archive
{

// Class version 0 of shared pointers, that of the library's version 3, stored what such a pointer consisted of then:
// the plain pointer ("px"), and a counter of owners ("pn") with the object that does the counting ("pi"), which holds
// the plain pointer once more ("ptr"). The number of owners was not stored.

/// The counter of owners. It had one class for all pointers.
struct OwnerCounter
{
};

/// The object behind the counter, which all owners of one T shared.
template <class T>
struct CountedReference
{
    boost::shared_ptr<T> pointer;
};

} // namespace exchange::archive

#endif
