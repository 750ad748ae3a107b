#include "templates/columns/ColumnSearch.h"

#include "templates/columns/LocalTime.h"
#include "templates/columns/PrintFormat.h"
#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace TessaronResources
{

namespace
{

namespace type = util::templateColumnType;

bool holdsIgnoringCase(std::string_view text, std::string_view wanted)
{
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                       [](char a, char b) { return util::asciiLower(a) == b; }) != text.end();
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// A text with each digit replaced by a zero.
std::string shape(std::string text)
{
    for (char& c : text)
        if (c >= '0' && c <= '9')
            c = '0';
    return text;
}

/// Do all dates printed with this strftime format look alike but for their digits? (Up to the year 9999.)
bool hasOneShape(const std::string& format)
{
    for (std::size_t i = 0; i < format.size(); ++i)
        if (format[i] == '%' && (++i == format.size() || !std::strchr("YmdHMSyj%", format[i])))
            return false;
    return true;
}

} // namespace

ColumnSearch::ColumnSearch(const GridColumnInfo& column, const std::string& wanted)
    : m_column(&column), m_wanted(wanted)
{
    const util::TemplateColumn& definition = column.definition();
    switch (definition.type)
    {
    case type::integer:
    case type::real:
    case type::rating:
        m_possible = isPossibleNumber();
        m_remember = true;
        break;
    case type::date:
        m_possible = isPossibleDate();
        break;
    case type::list:
        m_possible = std::any_of(definition.options.begin(), definition.options.end(),
                                 [this](const auto& option)
                                 { return foldCase(option.second).find(m_wanted) != std::string::npos; });
        m_remember = true;
        break;
    default:
        m_asItIs = isAscii(wanted) && PrintFormat(definition.format).isPlainText();
    }
}

bool ColumnSearch::isPossibleNumber() const
{
    const std::string used = "0123456789+-. einfa" + foldCase(PrintFormat(m_column->definition().format).literals());
    return m_wanted.find_first_not_of(used) == std::string::npos;
}

bool ColumnSearch::isPossibleDate() const
{
    const std::string& format = m_column->definition().format;
    return !hasOneShape(format) ||
           shape(foldCase(printLocalTime(1700000000, format))).find(shape(m_wanted)) != std::string::npos;
}

bool ColumnSearch::matchesShown(const util::Parameterized::Value& value) const
{
    return foldCase(m_column->formatValue(&value)).find(m_wanted) != std::string::npos;
}

bool ColumnSearch::matches(const util::Parameterized::Value& value)
{
    const auto* const text = boost::get<std::string>(&value);
    if (text)
        return m_asItIs && isAscii(*text) && text->size() <= PrintFormat::longestText
                   ? holdsIgnoringCase(*text, m_wanted)
                   : matchesShown(value);
    if (!m_remember)
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
