#ifndef EXCHANGE_ARCHIVE_FLATITEMS_H
#define EXCHANGE_ARCHIVE_FLATITEMS_H

#include "exchange/archive/TypeList.h"
#include <tessaron/exchange/geom/PointNd.h>
#include <tessaron/exchange/mesh/TriMeshFacets.h>

#include <boost/mpl/bool.hpp>
#include <boost/serialization/nvp.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace exchange::archive
{

/// Whether a record is one fixed array of numbers and nothing else. Such records come by the million.
template <class T>
inline constexpr bool isFlat = isOneOf<T, TypeList<geom::PointNd<3>, topo::mesh::TriMeshFacet>>;

/// What a flat record takes in a binary archive with counts of 8 bytes.
template <class T>
inline constexpr std::size_t flatSize = sizeof(std::uint64_t) + sizeof(T);

/// Reads flat records from bytes that are at hand: a local object with nothing but its cursor, which thus stays in a
/// register from one record to the next. It stops at an array that does not have its full count, without reading it.
class FlatItems
{
public:
    typedef boost::mpl::false_ is_saving;
    typedef boost::mpl::true_ is_loading;

    explicit FlatItems(const char* cursor) : m_cursor(cursor) {}

    template <class T, std::size_t N>
    FlatItems& operator&(const boost::serialization::nvp<T[N]>& pair)
    {
        const std::uint64_t full = N;
        m_isFull = std::memcmp(m_cursor, &full, sizeof full) == 0;
        if (m_isFull) [[likely]]
        {
            std::memcpy(pair.value(), m_cursor + sizeof full, sizeof(T[N]));
            m_cursor += sizeof full + sizeof(T[N]);
        }
        return *this;
    }

    bool isFull() const { return m_isFull; }
    const char* cursor() const { return m_cursor; }

private:
    const char* m_cursor;
    bool m_isFull = true;
};

} // namespace exchange::archive

#endif
