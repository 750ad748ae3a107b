#include "templates/ColumnValues.h"

#include <algorithm>

namespace TessaronResources
{

ColumnValues::ColumnValues(const std::vector<std::string>& keys) : m_values(keys.size())
{
    for (const std::string& key : keys)
        m_sortedKeys.emplace_back(key, m_sortedKeys.size());
    std::sort(m_sortedKeys.begin(), m_sortedKeys.end());
}

const std::vector<const util::Parameterized::Value*>& ColumnValues::of(const util::Parameterized& set)
{
    std::fill(m_values.begin(), m_values.end(), nullptr);
    auto param = set.params().begin();
    const auto end = set.params().end();
    for (const auto& [key, place] : m_sortedKeys)
    {
        int order = -1;
        while (param != end && (order = param->first.compare(key)) < 0)
            ++param;
        if (param == end)
            break;
        // The same key may be wanted again.
        if (order == 0)
            m_values[place] = &param->second;
    }
    return m_values;
}

} // namespace TessaronResources
