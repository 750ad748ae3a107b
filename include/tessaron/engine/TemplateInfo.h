#ifndef TESSARON_ENGINE_TEMPLATEINFO_H
#define TESSARON_ENGINE_TEMPLATEINFO_H

// Stability: stable.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace util
{

/// The choices of a list column: integer code, as stored in templates, and the text shown for it. Codes are unique.
typedef std::vector<std::pair<int, std::string>> TemplateOptions;

/// Kinds of value a template column can show. Any other number is treated as text.
namespace templateColumnType
{
constexpr int integer = 10;
constexpr int real = 20;
constexpr int text = 30;
constexpr int date = 40;   ///< a text holding the decimal number of seconds since 1970-01-01 00:00:00 UTC
constexpr int list = 50;   ///< an integer code out of TemplateColumn::options
constexpr int rating = 60; ///< a real shown as a rating
} // namespace templateColumnType

/// One column of the template manager.
struct TemplateColumn
{
    std::string title;  ///< heading shown to the user
    std::string key;    ///< parameter name whose value the column shows
    std::string format; ///< printf format for one value ("%s", "%d", "%g"); for dates a strftime format
    TemplateOptions options;
    int type = templateColumnType::text;
    int width = 96;      ///< pixels
    bool shown = true;   ///< the user's choice: is the column visible?
    bool offered = true; ///< a column that is not offered gets no place in the grid at all, whatever `shown` says

    bool operator==(const TemplateColumn& other) const
    {
        return title == other.title && key == other.key && format == other.format && options == other.options &&
               type == other.type && width == other.width && shown == other.shown && offered == other.offered;
    }
    bool operator!=(const TemplateColumn& other) const { return !(*this == other); }
};

/// One level of a sort by several columns.
struct TemplateSortLevel
{
    std::string key; ///< key of the column
    bool descending = false;

    bool operator==(const TemplateSortLevel& other) const { return key == other.key && descending == other.descending; }
    bool operator!=(const TemplateSortLevel& other) const { return !(*this == other); }
};

/// What the user set in the preferences of the template manager. A default-constructed record holds the defaults.
struct TemplatePreferences
{
    bool loadSavedTemplates = false; ///< a saved template is loaded back into the operation
    int matchFilter = 0;             ///< 0: all templates, 1: same tool diameter, 2: same tool
    bool autoSizeColumns = false;    ///< column widths follow the contents
    bool autoSizeRows = true;        ///< row heights follow the contents
    std::string font;                ///< the toolkit's own description of the grid font; empty: the grid's own
    int theme = -1;                  ///< visual theme that the user chose, for hosts that ask for none; -1: none

    bool operator==(const TemplatePreferences& other) const
    {
        return loadSavedTemplates == other.loadSavedTemplates && matchFilter == other.matchFilter &&
               autoSizeColumns == other.autoSizeColumns && autoSizeRows == other.autoSizeRows && font == other.font &&
               theme == other.theme;
    }
    bool operator!=(const TemplatePreferences& other) const { return !(*this == other); }
};

/// The layout of the template manager, stored by the engine next to the templates ("template definitions").
struct TemplateInfo
{
    /// A colour field of this value holds no colour.
    static constexpr std::uint32_t noColour = 0xFFFFFFFFU;

    std::vector<TemplateColumn> columns;        ///< in display order
    int windowWidth = 1024;                     ///< pixels
    int windowHeight = 640;                     ///< pixels
    int headingHeight = -1;                     ///< height of the heading row in pixels; -1: the grid's own
    std::uint32_t headingTextColour = noColour; ///< 0x00RRGGBB
    std::uint32_t headingBackColour = noColour; ///< 0x00RRGGBB
    std::vector<TemplateSortLevel> sortLevels;  ///< the sort last chosen, first level first
    TemplatePreferences preferences;

    bool operator==(const TemplateInfo& other) const
    {
        return columns == other.columns && windowWidth == other.windowWidth && windowHeight == other.windowHeight &&
               headingHeight == other.headingHeight && headingTextColour == other.headingTextColour &&
               headingBackColour == other.headingBackColour && sortLevels == other.sortLevels &&
               preferences == other.preferences;
    }
    bool operator!=(const TemplateInfo& other) const { return !(*this == other); }
};

} // namespace util

#endif
