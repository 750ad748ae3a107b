#include "templates/columns/ColumnSearch.h"

#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace TessaronResources
{

namespace
{

bool holdsIgnoringCase(std::string_view text, std::string_view wanted)
{
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                       [](char a, char b) { return util::asciiLower(a) == b; }) != text.end();
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

ColumnSearch::ColumnSearch(const GridColumnInfo& column, const std::string& wanted)
    : m_column(&column), m_wanted(wanted), m_hints(column.searchHints(wanted)), m_isAscii(isAscii(wanted))
{
}

bool ColumnSearch::matchesShown(const util::Parameterized::Value& value) const
{
    return util::foldCase(m_column->formatValue(&value)).find(m_wanted) != std::string::npos;
}

bool ColumnSearch::matches(const util::Parameterized::Value& value)
{
    const auto* const text = boost::get<std::string>(&value);
    if (text)
        return m_hints.showsTextAsItIs && m_isAscii && isAscii(*text) && text->size() <= PrintFormat::longestText
                   ? holdsIgnoringCase(*text, m_wanted)
                   : matchesShown(value);
    if (!m_hints.valuesRecur)
        return matchesShown(value);
    std::uint64_t bits = 0;
    if (const int* const whole = boost::get<int>(&value))
        bits = 0xFFF8000000000000ULL | static_cast<std::uint32_t>(*whole); // no number has these bits as a real
    else
        std::memcpy(&bits, boost::get<double>(&value), sizeof bits);
    const auto [known, isNew] = m_known.try_emplace(bits, false);
    if (isNew)
        known->second = matchesShown(value);
    return known->second;
}

} // namespace TessaronResources
