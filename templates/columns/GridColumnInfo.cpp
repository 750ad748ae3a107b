#include "templates/columns/GridColumnInfo.h"

#include "frame/Translation.h"
#include "util/text/ReadableText.h"

namespace TessaronResources
{

namespace
{

constexpr int defaultRowHeight = 60;

} // namespace

GridColumnInfo::GridColumnInfo(const util::TemplateColumn& definition, bool editable)
    : m_definition(definition), m_format(util::readableText(definition.format)), m_editable(editable)
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
    grid.setCell(row, index, format(set), appearance().alignment, cellFont);
    grid.setRowHeight(row, height == -1 ? defaultRowHeight : height);
}

const std::array<std::string, 2>& alphabeticOrderTexts()
{
    static const std::array<std::string, 2> texts = {translated("A to Z"), translated("Z to A")};
    return texts;
}

const std::array<std::string, 2>& GridColumnInfo::sortOrderTexts() const
{
    return alphabeticOrderTexts();
}

SearchHints GridColumnInfo::searchHints(const std::string&) const
{
    return {};
}

void GridColumnInfo::draw(CellPainter& painter, const std::string& text) const
{
    if (!text.empty())
        painter.drawText(text, 1.0);
}

std::optional<std::string> GridColumnInfo::textAfterClick(const CellArea&, CellPoint, const std::string&) const
{
    return std::nullopt;
}

std::optional<std::string> GridColumnInfo::textAfterKey(char32_t) const
{
    return std::nullopt;
}

void GridColumnInfo::setupHeading(TemplateCells& grid, std::uint32_t textColour, std::uint32_t backColour) const
{
    grid.setHeading(index, translated(m_definition.title), m_definition.width, headingFont, textColour, backColour);
}

} // namespace TessaronResources
