#ifndef TEMPLATES_COLUMNS_DATECOLUMN_H
#define TEMPLATES_COLUMNS_DATECOLUMN_H

#include "templates/columns/CellNumber.h"
#include "templates/columns/GridColumnInfo.h"
#include "templates/columns/LocalTime.h"
#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"

#include <algorithm>
#include <cstring>

namespace TessaronResources
{

/// A column of time stamps, which the store keeps and nobody edits.
class GridColumnInfoDate : public GridColumnInfo
{
public:
    GridColumnInfoDate(const util::TemplateColumn& definition, bool) : GridColumnInfo(definition, false) {}

    std::string formatValue(const util::Parameterized::Value* value) const override
    {
        const auto* const text = boost::get<std::string>(value);
        const std::optional<std::uint64_t> seconds = text ? leadingNumber<std::uint64_t>(*text) : std::nullopt;
        return seconds ? printLocalTime(*seconds, m_definition.format) : std::string();
    }
    /// Does nothing.
    void parse(const std::string&, util::Parameterized&) const override {}
    SortKeyMaker sortKeys() const override
    {
        return [](const util::Parameterized::Value& value)
        {
            const auto* const text = boost::get<std::string>(&value);
            const std::optional<double> seconds = text ? leadingNumber<double>(*text) : std::nullopt;
            return seconds ? numberSortKey(*seconds) : SortKey();
        };
    }
    SearchHints searchHints(const std::string& wanted) const override
    {
        constexpr std::uint64_t anyTime = 1700000000;
        SearchHints hints;
        hints.isPossible =
            !hasOneShape() || shape(util::foldCase(printLocalTime(anyTime, m_definition.format))).find(shape(wanted)) !=
                                  std::string::npos;
        return hints;
    }
    /// A date is of no use without its end: where the column is too narrow, it is written smaller.
    void draw(CellPainter& painter, const std::string& text) const override
    {
        constexpr double smallestScale = 0.75;
        if (!text.empty())
            painter.drawText(text, smallestScale);
    }

private:
    /// Do all dates look alike but for their digits? (Up to the year 9999.)
    bool hasOneShape() const
    {
        const std::string& format = m_definition.format;
        for (std::size_t i = 0; i < format.size(); ++i)
            if (format[i] == '%' && (++i == format.size() || !std::strchr("YmdHMSyj%", format[i])))
                return false;
        return true;
    }
    /// A text with each digit replaced by a zero.
    static std::string shape(std::string text)
    {
        std::replace_if(text.begin(), text.end(), util::isAsciiDigit, '0');
        return text;
    }
};

} // namespace TessaronResources

#endif
