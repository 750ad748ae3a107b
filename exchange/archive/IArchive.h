#ifndef EXCHANGE_ARCHIVE_IARCHIVE_H
#define EXCHANGE_ARCHIVE_IARCHIVE_H

#include "exchange/archive/BinaryFormat.h"
#include "exchange/archive/ByteSource.h"
#include "exchange/archive/ClassTable.h"
#include "exchange/archive/Failure.h"
#include "exchange/archive/FlatItems.h"
#include "exchange/archive/PointerClasses.h"
#include <tessaron/exchange/archive/CountedReference.h>
#include <tessaron/util/ClassVersion.h>

#include <boost/mpl/bool.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/serialization.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>

#include <algorithm>
#include <deque>
#include <iterator>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace exchange::archive
{

/// Reads records from archives of library version 10 and older: the counterpart of OArchive, over an XmlReader or a
/// BinaryReader. The archive may come from anywhere. Everything it says is checked before it is used: class and object
/// ids, versions, counts. Memory grows with what has been read, never with what a count promises.
template <class Reader>
class IArchive
{
public:
    typedef boost::mpl::false_ is_saving;
    typedef boost::mpl::true_ is_loading;

    explicit IArchive(std::istream& stream) : m_reader(stream), m_classes(classSlotCount()) {}

    /// Reads the outermost object and the end of the archive.
    template <class T>
    void readRoot(T& value)
    {
        m_reader.openRoot();
        loadObject(value);
        m_reader.closeRoot();
        m_reader.finish();
    }

    template <class T>
    [[gnu::always_inline]] IArchive& operator>>(const boost::serialization::nvp<T>& pair)
    {
        load(pair.name(), pair.value());
        return *this;
    }
    template <class T>
    [[gnu::always_inline]] IArchive& operator&(const boost::serialization::nvp<T>& pair)
    {
        return *this >> pair;
    }

private:
    struct Class
    {
        int id = nullClassId;
        bool described = false;
        bool tracking = false;
        unsigned version = 0;
    };
    /// An object that later pointers may refer to. Objects that were read by value are here for their ids only: nothing
    /// may point to them.
    struct Object
    {
        std::size_t slot;
        boost::shared_ptr<void> pointer;
    };

    template <class T>
    [[gnu::always_inline]] void load(const char* name, T& value)
    {
        if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>)
            m_reader.value(name, value);
        else if constexpr (std::is_array_v<T>)
            loadArray(name, value);
        else
        {
            m_reader.open(name);
            loadObject(value);
            m_reader.close(name);
        }
    }

    template <class T>
    Class& registered()
    {
        Class& entry = m_classes[ClassSlot<T>::value];
        if (entry.id == nullClassId)
        {
            entry.id = static_cast<int>(m_slotsById.size());
            m_slotsById.push_back(ClassSlot<T>::value);
        }
        return entry;
    }
    template <class T>
    [[gnu::noinline]] void describe()
    {
        Class& entry = registered<T>();
        if constexpr (isDescribed<T>)
            describe(entry);
        entry.described = true;
    }
    void describe(Class& entry)
    {
        if (!entry.described)
            m_reader.classInfo(entry.tracking, entry.version);
        entry.described = true;
    }

    template <class T>
    void loadObject(T& value)
    {
        loadContent(value, describedVersion<T>());
    }
    /// Meets a class's object: reads what the archive says about the class, if this is its first one.
    template <class T>
    unsigned describedVersion()
    {
        const Class& entry = m_classes[ClassSlot<T>::value];
        if (!entry.described) [[unlikely]]
            describe<T>();
        if (entry.tracking) [[unlikely]]
            trackValue(ClassSlot<T>::value);
        return entry.version;
    }
    void trackValue(std::size_t slot)
    {
        if (m_reader.objectId() != m_objects.size())
            fail(boost::archive::archive_exception::pointer_conflict);
        m_objects.push_back({slot, nullptr});
    }

    template <class T, std::size_t N>
    [[gnu::always_inline]] void loadArray(const char* name, T (&array)[N])
    {
        m_reader.open(name);
        if constexpr (Reader::blocks && std::is_arithmetic_v<T>)
            m_reader.numbers(array);
        else
        {
            const std::size_t count = m_reader.count();
            if (count > N)
                fail(boost::archive::archive_exception::array_size_too_short);
            for (std::size_t i = 0; i < count; ++i)
                load("item", array[i]);
        }
        m_reader.close(name);
    }

    template <class T>
    void loadContent(T& value, unsigned version)
    {
        boost::serialization::serialize_adl(*this, value, version);
    }

    template <class T>
    void loadContent(std::vector<T>& items, unsigned version)
    {
        util::checkClassVersion<std::vector<T>>(version, "std::vector");
        const std::size_t count = m_reader.count();
        items.clear();
        if constexpr (Reader::blocks && std::is_arithmetic_v<T>)
        {
            if (m_reader.blocksHaveItemVersion())
                m_reader.itemVersion();
            loadBlock(items, count);
        }
        else
        {
            m_reader.itemVersion();
            items.reserve(reservable<T>(count));
            for (std::size_t i = 0; i < count; ++i)
                load("item", items.emplace_back());
        }
    }
    /// How many items to make room for in advance: never more memory than there are bytes to come.
    template <class T>
    std::size_t reservable(std::size_t count) const
    {
        const std::uint64_t remaining = m_reader.remaining();
        return remaining == ByteSource::unknown ? 0 : std::min<std::size_t>(count, remaining / sizeof(T));
    }
    template <class T>
    void loadBlock(std::vector<T>& items, std::size_t count)
    {
        static constexpr std::size_t smallStep = std::size_t{64} * 1024;
        if (count > m_reader.remaining() / sizeof(T))
            failInput();
        items.reserve(reservable<T>(count));
        while (items.size() < count)
        {
            const std::size_t start = items.size();
            const std::size_t step = std::min(count - start, smallStep);
            items.resize(start + step);
            m_reader.block(items.data() + start, step * sizeof(T));
        }
    }
    template <class T>
    void loadContent(std::deque<T>& items, unsigned version)
    {
        util::checkClassVersion<std::deque<T>>(version, "std::deque");
        const std::size_t count = m_reader.count();
        m_reader.itemVersion();
        items.clear();
        while (items.size() < count)
        {
            // By the step, which is cheaper than one by one, and little enough to be made for nothing.
            static constexpr std::size_t step = 1024;
            const std::size_t start = items.size();
            items.resize(start + std::min(count - start, step));
            loadItems(items.begin() + static_cast<std::ptrdiff_t>(start), items.end());
        }
    }
    template <class Iterator>
    void loadItems(Iterator item, Iterator end)
    {
        using T = typename std::iterator_traits<Iterator>::value_type;
        load("item", *item);
        const Class entry = m_classes[ClassSlot<T>::value];
        // What the first one told about its class holds for all.
        if (entry.tracking)
            while (++item != end)
                load("item", *item);
        else
            while (++item != end)
            {
                if constexpr (Reader::blocks && isFlat<T>)
                    if (loadFlat(item, end, entry.version))
                        return;
                m_reader.open("item");
                loadContent(*item, entry.version);
                m_reader.close("item");
            }
    }
    /// Reads the items that are at hand, up to one that has to be looked at more closely; whether that was all of them.
    template <class Iterator>
    bool loadFlat(Iterator& item, Iterator end, unsigned version)
    {
        using T = typename std::iterator_traits<Iterator>::value_type;
        std::size_t left = m_reader.flatCount(flatSize<T>);
        FlatItems archive(m_reader.cursor());
        for (; item != end && left != 0; ++item, --left)
        {
            boost::serialization::serialize_adl(archive, *item, version);
            if (!archive.isFull())
                break;
        }
        m_reader.advanceTo(archive.cursor());
        return item == end;
    }
    template <class Key, class T, class Less>
    void loadContent(std::map<Key, T, Less>& items, unsigned version)
    {
        using Items = std::map<Key, T, Less>;
        util::checkClassVersion<Items>(version, "std::map");
        const std::size_t count = m_reader.count();
        m_reader.itemVersion();
        items.clear();
        for (std::size_t i = 0; i < count; ++i)
        {
            std::pair<Key, T> item;
            m_reader.open("item");
            // Stored as the class of the map's own pairs, whose keys are constant.
            loadContent(item, describedVersion<typename Items::value_type>());
            m_reader.close("item");
            items.insert(items.end(), std::move(item));
        }
    }
    template <class First, class Second>
    void loadContent(std::pair<First, Second>& pair, unsigned version)
    {
        util::checkClassVersion<std::pair<First, Second>>(version, "std::pair");
        load("first", pair.first);
        load("second", pair.second);
    }

    template <class T>
    void loadContent(boost::shared_ptr<T>& pointer, unsigned version)
    {
        util::checkClassVersion<boost::shared_ptr<T>>(version, "boost::shared_ptr");
        if (version == 0)
            loadCounted(pointer);
        else
            loadPointer("px", pointer);
    }
    /// Class version 0; see CountedReference.h.
    template <class T>
    void loadCounted(boost::shared_ptr<T>& pointer)
    {
        // Writers gave it its id here, before they met the class of the object.
        registered<CountedReference<T>>();
        loadPointer("px", pointer);
        boost::shared_ptr<CountedReference<T>> counted;
        m_reader.open("pn");
        util::checkClassVersion<OwnerCounter>(describedVersion<OwnerCounter>(), "boost::detail::shared_count");
        loadPointer("pi", counted);
        m_reader.close("pn");
        if (pointer != (counted ? counted->pointer : nullptr))
            fail(boost::archive::archive_exception::pointer_conflict);
    }
    template <class T>
    void loadContent(CountedReference<T>& reference, unsigned version)
    {
        util::checkClassVersion<CountedReference<T>>(version, "boost::detail::sp_counted_base_impl");
        loadPointer("ptr", reference.pointer);
    }

    template <class Base>
    void loadPointer(const char* name, boost::shared_ptr<Base>& pointer)
    {
        // A class that pointers name statically takes its id even when the pointer is null.
        if constexpr (!isReadByName<Base>)
            registered<Base>();
        m_reader.open(name);
        const int id = m_reader.classId();
        if (id == nullClassId)
            pointer.reset();
        else
            loadPointedTo(slotOf<Base>(id), pointer, PointerClasses<Base>());
        m_reader.close(name);
    }
    template <class Base>
    std::size_t slotOf(int id)
    {
        using boost::archive::archive_exception;
        if constexpr (isReadByName<Base>)
            if (id == static_cast<int>(m_slotsById.size()))
                registerByName(m_reader.className(), PointerClasses<Base>());
        if (id < 0 || id >= static_cast<int>(m_slotsById.size()))
            fail(archive_exception::unregistered_class);
        return m_slotsById[static_cast<std::size_t>(id)];
    }
    template <class... Classes>
    void registerByName(std::string_view name, TypeList<Classes...>)
    {
        if (!(registerIfNamed<Classes>(name) || ...))
            fail(boost::archive::archive_exception::unregistered_class, std::string(name).c_str());
    }
    template <class T>
    bool registerIfNamed(std::string_view name)
    {
        // A class that has its id already must not get another one.
        if (name != boost::serialization::guid<T>() || m_classes[ClassSlot<T>::value].id != nullClassId)
            return false;
        registered<T>();
        return true;
    }

    template <class Base, class... Classes>
    void loadPointedTo(std::size_t slot, boost::shared_ptr<Base>& pointer, TypeList<Classes...>)
    {
        if (!(loadPointedToAs<Classes>(slot, pointer) || ...))
            fail(boost::archive::archive_exception::unregistered_class);
    }
    template <class T, class Base>
    bool loadPointedToAs(std::size_t slot, boost::shared_ptr<Base>& pointer)
    {
        if (slot != ClassSlot<T>::value)
            return false;
        Class& entry = m_classes[slot];
        describe(entry);
        if (!entry.tracking)
        {
            const auto object = boost::make_shared<T>();
            loadContent(*object, entry.version);
            pointer = object;
            return true;
        }
        const unsigned id = m_reader.objectId();
        if (id < m_objects.size())
        {
            const Object& known = m_objects[id];
            if (known.slot != slot || !known.pointer)
                fail(boost::archive::archive_exception::pointer_conflict);
            pointer = boost::static_pointer_cast<Base>(known.pointer);
            return true;
        }
        if (id != m_objects.size())
            fail(boost::archive::archive_exception::pointer_conflict);
        const auto object = boost::make_shared<T>();
        pointer = object;
        m_objects.push_back({slot, pointer});
        loadContent(*object, entry.version);
        return true;
    }

    Reader m_reader;
    std::vector<Class> m_classes;
    std::vector<std::size_t> m_slotsById;
    std::vector<Object> m_objects;
};

} // namespace exchange::archive

#endif
