#ifndef TESSARON_EXCHANGE_ARCHIVE_POLYMORPHICPOINTER_H
#define TESSARON_EXCHANGE_ARCHIVE_POLYMORPHICPOINTER_H

// Stability: internal.

#include <tessaron/exchange/archive/CountedReference.h>

#include <boost/archive/polymorphic_iarchive.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/shared_ptr.hpp>

namespace exchange
{
namespace archive
{

/// Reads a plain pointer and makes the shared pointer one of its owners.
template <class T>
void loadOwned(boost::archive::polymorphic_iarchive& archive, const char* name, boost::shared_ptr<T>& pointer)
{
    using boost::serialization::shared_ptr_helper;
    T* object = nullptr;
    archive >> boost::serialization::make_nvp(name, object);
    archive.template get_helper<shared_ptr_helper<boost::shared_ptr>>(boost::serialization::shared_ptr_helper_id)
        .reset(pointer, object);
}

/// The counter of owners behind a pointer at class version 0. Its class is the same for all pointers; what it reads
/// depends on the pointer.
struct OwnerCounterLoader
{
    void (*load)(boost::archive::polymorphic_iarchive& archive, void* counted);
    void* counted;
};

template <class T>
void loadCounted(boost::archive::polymorphic_iarchive& archive, void* counted)
{
    loadOwned(archive, "pi", *static_cast<boost::shared_ptr<CountedReference<T>>*>(counted));
}

} // namespace archive
} // namespace exchange

namespace boost
{
namespace serialization
{

inline void serialize(boost::archive::polymorphic_iarchive& archive, exchange::archive::OwnerCounterLoader& loader,
                      const unsigned int)
{
    loader.load(archive, loader.counted);
}

template <class T>
void serialize(boost::archive::polymorphic_iarchive& archive, exchange::archive::CountedReference<T>& reference,
               const unsigned int)
{
    exchange::archive::loadOwned(archive, "ptr", reference.pointer);
}

/// Reads a shared pointer as the library does, but what class version 0 holds without believing it.
template <class T>
void serialize(boost::archive::polymorphic_iarchive& archive, boost::shared_ptr<T>& pointer, const unsigned int version)
{
    using exchange::archive::CountedReference;
    if (version >= 1)
        return exchange::archive::loadOwned(archive, "px", pointer);

    archive.register_type(static_cast<CountedReference<T>*>(nullptr));
    exchange::archive::loadOwned(archive, "px", pointer);
    boost::shared_ptr<CountedReference<T>> counted;
    exchange::archive::OwnerCounterLoader loader{&exchange::archive::loadCounted<T>, &counted};
    archive >> make_nvp("pn", loader);
    if (pointer != (counted ? counted->pointer : nullptr))
        boost::serialization::throw_exception(
            boost::archive::archive_exception(boost::archive::archive_exception::pointer_conflict));
}

} // namespace serialization
} // namespace boost

#endif
