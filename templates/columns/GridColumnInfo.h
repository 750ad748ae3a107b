#ifndef TEMPLATES_COLUMNS_GRIDCOLUMNINFO_H
#define TEMPLATES_COLUMNS_GRIDCOLUMNINFO_H

#include "templates/columns/PrintFormat.h"
#include <tessaron/engine/TemplateInfo.h>
#include <tessaron/util/Parameterized.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace TessaronResources
{

enum class CellAlignment
{
    left,
    right
};

/// The grid as its columns see it: what setting up a heading or a cell needs. Rows and columns count from 0; a font is
/// the toolkit's own description of one, empty for the grid's current font.
class TemplateCells
{
public:
    virtual ~TemplateCells() = default;

    virtual void setCell(int row, int column, const std::string& text, CellAlignment alignment,
                         const std::string& font) = 0;
    /// The texts that a cell's drop-down list offers.
    virtual void setCellChoices(int row, int column, const std::vector<std::string>& choices) = 0;
    /// Pixels.
    virtual void setRowHeight(int row, int height) = 0;
    /// Width in pixels; a colour (0x00RRGGBB) is set only when it is not util::TemplateInfo::noColour.
    virtual void setHeading(int column, const std::string& title, int width, const std::string& font,
                            std::uint32_t textColour, std::uint32_t backColour) = 0;
};

/// One column of the template grid: turns the template's value under the column's key into the text of a cell and back.
/// The order of the virtual operations is part of the interface.
class GridColumnInfo
{
public:
    /// `definition` is not owned and outlives the object. `editable` says whether the user may type into the column.
    GridColumnInfo(const util::TemplateColumn& definition, bool editable);
    GridColumnInfo(const GridColumnInfo&) = delete;
    GridColumnInfo& operator=(const GridColumnInfo&) = delete;

    /// The cell text for a template; empty when it lacks the key or the value does not print.
    virtual std::string format(const util::Parameterized& set) const;
    /// Stores the value that `text` denotes under the column's key. Text that does not read as a value of the column's
    /// kind leaves the template unchanged. Never throws for what a user can type.
    virtual void parse(const std::string& text, util::Parameterized& set) const = 0;
    /// Fills one cell of the column, and sets the height of its row in pixels; -1 stands for 60. Does nothing in a
    /// hidden column.
    virtual void setupCell(TemplateCells& grid, int row, const util::Parameterized& set, int height) const;
    virtual ~GridColumnInfo();
    /// As format(), for the value under the column's key; null when the template lacks it.
    virtual std::string formatValue(const util::Parameterized::Value* value) const = 0;

    /// Sets up the column's heading with its title and width; colours as TemplateCells::setHeading() takes them.
    void setupHeading(TemplateCells& grid, std::uint32_t textColour, std::uint32_t backColour) const;

    const util::TemplateColumn& definition() const { return m_definition; }
    bool isEditable() const { return m_editable; }
    /// Numbers stand to the right.
    virtual CellAlignment alignment() const { return CellAlignment::left; }

    std::string headingFont; ///< empty: the grid's current font; so is cellFont
    std::string cellFont;
    int index = -1;      ///< the column's place in the grid
    bool enabled = true; ///< takes part in editing

protected:
    const util::TemplateColumn& m_definition;
    const PrintFormat m_format;

private:
    bool m_editable;
};

typedef boost::shared_ptr<GridColumnInfo> GridColumnPtr;

/// A column of reals.
class GridColumnInfoDouble : public GridColumnInfo
{
public:
    using GridColumnInfo::GridColumnInfo;
    std::string formatValue(const util::Parameterized::Value* value) const override;
    /// Takes the number that the text starts with: "12abc" is 12.
    void parse(const std::string& text, util::Parameterized& set) const override;
    CellAlignment alignment() const override { return CellAlignment::right; }
};

/// A column of integers.
class GridColumnInfoInteger : public GridColumnInfo
{
public:
    using GridColumnInfo::GridColumnInfo;
    std::string formatValue(const util::Parameterized::Value* value) const override;
    /// Takes the integer that the text starts with: "12.7" is 12.
    void parse(const std::string& text, util::Parameterized& set) const override;
    CellAlignment alignment() const override { return CellAlignment::right; }
};

/// A column of texts, possibly of several lines.
class GridColumnInfoMultiText : public GridColumnInfo
{
public:
    using GridColumnInfo::GridColumnInfo;
    std::string formatValue(const util::Parameterized::Value* value) const override;
    void parse(const std::string& text, util::Parameterized& set) const override;
};

/// A column of time stamps, which the store keeps and nobody edits.
class GridColumnInfoDate : public GridColumnInfo
{
public:
    using GridColumnInfo::GridColumnInfo;
    std::string formatValue(const util::Parameterized::Value* value) const override;
    /// Does nothing.
    void parse(const std::string& text, util::Parameterized& set) const override;
};

/// A column of codes out of a list, shown by their texts.
class GridColumnInfoListBox : public GridColumnInfo
{
public:
    GridColumnInfoListBox(const util::TemplateColumn& definition, const util::TemplateOptions& options, bool editable);
    std::string formatValue(const util::Parameterized::Value* value) const override;
    /// Stores the code of the option with this text; does nothing when there is none.
    void parse(const std::string& text, util::Parameterized& set) const override;
    /// Offers the options' texts as well.
    void setupCell(TemplateCells& grid, int row, const util::Parameterized& set, int height) const override;

    std::vector<std::string> choices() const;

private:
    const util::TemplateOptions& m_options;
};

/// The column object for a definition, by its type code. `gridFlag` is whether the grid can be edited at all; columns
/// of dates and of unknown types never can.
GridColumnPtr makeGridColumn(const util::TemplateColumn& definition, bool gridFlag);

/// The column objects of all definitions that are offered, in definition order, with their places in the grid. The
/// definitions are not owned: make the columns anew when the list has changed.
std::vector<GridColumnPtr> makeGridColumns(const std::vector<util::TemplateColumn>& definitions, bool gridFlag);

} // namespace TessaronResources

#endif
