#include "templates/columns/GridColumnInfo.h"

#include "frame/Translation.h"
#include "templates/columns/LocalTime.h"

#include <boost/make_shared.hpp>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

namespace TessaronResources
{

namespace
{

constexpr int defaultRowHeight = 60;

/// What a scan for a number may stand behind: blanks, and a plus sign.
std::string_view numberStart(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    text = start == std::string_view::npos ? std::string_view() : text.substr(start);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    return text;
}

/// The number that a text starts with, if any.
template <class Number>
std::optional<Number> readNumber(std::string_view text)
{
    text = numberStart(text);
    Number number{};
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc())
        return std::nullopt;
    return number;
}

template <class Kind>
const Kind* as(const util::Parameterized::Value* value)
{
    return boost::get<Kind>(value);
}

/// The integer that a value tells. Other programs store whole numbers as reals at times.
std::optional<int> integerOf(const util::Parameterized::Value* value)
{
    if (const int* const whole = as<int>(value))
        return *whole;
    const double* const real = as<double>(value);
    if (real && std::trunc(*real) == *real && std::fabs(*real) <= std::numeric_limits<int>::max())
        return static_cast<int>(*real);
    return std::nullopt;
}

} // namespace

GridColumnInfo::GridColumnInfo(const util::TemplateColumn& definition, bool editable)
    : m_definition(definition), m_format(definition.format), m_editable(editable)
{
}

GridColumnInfo::~GridColumnInfo() = default;

std::string GridColumnInfo::format(const util::Parameterized& set) const
{
    return formatValue(set.find(m_definition.key));
}

void GridColumnInfo::setupCell(TemplateCells& grid, int row, const util::Parameterized& set, int height) const
{
    if (!m_definition.shown)
        return;
    grid.setCell(row, index, format(set), alignment(), cellFont);
    grid.setRowHeight(row, height == -1 ? defaultRowHeight : height);
}

void GridColumnInfo::setupHeading(TemplateCells& grid, std::uint32_t textColour, std::uint32_t backColour) const
{
    grid.setHeading(index, translated(m_definition.title), m_definition.width, headingFont, textColour, backColour);
}

std::string GridColumnInfoDouble::formatValue(const util::Parameterized::Value* value) const
{
    if (const double* const real = as<double>(value))
        return m_format.print(*real);
    const int* const whole = as<int>(value);
    return whole ? m_format.print(static_cast<double>(*whole)) : std::string();
}

void GridColumnInfoDouble::parse(const std::string& text, util::Parameterized& set) const
{
    const std::optional<double> value = readNumber<double>(text);
    if (value && std::isfinite(*value))
        set.set(m_definition.key, *value);
}

std::string GridColumnInfoInteger::formatValue(const util::Parameterized::Value* value) const
{
    const std::optional<int> whole = integerOf(value);
    return whole ? m_format.print(*whole) : std::string();
}

void GridColumnInfoInteger::parse(const std::string& text, util::Parameterized& set) const
{
    if (const std::optional<int> value = readNumber<int>(text))
        set.set(m_definition.key, *value);
}

std::string GridColumnInfoMultiText::formatValue(const util::Parameterized::Value* value) const
{
    const auto* const text = as<std::string>(value);
    return text ? m_format.print(std::string_view(*text)) : std::string();
}

void GridColumnInfoMultiText::parse(const std::string& text, util::Parameterized& set) const
{
    set.set(m_definition.key, text);
}

std::string GridColumnInfoDate::formatValue(const util::Parameterized::Value* value) const
{
    const auto* const text = as<std::string>(value);
    const std::optional<std::uint64_t> seconds = text ? readNumber<std::uint64_t>(*text) : std::nullopt;
    return seconds ? printLocalTime(*seconds, m_definition.format) : std::string();
}

void GridColumnInfoDate::parse(const std::string&, util::Parameterized&) const {}

GridColumnInfoListBox::GridColumnInfoListBox(const util::TemplateColumn& definition,
                                             const util::TemplateOptions& options, bool editable)
    : GridColumnInfo(definition, editable), m_options(options)
{
}

std::string GridColumnInfoListBox::formatValue(const util::Parameterized::Value* value) const
{
    const std::optional<int> code = integerOf(value);
    for (const auto& [optionCode, text] : m_options)
        if (code == optionCode)
            return text;
    return {};
}

void GridColumnInfoListBox::parse(const std::string& text, util::Parameterized& set) const
{
    for (const auto& [code, optionText] : m_options)
        if (text == optionText)
            return set.set(m_definition.key, code);
}

void GridColumnInfoListBox::setupCell(TemplateCells& grid, int row, const util::Parameterized& set, int height) const
{
    GridColumnInfo::setupCell(grid, row, set, height);
    if (m_definition.shown)
        grid.setCellChoices(row, index, choices());
}

std::vector<std::string> GridColumnInfoListBox::choices() const
{
    std::vector<std::string> texts;
    for (const auto& [code, text] : m_options)
        texts.push_back(text);
    return texts;
}

GridColumnPtr makeGridColumn(const util::TemplateColumn& definition, bool gridFlag)
{
    namespace type = util::templateColumnType;
    switch (definition.type)
    {
    case type::integer:
        return boost::make_shared<GridColumnInfoInteger>(definition, gridFlag);
    case type::real:
    case type::rating:
        return boost::make_shared<GridColumnInfoDouble>(definition, gridFlag);
    case type::text:
        return boost::make_shared<GridColumnInfoMultiText>(definition, gridFlag);
    case type::date:
        return boost::make_shared<GridColumnInfoDate>(definition, false);
    case type::list:
        return boost::make_shared<GridColumnInfoListBox>(definition, definition.options, gridFlag);
    default:
        return boost::make_shared<GridColumnInfoMultiText>(definition, false);
    }
}

std::vector<GridColumnPtr> makeGridColumns(const std::vector<util::TemplateColumn>& definitions, bool gridFlag)
{
    std::vector<GridColumnPtr> columns;
    for (const util::TemplateColumn& definition : definitions)
    {
        if (!definition.offered)
            continue;
        columns.push_back(makeGridColumn(definition, gridFlag));
        columns.back()->index = static_cast<int>(columns.size()) - 1;
    }
    return columns;
}

} // namespace TessaronResources
