#ifndef TEMPLATES_TEMPLATEFIND_H
#define TEMPLATES_TEMPLATEFIND_H

#include "frame/Translation.h"
#include "templates/TemplateRows.h"
#include "templates/columns/GridColumnInfo.h"

#include <string>
#include <vector>

namespace TessaronResources
{

/// A cell; -1, -1 is none.
struct TemplateCell
{
    int column = -1;
    int row = -1;

    bool operator==(const TemplateCell& other) const { return column == other.column && row == other.row; }
};

/// The first cell after `after` (or from the start, for none) whose shown text holds `text`, letter case ignored. Cells
/// are searched row by row, and in a row in column order; hidden columns are not searched.
TemplateCell findCell(const TemplateRows& rows, const std::vector<GridColumnPtr>& columns, const std::string& text,
                      TemplateCell after);

/// What "Find Next" does, from one press of the button to the next.
class TemplateFind
{
public:
    enum class Result
    {
        nothing, ///< the text is empty: nothing was searched
        found,   ///< hit() says where
        notFound ///< the user is to be told templateNotFoundText
    };

    /// `typed` is the text of the combo box as it stands.
    Result findNext(const std::string& typed, const TemplateRows& rows, const std::vector<GridColumnPtr>& columns);

    /// Forgets the text, so that the next one is searched for from the start, whatever it is.
    void startOver();

    /// The last hit; none after notFound.
    TemplateCell hit() const { return m_hit; }
    /// The texts searched for, each once, oldest first: the combo box's list.
    const std::vector<std::string>& history() const { return m_history; }

private:
    std::string m_text;
    bool m_exhausted = false;
    TemplateCell m_hit;
    std::vector<std::string> m_history;
};

inline constexpr const char* templateNotFoundText =
    translatable("Template Manager cannot find data you're searching for.");

} // namespace TessaronResources

#endif
