#ifndef EXCHANGE_ARCHIVE_TYPELIST_H
#define EXCHANGE_ARCHIVE_TYPELIST_H

#include <type_traits>

namespace exchange::archive
{

template <class... Classes>
struct TypeList
{
};

template <class T, class List>
inline constexpr bool isOneOf = false;
template <class T, class... Classes>
inline constexpr bool isOneOf<T, TypeList<Classes...>> = (std::is_same_v<T, Classes> || ...);

} // namespace exchange::archive

#endif
