#ifndef TESSARON_UTIL_CLASSVERSION_H
#define TESSARON_UTIL_CLASSVERSION_H

// Stability: internal.

#include <boost/archive/archive_exception.hpp>
#include <boost/serialization/throw_exception.hpp>
#include <boost/serialization/version.hpp>

namespace util
{

/// Refuses a class version that is newer than the current one of T (its BOOST_CLASS_VERSION, 0 without one).
/// `name` is the class's published name.
/// \throws boost::archive::archive_exception (unsupported_class_version), with the text "class version <name>".
template <class T>
void checkClassVersion(unsigned int version, const char* name)
{
    using boost::archive::archive_exception;
    if (version > static_cast<unsigned int>(boost::serialization::version<T>::value))
        boost::serialization::throw_exception(archive_exception(archive_exception::unsupported_class_version, name));
}

} // namespace util

#endif
