#include "util/Parameterized.h"

#include "util/Assertion.h"

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

Parameterized::Parameterized() = default;
Parameterized::Parameterized(const Parameterized& other) = default;
Parameterized::Parameterized(Parameterized&& other) noexcept = default;
Parameterized& Parameterized::operator=(const Parameterized& other) = default;
Parameterized& Parameterized::operator=(Parameterized&& other) noexcept = default;
Parameterized::~Parameterized() = default;

void Parameterized::set(std::string key, const Value& value)
{
    m_params.insert_or_assign(std::move(key), value);
}

void Parameterized::erase(const std::string& key)
{
    m_params.erase(key);
}

const Parameterized::Value* Parameterized::find(std::string_view key) const
{
    const auto it = m_params.find(key);
    return it == m_params.end() ? nullptr : &it->second;
}

const int* Parameterized::findInt(std::string_view key) const
{
    return findKind<int>(m_params, key);
}

int* Parameterized::findInt(std::string_view key)
{
    return findKind<int>(m_params, key);
}

const double* Parameterized::findDouble(std::string_view key) const
{
    return findKind<double>(m_params, key);
}

double* Parameterized::findDouble(std::string_view key)
{
    return findKind<double>(m_params, key);
}

const std::string* Parameterized::findString(std::string_view key) const
{
    return findKind<std::string>(m_params, key);
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
    const auto it = m_params.find(key);
    TESSARON_ASSERT(it != m_params.end(), "Util\\Params");
    return it->second;
}

int& Parameterized::intAt(std::string_view key)
{
    return boost::get<int>(const_cast<Value&>(at(key)));
}

double& Parameterized::doubleAt(std::string_view key)
{
    return boost::get<double>(const_cast<Value&>(at(key)));
}

} // namespace util
