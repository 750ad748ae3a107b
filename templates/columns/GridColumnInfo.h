#ifndef TEMPLATES_COLUMNS_GRIDCOLUMNINFO_H
#define TEMPLATES_COLUMNS_GRIDCOLUMNINFO_H

#include "templates/columns/CellPainter.h"
#include "templates/columns/PrintFormat.h"
#include "templates/columns/SortKey.h"
#include <tessaron/engine/TemplateInfo.h>
#include <tessaron/util/Parameterized.h>

#include <boost/shared_ptr.hpp>

#include <array>
#include <cstdint>
#include <optional>
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

/// How the cells of a column look, apart from their texts.
struct CellAppearance
{
    CellAlignment alignment = CellAlignment::left;
    bool isText = true;       ///< false: the width of the cell's text says nothing about what is drawn
    bool isMultiLine = false; ///< texts may have several lines, which make their rows higher
};

/// What the user changes a cell with, where the column can be edited.
enum class CellEditor
{
    text,  ///< types the text
    list,  ///< chooses one of the column's choices()
    direct ///< clicks or presses a key, which textAfterClick() or textAfterKey() turns into the text
};

/// What a column can say about a search before any cell is printed. Cells are printed in case of doubt.
struct SearchHints
{
    bool isPossible = true;       ///< false: no cell of the column can show the text
    bool showsTextAsItIs = false; ///< a text value that is not too long is shown unchanged
    bool valuesRecur = false;     ///< the same few numbers come again and again
};

/// The two directions of a sort by letters, ascending first.
const std::array<std::string, 2>& alphabeticOrderTexts();

/// One column of the template grid: turns the template's value under the column's key into the text of a cell and back,
/// and knows all else that sets its kind of value apart. The order of the first virtual operations is part of the
/// interface. A new kind is a class in a header of its own, and a line in ColumnKinds.cpp.
class GridColumnInfo
{
public:
    /// `definition` is not owned and outlives the object. `editable` says whether the user may type into the column.
    GridColumnInfo(const util::TemplateColumn& definition, bool editable);
    GridColumnInfo(const GridColumnInfo&) = delete;
    GridColumnInfo& operator=(const GridColumnInfo&) = delete;

    /// The cell text for a template, UTF-8 whatever the template holds; empty when it lacks the key or the value does
    /// not print.
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

    // Sorting and searching

    /// Makes the keys that the column's values are sorted by. Holds nothing of the column.
    virtual SortKeyMaker sortKeys() const = 0;
    /// The two directions of a sort as the user is offered them, ascending first.
    virtual const std::array<std::string, 2>& sortOrderTexts() const;
    /// `wanted` is case-folded and not empty.
    virtual SearchHints searchHints(const std::string& wanted) const;

    // Appearance and editing

    virtual CellAppearance appearance() const { return {}; }
    /// Draws a cell that shows `text`, which may be empty.
    virtual void draw(CellPainter& painter, const std::string& text) const;
    virtual CellEditor editor() const { return CellEditor::text; }
    virtual std::vector<std::string> choices() const { return {}; }
    /// The text of a cell after a click at `at`; nothing when the click changes nothing. `text` is what it shows now.
    virtual std::optional<std::string> textAfterClick(const CellArea& cell, CellPoint at,
                                                      const std::string& text) const;
    /// The text of a cell after a key that types this character; nothing when the key means nothing to it.
    virtual std::optional<std::string> textAfterKey(char32_t key) const;

    /// Sets up the column's heading with its title and width; colours as TemplateCells::setHeading() takes them.
    void setupHeading(TemplateCells& grid, std::uint32_t textColour, std::uint32_t backColour) const;

    const util::TemplateColumn& definition() const { return m_definition; }
    bool isEditable() const { return m_editable; }

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

} // namespace TessaronResources

#endif
