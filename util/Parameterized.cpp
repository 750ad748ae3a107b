#include <tessaron/util/Parameterized.h>

#include <tessaron/util/Assertion.h>

#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <utility>

namespace util
{

namespace
{

template <class T, class Params>
auto findKind(Params& params, std::string_view key) -> decltype(boost::get<T>(&params.begin()->second))
{
    const auto it = params.find(key);
    return it == params.end() ? nullptr : boost::get<T>(&it->second);
}

} // namespace

struct Parameterized::Values : boost::intrusive_ref_counter<Values>
{
    Values() = default;
    explicit Values(Params given) : params(std::move(given)) {}

    Params params;
    bool isOpen = false; ///< pointers lead in from outside: not to be shared
};

Parameterized::Parameterized() = default;
Parameterized::Parameterized(const Parameterized& other)
    : m_values(other.m_values && other.m_values->isOpen ? new Values(other.m_values->params) : other.m_values.get())
{
}
Parameterized::Parameterized(Parameterized&& other) noexcept = default;
Parameterized& Parameterized::operator=(const Parameterized& other)
{
    m_values = Parameterized(other).m_values;
    return *this;
}
Parameterized& Parameterized::operator=(Parameterized&& other) noexcept = default;
Parameterized::~Parameterized() = default;

Parameterized::Params& Parameterized::ownParams(ValuesPtr& before)
{
    if (!m_values)
    {
        m_values = new Values;
    }
    else if (m_values->use_count() > 1)
    {
        before = m_values;
        m_values = new Values(before->params);
    }
    return m_values->params;
}

Parameterized::Params& Parameterized::openParams()
{
    ValuesPtr before;
    Params& params = ownParams(before);
    m_values->isOpen = true;
    return params;
}

void Parameterized::replaceParams(Params&& entries)
{
    m_values = new Values(std::move(entries));
}

const Parameterized::Params& Parameterized::params() const
{
    static const Params none;
    return m_values ? m_values->params : none;
}

void Parameterized::set(std::string key, const Value& value)
{
    ValuesPtr before; // `value` may be one of its values
    ownParams(before).insert_or_assign(std::move(key), value);
}

void Parameterized::erase(const std::string& key)
{
    if (!has(key))
        return;
    ValuesPtr before; // `key` may be one of its keys
    ownParams(before).erase(key);
}

void Parameterized::clear()
{
    m_values.reset();
}

const Parameterized::Value* Parameterized::find(std::string_view key) const
{
    const Params& entries = params();
    const auto it = entries.find(key);
    return it == entries.end() ? nullptr : &it->second;
}

const int* Parameterized::findInt(std::string_view key) const
{
    return findKind<int>(params(), key);
}

int* Parameterized::findInt(std::string_view key)
{
    return std::as_const(*this).findInt(key) ? findKind<int>(openParams(), key) : nullptr;
}

const double* Parameterized::findDouble(std::string_view key) const
{
    return findKind<double>(params(), key);
}

double* Parameterized::findDouble(std::string_view key)
{
    return std::as_const(*this).findDouble(key) ? findKind<double>(openParams(), key) : nullptr;
}

const std::string* Parameterized::findString(std::string_view key) const
{
    return findKind<std::string>(params(), key);
}

bool Parameterized::has(std::string_view key) const
{
    return find(key) != nullptr;
}

int Parameterized::intOr(std::string_view key, int defaultValue) const
{
    const int* const value = findInt(key);
    return value ? *value : defaultValue;
}

double Parameterized::numberOr(std::string_view key, double defaultValue) const
{
    if (const double* const value = findDouble(key))
        return *value;
    const int* const value = findInt(key);
    return value ? *value : defaultValue;
}

std::string Parameterized::stringOr(std::string_view key, std::string_view defaultValue) const
{
    const std::string* const value = findString(key);
    return value ? *value : std::string(defaultValue);
}

const Parameterized::Value& Parameterized::at(std::string_view key) const
{
    const Params& m_params = params(); // named as the assertion's text has it
    const auto it = m_params.find(key);
    TESSARON_ASSERT(it != m_params.end(), "Util\\Params");
    return it->second;
}

int& Parameterized::intAt(std::string_view key)
{
    boost::get<int>(at(key));
    return *findInt(key);
}

double& Parameterized::doubleAt(std::string_view key)
{
    boost::get<double>(at(key));
    return *findDouble(key);
}

} // namespace util
