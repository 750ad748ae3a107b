#include "templates/columns/ColumnValues.h"

#include <algorithm>

namespace TessaronResources
{

std::size_t ColumnValues::placeOf(const std::string& key) const
{
    const auto it = std::find_if(m_stops.begin(), m_stops.end(), [&](const Stop& stop) { return stop.key == key; });
    return it == m_stops.end() ? m_stops.size() : it->place;
}

void ColumnValues::add(const std::string& key)
{
    const auto it = std::find_if(m_stops.begin(), m_stops.end(), [&](const Stop& stop) { return key < stop.key; });
    m_stops.insert(it, {key, m_stops.size()});
    m_values.push_back(nullptr);
    m_length = 0;
}

const ColumnValues::Values& ColumnValues::of(const util::Parameterized& set)
{
    if (set.empty())
        std::fill(m_values.begin(), m_values.end(), nullptr);
    else if (!readAsBefore(set.params()))
        read(set.params());
    return m_values;
}

bool ColumnValues::readAsBefore(const util::Parameterized::Params& params)
{
    if (params.size() != m_length)
        return false;
    auto param = params.begin();
    for (const Stop& stop : m_stops)
    {
        for (std::size_t step = 1; step < stop.steps; ++step)
            ++param;
        if (stop.steps > 0)
        {
            if (!stop.found && param->first.compare(stop.key) >= 0)
                return false;
            ++param;
        }
        if (stop.found ? param->first != stop.key : param != params.end() && param->first.compare(stop.key) <= 0)
            return false;
        m_values[stop.place] = stop.found ? &param->second : nullptr;
    }
    return true;
}

void ColumnValues::read(const util::Parameterized::Params& params)
{
    m_length = params.size();
    auto param = params.begin();
    for (Stop& stop : m_stops)
    {
        int order = -1;
        for (stop.steps = 0; param != params.end() && (order = param->first.compare(stop.key)) < 0; ++stop.steps)
            ++param;
        stop.found = param != params.end() && order == 0;
        m_values[stop.place] = stop.found ? &param->second : nullptr;
    }
}

} // namespace TessaronResources
