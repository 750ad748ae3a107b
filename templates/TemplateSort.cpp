#include "templates/TemplateSort.h"

#include "templates/FoldCase.h"

#include <algorithm>
#include <charconv>
#include <cmath>
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

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A text that compares byte by byte as the original does letter by letter: case folded, and each number in it led by
/// its count of digits, so that a longer number is a larger one.
std::string sortText(std::string_view text)
{
    const std::string folded = foldCase(text);
    std::string key;
    key.reserve(folded.size() + 8);
    for (std::size_t i = 0; i < folded.size();)
    {
        if (!isDigit(folded[i]))
        {
            key += folded[i++];
            continue;
        }
        while (i + 1 < folded.size() && folded[i] == '0' && isDigit(folded[i + 1]))
            ++i;
        std::size_t end = i;
        while (end < folded.size() && isDigit(folded[end]))
            ++end;
        // Numbers of 200 digits and more all count as long ones; digits sort between '/' and ':' as before.
        key += '0';
        key += static_cast<char>(std::min<std::size_t>(end - i, 200));
        key.append(folded, i, end - i);
        i = end;
    }
    return key;
}

/// What one row is sorted by on one level.
struct SortValue
{
    bool present = false;
    double number = 0.0;
    std::string text;
};

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
    SortLevel(const util::TemplateColumn& column, bool descending, const TemplateRows& rows)
        : m_isText(isText(column.type)), m_descending(descending)
    {
        std::map<int, std::string> options;
        if (column.type == type::list)
            for (const auto& [code, text] : column.options)
                options.emplace(code, sortText(text));
        m_values.resize(rows.size());
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (const util::Parameterized::Value* const value = rows.at(row).find(column.key))
                m_values[row] = makeValue(column.type, *value, options);
    }

    /// Negative, zero or positive, as row a comes before, beside or after row b.
    int compare(std::size_t a, std::size_t b) const
    {
        const SortValue& first = m_values[a];
        const SortValue& second = m_values[b];
        if (!first.present || !second.present)
            return static_cast<int>(second.present) - static_cast<int>(first.present);
        const int order =
            m_isText ? first.text.compare(second.text)
                     : static_cast<int>(first.number > second.number) - static_cast<int>(first.number < second.number);
        return m_descending ? -order : order;
    }

private:
    static bool isText(int columnType)
    {
        return columnType != type::integer && columnType != type::real && columnType != type::rating &&
               columnType != type::date;
    }

    static SortValue makeValue(int columnType, const util::Parameterized::Value& value,
                               const std::map<int, std::string>& options)
    {
        const std::optional<double> number = numberOf(value);
        const std::string* const text = boost::get<std::string>(&value);
        if (columnType == type::list)
        {
            const bool isCode = number && std::fabs(*number) <= std::numeric_limits<int>::max();
            const auto option = isCode ? options.find(static_cast<int>(*number)) : options.end();
            return option == options.end() ? SortValue() : SortValue{true, 0.0, option->second};
        }
        if (columnType == type::date)
        {
            double seconds = 0.0;
            const bool reads =
                text && std::from_chars(text->data(), text->data() + text->size(), seconds).ec == std::errc();
            return {reads, seconds, {}};
        }
        if (isText(columnType))
            return text && !text->empty() ? SortValue{true, 0.0, sortText(*text)} : SortValue();
        return {number.has_value(), number.value_or(0.0), {}};
    }

    bool m_isText;
    bool m_descending;
    std::vector<SortValue> m_values;
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
    for (const util::TemplateSortLevel& level : levels)
        if (const util::TemplateColumn* const column = findColumn(columns, level.key))
            sorts.emplace_back(*column, level.descending, rows);

    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b)
                     {
                         for (const SortLevel& sort : sorts)
                             if (const int result = sort.compare(a, b); result != 0)
                                 return result < 0;
                         return false;
                     });
    return order;
}

const std::array<std::string, 2>& sortOrderTexts(int columnType)
{
    static const std::array<std::string, 2> numbers = {"Smallest to Largest", "Largest to Smallest"};
    static const std::array<std::string, 2> texts = {"A to Z", "Z to A"};
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

const char* TemplateSortLevels::caption(std::size_t level)
{
    return level == 0 ? "Sort by" : "Then by";
}

std::vector<std::string> TemplateSortLevels::columnTitles() const
{
    std::vector<std::string> titles;
    for (const util::TemplateColumn& column : m_columns)
        titles.push_back(column.title);
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
