#ifndef UTIL_PARAMETERIZED_H
#define UTIL_PARAMETERIZED_H

#include "util/Export.h"

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
/// the constants of util/Keys.h. A copy is deep. Instances are not synchronised: share one between threads only under a
/// lock of your own.
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

    /// The value under a key, or null when the key is absent. The pointer is valid until the key is erased.
    const Value* find(std::string_view key) const;
    /// The value of that kind under a key, or null when the key is absent or holds another kind. The pointers lead
    /// straight into the stored value and are valid until the key is erased or set to another kind.
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
    const Value& at(std::string_view key) const;
    /// The value of that kind under a key that must be there, in place.
    /// \throws util::AssertionError when it is absent, boost::bad_get when it holds another kind.
    int& intAt(std::string_view key);
    double& doubleAt(std::string_view key);

    bool empty() const { return m_params.empty(); }
    std::size_t size() const { return m_params.size(); }
    void clear() { m_params.clear(); }
    /// All entries in key order.
    const Params& params() const { return m_params; }

    bool operator==(const Parameterized& other) const { return m_params == other.m_params; }
    bool operator!=(const Parameterized& other) const { return !(*this == other); }

    /// Reads or writes the set as the element "params" of an archive (see exchange/Archives.h).
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    Params m_params;
};

} // namespace util

#endif
