#ifndef TESSARON_UTIL_PARAMETERIZED_H
#define TESSARON_UTIL_PARAMETERIZED_H

// Stability: stable.

#include <tessaron/util/Export.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/variant.hpp>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace util
{

/// A parameter set: a bag of named values that describes a machining operation, a template or the stages of a job.
///
/// Keys are compared byte by byte and kept in ascending byte order; each occurs at most once. The key texts in use are
/// the constants of <tessaron/util/Keys.h>. Instances are not synchronised: share one between threads only
/// under a lock of your own.
///
/// A copy is deep: what is done to one set never shows in another. Copying is cheap nevertheless, as copies keep their
/// values in common until one of them changes; copies may be used and changed in different threads.
class TESSARON_EXCHANGE_API Parameterized
{
public:
    /// A value is exactly one of: a 32-bit signed integer, a double, a text (bytes, UTF-8 by convention).
    typedef boost::variant<int, double, std::string> Value;
    typedef std::map<std::string, Value, std::less<>> Params;

    Parameterized();
    Parameterized(const Parameterized& other);
    Parameterized(Parameterized&& other) noexcept;
    Parameterized& operator=(const Parameterized& other);
    Parameterized& operator=(Parameterized&& other) noexcept;

    virtual ~Parameterized();
    /// Stores a value under a key. A value already there is replaced together with its kind.
    virtual void set(std::string key, const Value& value);
    /// Removes a key; does nothing when it is absent.
    virtual void erase(const std::string& key);

    /// The value under a key, or null when the key is absent. The pointer is valid until the set changes.
    const Value* find(std::string_view key) const;
    /// The value of that kind under a key, or null when the key is absent or holds another kind. The pointers lead
    /// straight into the stored value. Those to constants are valid until the set changes; the others until the set is
    /// assigned to or the key is erased or set to another kind.
    const int* findInt(std::string_view key) const;
    int* findInt(std::string_view key);
    const double* findDouble(std::string_view key) const;
    double* findDouble(std::string_view key);
    const std::string* findString(std::string_view key) const;

    bool has(std::string_view key) const;
    /// The integer under a key, or the default when the key is absent or holds another kind.
    int intOr(std::string_view key, int defaultValue) const;
    /// The number under a key, integer or double, as a double; or the default when the key is absent or holds a text.
    double numberOr(std::string_view key, double defaultValue) const;
    /// The text under a key, or the default when the key is absent or holds another kind.
    std::string stringOr(std::string_view key, std::string_view defaultValue) const;

    /// The value under a key that must be there.
    /// \throws util::AssertionError when it is absent.
    /// The reference is valid until the set changes.
    const Value& at(std::string_view key) const;
    /// The value of that kind under a key that must be there, in place. The reference is valid until the set is
    /// assigned to or the key is erased or set to another kind.
    /// \throws util::AssertionError when it is absent, boost::bad_get when it holds another kind.
    int& intAt(std::string_view key);
    double& doubleAt(std::string_view key);

    bool empty() const { return params().empty(); }
    std::size_t size() const { return params().size(); }
    void clear();
    /// All entries in key order. The reference is valid until the set changes.
    const Params& params() const;

    bool operator==(const Parameterized& other) const { return params() == other.params(); }
    bool operator!=(const Parameterized& other) const { return !(*this == other); }

    /// Reads or writes the set as the element "params" of an archive (see <tessaron/exchange/Archives.h>).
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    struct Values;
    typedef boost::intrusive_ptr<Values> ValuesPtr;

    /// Entries that no other set has; `before` keeps those alive that were shared up to now.
    Params& ownParams(ValuesPtr& before);
    /// Entries that no other set has nor will have, as they can be changed from outside.
    Params& openParams();
    void replaceParams(Params&& entries);

    ValuesPtr m_values; ///< null: no entries
};

} // namespace util

#endif
