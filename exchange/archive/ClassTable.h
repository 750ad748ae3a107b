#ifndef EXCHANGE_ARCHIVE_CLASSTABLE_H
#define EXCHANGE_ARCHIVE_CLASSTABLE_H

#include <boost/serialization/deque.hpp>
#include <boost/serialization/level.hpp>
#include <boost/serialization/level_enum.hpp>
#include <boost/serialization/vector.hpp>

#include <cstddef>

namespace exchange::archive
{

/// The next free slot; called while the library is being loaded, once for each class that occurs in archives.
std::size_t takeClassSlot();
/// How many slots were taken.
std::size_t classSlotCount();

/// A class's place in the tables that an archive keeps about classes. (Not its id in an archive, which is the order in
/// which the classes occur there.)
template <class T>
struct ClassSlot
{
    static const std::size_t value;
};

template <class T>
const std::size_t ClassSlot<T>::value = takeClassSlot();

/// Whether archives describe a class (id, tracking, version) where it occurs first. They do not for sequences of
/// numbers, which take an id all the same.
template <class T>
inline constexpr bool isDescribed =
    boost::serialization::implementation_level<T>::value >= boost::serialization::object_class_info;

} // namespace exchange::archive

#endif
