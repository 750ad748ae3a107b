#include "templates/TemplateSort.h"

#include "frame/Translation.h"
#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <numeric>
#include <optional>
#include <string_view>
#include <utility>

namespace TessaronResources
{

namespace
{

namespace type = util::templateColumnType;

/// A text that compares byte by byte as the original does letter by letter: case folded, and each number in it led by
/// its count of digits, so that a longer number is a larger one.
std::string sortText(std::string_view text)
{
    const std::string folded = foldCase(text);
    std::string key;
    key.reserve(folded.size() + 8);
    for (std::size_t i = 0; i < folded.size();)
    {
        if (!util::isAsciiDigit(folded[i]))
        {
            key += folded[i++];
            continue;
        }
        while (i + 1 < folded.size() && folded[i] == '0' && util::isAsciiDigit(folded[i + 1]))
            ++i;
        std::size_t end = i;
        while (end < folded.size() && util::isAsciiDigit(folded[end]))
            ++end;
        // Numbers of 200 digits and more all count as long ones; digits sort between '/' and ':' as before.
        key += '0';
        key += static_cast<char>(std::min<std::size_t>(end - i, 200));
        key.append(folded, i, end - i);
        i = end;
    }
    return key;
}

/// What one row is sorted by on one level. Most comparisons end at `order`.
struct SortValue
{
    std::uint64_t order = 0; ///< 0: no value
    std::string text;        ///< only of texts
};

/// Numbers as unsigned ones that compare alike, from 1 on.
std::uint64_t orderOf(double number)
{
    constexpr std::uint64_t signBit = std::uint64_t(1) << 63U;
    number += 0.0; // there are two zeros, which are equal
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return (bits & signBit) != 0 ? ~bits : bits | signBit;
}

/// A text's first bytes as a number; texts that are equal in them compare by the rest.
std::uint64_t orderOf(const std::string& text)
{
    std::uint64_t order = 0;
    for (std::size_t i = 0; i < sizeof order; ++i)
        order = order << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return std::max<std::uint64_t>(order, 1);
}

SortValue textValue(std::string text)
{
    const std::uint64_t order = orderOf(text);
    return {order, std::move(text)};
}

std::optional<double> numberOf(const util::Parameterized::Value& value)
{
    if (const int* const whole = boost::get<int>(&value))
        return *whole;
    if (const double* const real = boost::get<double>(&value))
        return std::isnan(*real) ? std::nullopt : std::optional<double>(*real);
    return std::nullopt;
}

class SortLevel
{
public:
    SortLevel(const util::TemplateColumn& column, bool descending) : m_type(column.type), m_descending(descending)
    {
        if (column.type == type::list)
            for (const auto& [code, text] : column.options)
                m_options.emplace(code, textValue(sortText(text)));
    }

    SortValue makeValue(const util::Parameterized::Value& value) const
    {
        const std::optional<double> number = numberOf(value);
        const auto* const text = boost::get<std::string>(&value);
        switch (m_type)
        {
        case type::integer:
        case type::real:
        case type::rating:
            return number ? SortValue{orderOf(*number), {}} : SortValue();
        case type::date:
        {
            double seconds = 0.0;
            const bool reads =
                text && std::from_chars(text->data(), text->data() + text->size(), seconds).ec == std::errc();
            return reads ? SortValue{orderOf(seconds), {}} : SortValue();
        }
        case type::list:
        {
            const bool isCode = number && std::fabs(*number) <= std::numeric_limits<int>::max();
            const auto option = isCode ? m_options.find(static_cast<int>(*number)) : m_options.end();
            return option == m_options.end() ? SortValue() : option->second;
        }
        default:
            return text && !text->empty() ? textValue(sortText(*text)) : SortValue();
        }
    }

    /// Negative, zero or positive, as a comes before, beside or after b.
    int compare(const SortValue& a, const SortValue& b) const
    {
        if (a.order == 0 || b.order == 0)
            return static_cast<int>(b.order != 0) - static_cast<int>(a.order != 0);
        const int order = a.order != b.order ? (a.order < b.order ? -1 : 1) : a.text.compare(b.text);
        return m_descending ? -order : order;
    }

private:
    int m_type;
    bool m_descending;
    std::map<int, SortValue> m_options;
};

const util::TemplateColumn* findColumn(const std::vector<util::TemplateColumn>& columns, const std::string& key)
{
    const auto it = std::find_if(columns.begin(), columns.end(), [&](const auto& column) { return column.key == key; });
    return it == columns.end() ? nullptr : &*it;
}

} // namespace

std::vector<std::size_t> sortedOrder(const TemplateRows& rows, const std::vector<util::TemplateSortLevel>& levels,
                                     const std::vector<util::TemplateColumn>& columns)
{
    std::vector<SortLevel> sorts;
    std::vector<std::string> keys;
    for (const util::TemplateSortLevel& level : levels)
        if (const util::TemplateColumn* const column = findColumn(columns, level.key))
        {
            sorts.emplace_back(*column, level.descending);
            keys.push_back(level.key);
        }

    // Row by row, so that a comparison finds all it needs in one place.
    std::vector<SortValue> values(rows.size() * sorts.size());
    const std::vector<std::size_t> places = rows.valuePlaces(keys);
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        const ColumnValues::Values& ofRow = rows.valuesAt(row);
        for (std::size_t i = 0; i < sorts.size(); ++i)
            if (const util::Parameterized::Value* const value = ofRow[places[i]])
                values[row * sorts.size() + i] = sorts[i].makeValue(*value);
    }

    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b)
                     {
                         for (std::size_t i = 0; i < sorts.size(); ++i)
                             if (const int result =
                                     sorts[i].compare(values[a * sorts.size() + i], values[b * sorts.size() + i]);
                                 result != 0)
                                 return result < 0;
                         return false;
                     });
    return order;
}

const std::array<std::string, 2>& sortOrderTexts(int columnType)
{
    static const std::array<std::string, 2> numbers = {translated("Smallest to Largest"),
                                                       translated("Largest to Smallest")};
    static const std::array<std::string, 2> texts = {translated("A to Z"), translated("Z to A")};
    return columnType == type::integer || columnType == type::real ? numbers : texts;
}

TemplateSortLevels::TemplateSortLevels(const std::vector<util::TemplateColumn>& columns,
                                       std::vector<util::TemplateSortLevel> levels)
    : m_columns(columns), m_levels(std::move(levels))
{
    m_levels.erase(std::remove_if(m_levels.begin(), m_levels.end(),
                                  [&](const auto& level) { return !findColumn(m_columns, level.key); }),
                   m_levels.end());
}

std::string TemplateSortLevels::caption(std::size_t level)
{
    return level == 0 ? translated("Sort by") : translated("Then by");
}

std::vector<std::string> TemplateSortLevels::columnTitles() const
{
    std::vector<std::string> titles;
    for (const util::TemplateColumn& column : m_columns)
        titles.push_back(translated(column.title));
    return titles;
}

std::size_t TemplateSortLevels::columnOf(std::size_t level) const
{
    return static_cast<std::size_t>(findColumn(m_columns, m_levels[level].key) - m_columns.data());
}

const std::array<std::string, 2>& TemplateSortLevels::orderTexts(std::size_t level) const
{
    return sortOrderTexts(m_columns[columnOf(level)].type);
}

std::size_t TemplateSortLevels::add()
{
    for (const util::TemplateColumn& column : m_columns)
    {
        const bool used =
            std::any_of(m_levels.begin(), m_levels.end(), [&](const auto& level) { return level.key == column.key; });
        if (!used)
        {
            m_levels.push_back({column.key, false});
            return m_levels.size() - 1;
        }
    }
    return m_levels.size();
}

bool TemplateSortLevels::canAdd() const
{
    TemplateSortLevels copy(*this);
    return copy.add() < copy.m_levels.size();
}

void TemplateSortLevels::remove(std::size_t level)
{
    m_levels.erase(m_levels.begin() + static_cast<std::ptrdiff_t>(level));
}

void TemplateSortLevels::moveUp(std::size_t level)
{
    if (canMoveUp(level))
        std::swap(m_levels[level], m_levels[level - 1]);
}

void TemplateSortLevels::moveDown(std::size_t level)
{
    if (canMoveDown(level))
        std::swap(m_levels[level], m_levels[level + 1]);
}

void TemplateSortLevels::setColumn(std::size_t level, std::size_t column)
{
    m_levels[level].key = m_columns[column].key;
}

void TemplateSortLevels::setDescending(std::size_t level, bool descending)
{
    m_levels[level].descending = descending;
}

} // namespace TessaronResources
