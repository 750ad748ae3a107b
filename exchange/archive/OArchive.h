#ifndef EXCHANGE_ARCHIVE_OARCHIVE_H
#define EXCHANGE_ARCHIVE_OARCHIVE_H

#include "exchange/archive/BinaryFormat.h"
#include "exchange/archive/ClassTable.h"
#include "exchange/archive/Failure.h"
#include "exchange/archive/PointerClasses.h"

#include <boost/mpl/bool.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/serialization.hpp>
#include <boost/serialization/version.hpp>
#include <boost/shared_ptr.hpp>

#include <deque>
#include <map>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <utility>
#include <vector>

namespace exchange::archive
{

/// Writes records as archives of library version 10. The records' serialize() routines drive it; the form of the
/// elements and values is the Writer's (XmlWriter or BinaryWriter). It keeps what spans a whole archive: the ids of
/// classes, in the order in which they occur, and of objects held by pointer.
///
/// It is an archive of its own, with static dispatch, instead of one built on the library's: no type look-up and no
/// virtual call is left between a record and its text.
template <class Writer>
class OArchive
{
public:
    typedef boost::mpl::true_ is_saving;
    typedef boost::mpl::false_ is_loading;

    explicit OArchive(std::ostream& stream) : m_writer(stream), m_classes(classSlotCount()) {}

    template <class T>
    [[gnu::always_inline]] OArchive& operator<<(const boost::serialization::nvp<T>& pair)
    {
        save(pair.name(), pair.const_value());
        return *this;
    }
    template <class T>
    [[gnu::always_inline]] OArchive& operator&(const boost::serialization::nvp<T>& pair)
    {
        return *this << pair;
    }

    /// Ends the archive. Without this call it is incomplete.
    void finish() { m_writer.finish(); }

private:
    struct Class
    {
        int id = nullClassId;
        bool described = false;
    };

    template <class T>
    [[gnu::always_inline]] void save(const char* name, const T& value)
    {
        if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>)
            m_writer.value(name, value);
        else if constexpr (std::is_array_v<T>)
            saveArray(name, value);
        else
        {
            if (m_classes[ClassSlot<T>::value].described) [[likely]]
            {
                if constexpr (isHeldByPointer<T>)
                    openTracked<T>(name);
                else
                    m_writer.openElement(name);
            }
            else
                openDescribed<T>(name);
            saveContent(value);
            m_writer.close(name);
        }
    }

    template <class T>
    Class& registered()
    {
        Class& entry = m_classes[ClassSlot<T>::value];
        if (entry.id == nullClassId)
            entry.id = m_nextClassId++;
        return entry;
    }

    template <class T>
    [[gnu::noinline]] void openDescribed(const char* name)
    {
        Class& entry = registered<T>();
        m_writer.openHead(name);
        if constexpr (isDescribed<T>)
            m_writer.classInfo(entry.id, isHeldByPointer<T>, boost::serialization::version<T>::value);
        entry.described = true;
        if (isHeldByPointer<T>)
            m_writer.newObject(m_nextObjectId++);
        m_writer.closeHead();
    }
    template <class T>
    void openTracked(const char* name)
    {
        m_writer.openHead(name);
        m_writer.newObject(m_nextObjectId++);
        m_writer.closeHead();
    }

    template <class T, std::size_t N>
    [[gnu::always_inline]] void saveArray(const char* name, const T (&array)[N])
    {
        m_writer.openElement(name);
        if constexpr (Writer::blocks && std::is_arithmetic_v<T>)
            m_writer.numbers(array);
        else
        {
            m_writer.count(N);
            saveItems(array);
        }
        m_writer.close(name);
    }
    template <class Items>
    void saveItems(const Items& items)
    {
        using Item = std::remove_cv_t<std::remove_reference_t<decltype(*std::begin(items))>>;
        if constexpr (Writer::blocks && std::is_arithmetic_v<Item>)
            m_writer.block(std::data(items), std::size(items) * sizeof(Item));
        else
            for (const Item& item : items)
                save("item", item);
    }

    template <class T>
    void saveContent(const T& value)
    {
        const auto version = static_cast<unsigned>(boost::serialization::version<T>::value);
        boost::serialization::serialize_adl(*this, const_cast<T&>(value), version);
    }
    template <class Container>
    void saveSequence(const Container& items)
    {
        using Item = typename Container::value_type;
        m_writer.count(items.size());
        if constexpr (!(Writer::blocks && std::is_arithmetic_v<Item>))
            m_writer.itemVersion(boost::serialization::version<Item>::value);
        saveItems(items);
    }
    template <class T>
    void saveContent(const std::vector<T>& items)
    {
        saveSequence(items);
    }
    template <class T>
    void saveContent(const std::deque<T>& items)
    {
        saveSequence(items);
    }
    template <class Key, class T, class Less>
    void saveContent(const std::map<Key, T, Less>& items)
    {
        saveSequence(items);
    }
    template <class First, class Second>
    void saveContent(const std::pair<First, Second>& pair)
    {
        save("first", pair.first);
        save("second", pair.second);
    }
    template <class T>
    void saveContent(const boost::shared_ptr<T>& pointer)
    {
        savePointer("px", pointer.get());
    }

    template <class Base>
    void savePointer(const char* name, const Base* pointer)
    {
        // A class that pointers name statically takes its id even when the pointer is null.
        if constexpr (!isReadByName<Base>)
            registered<Base>();
        m_writer.openHead(name);
        if (pointer == nullptr)
        {
            m_writer.nullPointer();
            m_writer.closeHead();
        }
        else
            saveObject(*pointer, PointerClasses<Base>());
        m_writer.close(name);
    }
    template <class Base, class... Classes>
    void saveObject(const Base& object, TypeList<Classes...>)
    {
        if (!(saveObjectAs<Classes>(object) || ...))
            fail(boost::archive::archive_exception::unregistered_class, "derived class not registered or exported");
    }
    template <class T, class Base>
    bool saveObjectAs(const Base& base)
    {
        if constexpr (std::is_polymorphic_v<Base>)
            if (typeid(base) != typeid(T))
                return false;
        const T* object = nullptr;
        if constexpr (std::is_same_v<T, Base>)
            object = &base;
        else
            object = &dynamic_cast<const T&>(base);

        Class& entry = registered<T>();
        if (entry.described)
            m_writer.knownClass(entry.id);
        else
            m_writer.newClass(entry.id, classKey<T, Base>(), true, boost::serialization::version<T>::value);
        entry.described = true;

        const auto [known, isNew] = m_objects.try_emplace(object, m_nextObjectId);
        if (!isNew)
        {
            m_writer.knownObject(known->second);
            m_writer.closeHead();
            return true;
        }
        m_writer.newObject(m_nextObjectId++);
        m_writer.closeHead();
        saveContent(*object);
        return true;
    }

    Writer m_writer;
    std::vector<Class> m_classes;
    int m_nextClassId = 0;
    std::unordered_map<const void*, unsigned> m_objects;
    unsigned m_nextObjectId = 0;
};

} // namespace exchange::archive

#endif
