#ifndef TESSARON_UTIL_VARIANTSERIALIZATION_H
#define TESSARON_UTIL_VARIANTSERIALIZATION_H

// Stability: internal.

#include <tessaron/util/ClassVersion.h>

#include <boost/archive/archive_exception.hpp>
#include <boost/mpl/at.hpp>
#include <boost/mpl/size.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/throw_exception.hpp>
#include <boost/variant.hpp>

#include <utility>

namespace util
{

// Tagged unions in an archive: "which" (the zero-based position of the alternative), then "value". Boost's own
// boost/serialization/variant.hpp must not be included beside this: it turns object tracking on for every variant,
// which changes the archive.

/// Writes "which" and "value" of a boost::variant.
template <class Archive, class Variant>
void saveVariant(Archive& archive, const Variant& variant)
{
    const int which = variant.which();
    archive << BOOST_SERIALIZATION_NVP(which);
    boost::apply_visitor([&archive](const auto& value) { archive << BOOST_SERIALIZATION_NVP(value); }, variant);
}

namespace detail
{

template <int Position, class Archive, class Variant>
void loadAlternative(Archive& archive, Variant& variant)
{
    typename boost::mpl::at_c<typename Variant::types, Position>::type value{};
    archive >> BOOST_SERIALIZATION_NVP(value);
    variant = std::move(value);
}

template <class Archive, class Variant, int... Positions>
void loadVariant(Archive& archive, Variant& variant, int which, std::integer_sequence<int, Positions...>)
{
    using Loader = void (*)(Archive&, Variant&);
    static constexpr Loader loaders[] = {&loadAlternative<Positions, Archive, Variant>...};
    loaders[which](archive, variant);
}

} // namespace detail

/// Reads what saveVariant wrote.
/// \throws boost::archive::archive_exception (unsupported_version) when "which" is the position of no alternative.
template <class Archive, class Variant>
void loadVariant(Archive& archive, Variant& variant)
{
    using boost::archive::archive_exception;
    constexpr int alternatives = boost::mpl::size<typename Variant::types>::value;
    int which = -1;
    archive >> BOOST_SERIALIZATION_NVP(which);
    if (which < 0 || which >= alternatives)
        boost::serialization::throw_exception(archive_exception(archive_exception::unsupported_version));
    detail::loadVariant(archive, variant, which, std::make_integer_sequence<int, alternatives>());
}

/// Reads or writes a boost::variant, by the direction of the archive.
template <class Archive, class Variant>
void serializeVariant(Archive& archive, Variant& variant, unsigned int version)
{
    checkClassVersion<Variant>(version, "boost::variant");
    if constexpr (Archive::is_saving::value)
        saveVariant(archive, variant);
    else
        loadVariant(archive, variant);
}

} // namespace util

#endif
