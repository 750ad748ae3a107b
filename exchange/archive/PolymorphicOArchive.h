#ifndef EXCHANGE_ARCHIVE_POLYMORPHICOARCHIVE_H
#define EXCHANGE_ARCHIVE_POLYMORPHICOARCHIVE_H

#include "exchange/archive/BinaryFormat.h"
#include "exchange/archive/Failure.h"
#include "exchange/archive/Nesting.h"

#include <boost/archive/detail/basic_oarchive.hpp>
#include <boost/archive/detail/basic_oserializer.hpp>
#include <boost/archive/detail/basic_pointer_oserializer.hpp>
#include <boost/archive/polymorphic_oarchive.hpp>
#include <boost/serialization/extended_type_info.hpp>
#include <boost/serialization/state_saver.hpp>

#include <map>
#include <string>
#include <utility>

namespace exchange::archive
{

/// Compares the library's serializer objects by the class they stand for; a program may have several for one class.
struct BySerializedClass
{
    bool operator()(const boost::archive::detail::basic_serializer* a,
                    const boost::archive::detail::basic_serializer* b) const
    {
        return *a < *b;
    }
};

/// A polymorphic archive of the library, over a Writer of ours: it decides about class and object ids as OArchive does,
/// but knows classes only through the library's serializer objects. Those expect a basic_oarchive, whose own machinery
/// lies idle here.
template <class Writer>
class PolymorphicOArchive final : public boost::archive::polymorphic_oarchive,
                                  public boost::archive::detail::basic_oarchive
{
public:
    explicit PolymorphicOArchive(std::ostream& stream) : m_writer(stream) {}

    void finish() { m_writer.finish(); }

private:
    using BasicSerializer = boost::archive::detail::basic_oserializer;
    using BasicPointerSerializer = boost::archive::detail::basic_pointer_oserializer;
    using Error = boost::archive::archive_exception;

    struct Class
    {
        int id;
        bool described = false;
    };

    // Values. The records of these archives hold no others than those that are written.
    void save(const bool t) override { saveValue(t); }
    void save(const int t) override { saveValue(t); }
    void save(const unsigned int t) override { saveValue(t); }
    void save(const unsigned long t) override { saveValue(t); }
    void save(const double t) override { saveValue(t); }
    void save(const std::string& t) override { saveValue(t); }
    void save(const char) override { refuse(); }
    void save(const signed char) override { refuse(); }
    void save(const unsigned char) override { refuse(); }
    void save(const wchar_t) override { refuse(); }
    void save(const short) override { refuse(); }
    void save(const unsigned short) override { refuse(); }
    void save(const long) override { refuse(); }
    void save(const boost::long_long_type) override { refuse(); }
    void save(const boost::ulong_long_type) override { refuse(); }
    void save(const float) override { refuse(); }
    void save(const std::wstring&) override { refuse(); }
    void save_binary(const void*, std::size_t) override { refuse(); }
    [[noreturn]] static void refuse() { fail(Error::other_exception, "no value of an exchange record"); }
    template <class T>
    void saveValue(const T& value)
    {
        end_preamble();
        m_writer.content(value);
    }

    // Elements
    void save_start(const char* name) override
    {
        if (name == nullptr)
            return;
        end_preamble();
        if (++m_depth > deepestNesting)
            fail(Error::output_stream_error, "nested too deeply");
        m_writer.openHead(name);
        m_headOpen = true;
    }
    void save_end(const char* name) override
    {
        if (name == nullptr)
            return;
        end_preamble();
        --m_depth;
        m_writer.close(name);
    }
    void end_preamble() override
    {
        if (m_headOpen)
            m_writer.closeHead();
        m_headOpen = false;
    }

    // Objects
    void register_basic_serializer(const BasicSerializer& serializer) override { registered(serializer); }
    Class& registered(const BasicSerializer& serializer)
    {
        const int nextId = static_cast<int>(m_classes.size());
        return m_classes.try_emplace(&serializer, Class{nextId}).first->second;
    }
    void save_null_pointer() override { m_writer.nullPointer(); }
    void save_object(const void* object, const BasicSerializer& serializer) override
    {
        if (object != m_pointee || &serializer != m_pointeeSerializer)
        {
            Class& entry = registered(serializer);
            if (serializer.class_info() && !entry.described)
                m_writer.classInfo(entry.id, serializer.tracking(0), serializer.version());
            entry.described = true;
            if (serializer.tracking(0))
            {
                if (!m_objects.try_emplace({object, entry.id}, m_nextObjectId).second)
                    fail(Error::pointer_conflict);
                m_writer.newObject(m_nextObjectId++);
            }
        }
        end_preamble();
        serializer.save_object_data(*this, object);
    }
    void save_pointer(const void* object, const BasicPointerSerializer* pointerSerializer) override
    {
        const BasicSerializer& serializer = pointerSerializer->get_basic_serializer();
        const std::size_t knownClasses = m_classes.size();
        Class& entry = registered(serializer);
        const bool isNewClass = m_classes.size() != knownClasses;
        if (entry.described)
            m_writer.knownClass(entry.id);
        else
            m_writer.newClass(entry.id, isNewClass ? keyOf(serializer) : nullptr, serializer.tracking(0),
                              serializer.version());
        entry.described = true;
        if (serializer.tracking(0))
        {
            const auto [known, isNewObject] = m_objects.try_emplace({object, entry.id}, m_nextObjectId);
            if (!isNewObject)
            {
                m_writer.knownObject(known->second);
                return end_preamble();
            }
            m_writer.newObject(m_nextObjectId++);
        }
        end_preamble();
        const boost::serialization::state_saver<const void*> keepObject(m_pointee);
        const boost::serialization::state_saver<const BasicSerializer*> keepSerializer(m_pointeeSerializer);
        m_pointee = object;
        m_pointeeSerializer = &serializer;
        pointerSerializer->save_object_ptr(*this, object);
    }
    static const char* keyOf(const BasicSerializer& serializer)
    {
        if (!serializer.is_polymorphic())
            return nullptr;
        const char* const key = serializer.get_eti().get_key();
        if (key == nullptr)
            fail(Error::unregistered_class, "derived class not registered or exported");
        return key;
    }

    boost::archive::detail::helper_collection& get_helper_collection() override
    {
        return basic_oarchive::get_helper_collection();
    }
    unsigned int get_flags() const override { return 0; }
    boost::serialization::library_version_type get_library_version() const override
    {
        return boost::serialization::library_version_type(libraryVersion);
    }

    // What basic_oarchive would write with. The serializer objects call it directly for null pointers only.
    void vsave(const boost::archive::class_id_type) override { m_writer.nullPointer(); }
    void vsave(const boost::archive::version_type) override { refuse(); }
    void vsave(const boost::archive::object_id_type) override { refuse(); }
    void vsave(const boost::archive::object_reference_type) override { refuse(); }
    void vsave(const boost::archive::class_id_optional_type) override { refuse(); }
    void vsave(const boost::archive::class_id_reference_type) override { refuse(); }
    void vsave(const boost::archive::class_name_type&) override { refuse(); }
    void vsave(const boost::archive::tracking_type) override { refuse(); }

    Writer m_writer;
    int m_depth = 0;
    bool m_headOpen = false;
    std::map<const BasicSerializer*, Class, BySerializedClass> m_classes;
    std::map<std::pair<const void*, int>, unsigned> m_objects;
    unsigned m_nextObjectId = 0;
    const void* m_pointee = nullptr;
    const BasicSerializer* m_pointeeSerializer = nullptr;
};

} // namespace exchange::archive

#endif
