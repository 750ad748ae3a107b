#ifndef TESSARON_UTIL_PARAMETERIZEDSERIALIZATION_H
#define TESSARON_UTIL_PARAMETERIZEDSERIALIZATION_H

// Stability: stable.

#include <tessaron/util/ClassVersion.h>
#include <tessaron/util/Parameterized.h>
#include <tessaron/util/VariantSerialization.h>

#include <boost/serialization/map.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/string.hpp>

#include <utility>

namespace boost
{
namespace serialization
{

/// A parameter value: "which" is 0 for an integer, 1 for a double, 2 for a text.
template <class Archive>
void serialize(Archive& archive, util::Parameterized::Value& value, unsigned int version)
{
    util::serializeVariant(archive, value, version);
}

} // namespace serialization
} // namespace boost

namespace util
{

template <class Archive>
void Parameterized::serialize(Archive& archive, unsigned int version)
{
    checkClassVersion<Parameterized>(version, "util::Parameterized");
    if constexpr (Archive::is_saving::value)
    {
        archive << boost::serialization::make_nvp("params", params());
    }
    else
    {
        Params read;
        archive >> boost::serialization::make_nvp("params", read);
        replaceParams(std::move(read));
    }
}

} // namespace util

#endif
