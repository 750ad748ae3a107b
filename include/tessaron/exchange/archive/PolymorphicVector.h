#ifndef TESSARON_EXCHANGE_ARCHIVE_POLYMORPHICVECTOR_H
#define TESSARON_EXCHANGE_ARCHIVE_POLYMORPHICVECTOR_H

// Stability: internal.

#include <boost/archive/polymorphic_iarchive.hpp>
#include <boost/serialization/collection_size_type.hpp>
#include <boost/serialization/item_version_type.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/vector.hpp>

#include <cstddef>
#include <vector>

namespace boost
{
namespace serialization
{

/// Reads a sequence from a polymorphic archive as the library does, but lets memory grow with what arrives, where the
/// library believes the stored count.
template <class T>
void serialize(boost::archive::polymorphic_iarchive& archive, std::vector<T>& items, const unsigned int)
{
    collection_size_type count(0);
    item_version_type item_version(0);
    archive >> BOOST_SERIALIZATION_NVP(count);
    if (library_version_type(3) < archive.get_library_version())
        archive >> BOOST_SERIALIZATION_NVP(item_version);
    items.clear();
    for (std::size_t i = 0; i < count; ++i)
    {
        items.emplace_back();
        archive >> boost::serialization::make_nvp("item", items.back());
    }
}

} // namespace serialization
} // namespace boost

#endif
