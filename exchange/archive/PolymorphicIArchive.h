#ifndef EXCHANGE_ARCHIVE_POLYMORPHICIARCHIVE_H
#define EXCHANGE_ARCHIVE_POLYMORPHICIARCHIVE_H

#include "exchange/archive/BinaryFormat.h"
#include "exchange/archive/Failure.h"
#include "exchange/archive/Nesting.h"

#include <boost/archive/detail/basic_iarchive.hpp>
#include <boost/archive/detail/basic_iserializer.hpp>
#include <boost/archive/detail/basic_pointer_iserializer.hpp>
#include <boost/archive/polymorphic_iarchive.hpp>
#include <boost/core/demangle.hpp>
#include <boost/serialization/extended_type_info.hpp>
#include <boost/serialization/state_saver.hpp>

#include <string>
#include <vector>

namespace exchange::archive
{

/// A polymorphic archive of the library, over a Reader of ours: the counterpart of PolymorphicOArchive, with the checks
/// of IArchive. The library's serializer objects expect a basic_iarchive, whose own machinery lies idle here.
template <class Reader>
class PolymorphicIArchive final : public boost::archive::polymorphic_iarchive,
                                  public boost::archive::detail::basic_iarchive
{
public:
    explicit PolymorphicIArchive(std::istream& stream) : basic_iarchive(0), m_reader(stream) {}
    ~PolymorphicIArchive() override
    {
        if (m_unowned.object != nullptr)
            m_unowned.serializer->destroy(m_unowned.object);
    }

    void finish()
    {
        m_unowned = {};
        m_reader.finish();
    }

private:
    using BasicSerializer = boost::archive::detail::basic_iserializer;
    using BasicPointerSerializer = boost::archive::detail::basic_pointer_iserializer;
    using Error = boost::archive::archive_exception;

    struct Class
    {
        const BasicSerializer* serializer;
        const BasicPointerSerializer* pointerSerializer = nullptr;
        bool described = false;
        bool tracking = false;
        unsigned version = 0;
    };
    struct Object
    {
        std::size_t classId;
        void* pointer;
    };
    /// The object that a pointer was just read to. Its owner-to-be takes it after the end of the pointer's element;
    /// when that fails, nobody does.
    struct Unowned
    {
        void* object = nullptr;
        const BasicSerializer* serializer = nullptr;
        bool isPastElement = false;
    };

    // Values. The records of these archives hold no others than those that are read.
    void load(bool& t) override { loadValue(t); }
    void load(int& t) override { loadValue(t); }
    void load(unsigned int& t) override { loadValue(t); }
    void load(unsigned long& t) override { loadValue(t); }
    void load(double& t) override { loadValue(t); }
    void load(std::string& t) override { loadValue(t); }
    void load(char&) override { refuse(); }
    void load(signed char&) override { refuse(); }
    void load(unsigned char&) override { refuse(); }
    void load(wchar_t&) override { refuse(); }
    void load(short&) override { refuse(); }
    void load(unsigned short&) override { refuse(); }
    void load(long&) override { refuse(); }
    void load(boost::long_long_type&) override { refuse(); }
    void load(boost::ulong_long_type&) override { refuse(); }
    void load(float&) override { refuse(); }
    void load(std::wstring&) override { refuse(); }
    void load_binary(void*, std::size_t) override { refuse(); }
    [[noreturn]] static void refuse() { fail(Error::other_exception, "no value of an exchange record"); }
    template <class T>
    void loadValue(T& value)
    {
        m_unowned = {};
        m_reader.content(value);
    }

    // Elements
    void load_start(const char* name) override
    {
        if (name == nullptr)
            return;
        m_unowned = {};
        if (++m_depth > deepestNesting)
            failInput();
        if (m_depth == 1)
            m_reader.openRoot();
        else
            m_reader.open(name);
    }
    void load_end(const char* name) override
    {
        if (name == nullptr)
            return;
        if (m_unowned.isPastElement)
            m_unowned = {};
        m_unowned.isPastElement = true;
        if (--m_depth == 0)
            m_reader.closeRoot();
        else
            m_reader.close(name);
    }

    // Classes
    void register_basic_serializer(const BasicSerializer& serializer) override { registered(serializer); }
    std::size_t find(const BasicSerializer& serializer) const
    {
        std::size_t id = 0;
        while (id < m_classes.size() && !isSame(*m_classes[id].serializer, serializer))
            ++id;
        return id;
    }
    static bool isSame(const BasicSerializer& a, const BasicSerializer& b)
    {
        return &a == &b || (!(a < b) && !(b < a));
    }
    std::size_t registered(const BasicSerializer& serializer)
    {
        const std::size_t id = find(serializer);
        if (id == m_classes.size())
            m_classes.push_back({&serializer});
        return id;
    }
    void describe(Class& entry)
    {
        if (entry.described)
            return;
        if (entry.serializer->class_info())
            m_reader.classInfo(entry.tracking, entry.version);
        if (entry.version > entry.serializer->version())
            fail(Error::unsupported_class_version, boost::core::demangle(entry.serializer->get_debug_info()).c_str());
        entry.described = true;
    }

    // Objects
    void load_object(void* object, const BasicSerializer& serializer) override
    {
        m_unowned = {};
        if (object == m_pointee && &serializer == m_pointeeSerializer)
        {
            m_pointeeConstructed = true;
            return serializer.load_object_data(*this, object, m_pointeeVersion);
        }
        const std::size_t id = registered(serializer);
        describe(m_classes[id]);
        if (m_classes[id].tracking)
        {
            if (m_reader.objectId() != m_objects.size())
                fail(Error::pointer_conflict);
            m_objects.push_back({id, nullptr});
        }
        serializer.load_object_data(*this, object, m_classes[id].version);
    }
    const BasicPointerSerializer*
    load_pointer(void*& pointer, const BasicPointerSerializer* staticSerializer,
                 const BasicPointerSerializer* (*finder)(const boost::serialization::extended_type_info&)) override
    {
        m_unowned = {};
        pointer = nullptr;
        const int id = m_reader.classId();
        if (id == nullClassId)
            return staticSerializer;
        if (id == static_cast<int>(m_classes.size()))
            registerByName(finder);
        if (id < 0 || id >= static_cast<int>(m_classes.size()))
            fail(Error::unregistered_class);
        Class& entry = m_classes[static_cast<std::size_t>(id)];
        if (entry.pointerSerializer == nullptr)
            entry.pointerSerializer = entry.serializer->get_bpis_ptr();
        const BasicPointerSerializer* const serializer = entry.pointerSerializer;
        if (serializer == nullptr)
            fail(Error::unregistered_class);
        describe(entry);
        loadPointee(pointer, static_cast<std::size_t>(id), *serializer);
        return serializer;
    }
    void registerByName(const BasicPointerSerializer* (*finder)(const boost::serialization::extended_type_info&))
    {
        const std::string name(m_reader.className());
        const auto* const type = boost::serialization::extended_type_info::find(name.c_str());
        const BasicPointerSerializer* const serializer = type == nullptr ? nullptr : finder(*type);
        // A class that has its id already must not get another one.
        if (serializer == nullptr || find(serializer->get_basic_serializer()) != m_classes.size())
            fail(Error::unregistered_class, name.c_str());
        m_classes.push_back({&serializer->get_basic_serializer(), serializer});
    }
    void loadPointee(void*& pointer, std::size_t classId, const BasicPointerSerializer& serializer)
    {
        const bool tracking = m_classes[classId].tracking;
        const std::size_t objectId = tracking ? m_reader.objectId() : m_objects.size();
        if (objectId < m_objects.size())
        {
            const Object& known = m_objects[objectId];
            if (known.classId != classId || known.pointer == nullptr)
                fail(Error::pointer_conflict);
            pointer = known.pointer;
            return;
        }
        if (objectId != m_objects.size())
            fail(Error::pointer_conflict);

        using boost::serialization::state_saver;
        const state_saver<void*> keepPointee(m_pointee);
        const state_saver<const BasicSerializer*> keepSerializer(m_pointeeSerializer);
        const state_saver<unsigned> keepVersion(m_pointeeVersion);
        const state_saver<bool> keepConstructed(m_pointeeConstructed);
        const state_saver<int> keepDepth(m_pointerDepth);
        // The library compares an object's class with the pointer's only when the object is read, so that the input
        // could nest them without end.
        if (++m_pointerDepth > deepestNesting)
            failInput();
        void* const object = serializer.heap_allocation();
        m_pointee = object;
        m_pointeeSerializer = &serializer.get_basic_serializer();
        m_pointeeVersion = m_classes[classId].version;
        m_pointeeConstructed = false;
        try
        {
            if (tracking)
                m_objects.push_back({classId, object});
            serializer.load_object_ptr(*this, object, m_pointeeVersion);
        }
        catch (...)
        {
            if (m_pointeeConstructed)
                serializer.get_basic_serializer().destroy(object);
            throw;
        }
        pointer = object;
        m_unowned = {object, &serializer.get_basic_serializer(), false};
    }

    boost::archive::detail::helper_collection& get_helper_collection() override
    {
        return basic_iarchive::get_helper_collection();
    }
    unsigned int get_flags() const override { return 0; }
    void set_library_version(boost::serialization::library_version_type) override { refuse(); }
    boost::serialization::library_version_type get_library_version() const override
    {
        return boost::serialization::library_version_type(m_reader.version());
    }
    // Nothing here remembers the address of an object that may still move, and what was created has its owner.
    void reset_object_address(const void*, const void*) override {}
    void delete_created_pointers() override {}

    // What basic_iarchive would read with.
    void vload(boost::archive::version_type&) override { refuse(); }
    void vload(boost::archive::object_id_type&) override { refuse(); }
    void vload(boost::archive::class_id_type&) override { refuse(); }
    void vload(boost::archive::class_id_optional_type&) override { refuse(); }
    void vload(boost::archive::class_name_type&) override { refuse(); }
    void vload(boost::archive::tracking_type&) override { refuse(); }

    Reader m_reader;
    int m_depth = 0;
    std::vector<Class> m_classes;
    std::vector<Object> m_objects;
    void* m_pointee = nullptr;
    const BasicSerializer* m_pointeeSerializer = nullptr;
    unsigned m_pointeeVersion = 0;
    bool m_pointeeConstructed = false;
    int m_pointerDepth = 0;
    Unowned m_unowned;
};

} // namespace exchange::archive

#endif
