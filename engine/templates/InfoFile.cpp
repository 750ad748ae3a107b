#include "engine/templates/InfoFile.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace util::store
{

namespace
{

/// Each set says what it describes, under this key.
constexpr const char* kindKey = "kind";
constexpr const char* viewKind = "template view";
constexpr const char* columnKind = "template column";
constexpr const char* folderKind = "template folder";

constexpr const char* pathKey = "path";
constexpr const char* optionCountKey = "option_count";
constexpr const char* sortCountKey = "sort_count";

/// A field of a record and the key it is filed under.
template <class Record, class Value>
struct Field
{
    const char* key;
    Value Record::*member;
};
template <class Record, class Value>
Field(const char*, Value Record::*) -> Field<Record, Value>;

constexpr auto viewFields = std::make_tuple(Field{"window_width", &TemplateInfo::windowWidth},
                                            Field{"window_height", &TemplateInfo::windowHeight},
                                            Field{"heading_height", &TemplateInfo::headingHeight},
                                            Field{"heading_text_colour", &TemplateInfo::headingTextColour},
                                            Field{"heading_back_colour", &TemplateInfo::headingBackColour});

constexpr auto preferenceFields =
    std::make_tuple(Field{"load_saved_templates", &TemplatePreferences::loadSavedTemplates},
                    Field{"match_filter", &TemplatePreferences::matchFilter},
                    Field{"auto_size_columns", &TemplatePreferences::autoSizeColumns},
                    Field{"auto_size_rows", &TemplatePreferences::autoSizeRows},
                    Field{"font", &TemplatePreferences::font}, Field{"theme", &TemplatePreferences::theme});

constexpr auto columnFields =
    std::make_tuple(Field{"title", &TemplateColumn::title}, Field{"key", &TemplateColumn::key},
                    Field{"format", &TemplateColumn::format}, Field{"type", &TemplateColumn::type},
                    Field{"width", &TemplateColumn::width}, Field{"shown", &TemplateColumn::shown},
                    Field{"offered", &TemplateColumn::offered});

void put(Parameterized& set, const std::string& key, int value)
{
    set.set(key, value);
}
void put(Parameterized& set, const std::string& key, bool value)
{
    set.set(key, value ? 1 : 0);
}
void put(Parameterized& set, const std::string& key, std::uint32_t value)
{
    set.set(key, static_cast<int>(value));
}
void put(Parameterized& set, const std::string& key, const std::string& value)
{
    set.set(key, value);
}

void get(const Parameterized& set, const std::string& key, int& value)
{
    value = set.intOr(key, value);
}
void get(const Parameterized& set, const std::string& key, bool& value)
{
    value = set.intOr(key, value ? 1 : 0) != 0;
}
void get(const Parameterized& set, const std::string& key, std::uint32_t& value)
{
    value = static_cast<std::uint32_t>(set.intOr(key, static_cast<int>(value)));
}
void get(const Parameterized& set, const std::string& key, std::string& value)
{
    value = set.stringOr(key, value);
}

template <class Record, class Fields>
void putFields(Parameterized& set, const Record& record, const Fields& fields)
{
    std::apply([&](const auto&... field) { (put(set, field.key, record.*field.member), ...); }, fields);
}

template <class Record, class Fields>
void getFields(const Parameterized& set, Record& record, const Fields& fields)
{
    std::apply([&](const auto&... field) { (get(set, field.key, record.*field.member), ...); }, fields);
}

std::string numbered(const char* word, std::size_t number, const char* part)
{
    return std::string(word) + "_" + std::to_string(number) + "_" + part;
}

/// A stored count. A damaged one cannot make a reader collect more entries than the set has.
std::size_t count(const Parameterized& set, const char* key)
{
    const int stored = set.intOr(key, 0);
    return stored < 0 ? 0 : std::min(static_cast<std::size_t>(stored), set.size());
}

bool isKind(const Parameterized& set, const char* kind)
{
    return set.stringOr(kindKey, "") == kind;
}

Parameterized setOfColumn(const TemplateColumn& column)
{
    Parameterized set;
    set.set(kindKey, std::string(columnKind));
    putFields(set, column, columnFields);
    set.set(optionCountKey, static_cast<int>(column.options.size()));
    for (std::size_t i = 0; i < column.options.size(); ++i)
    {
        set.set(numbered("option", i, "code"), column.options[i].first);
        set.set(numbered("option", i, "text"), column.options[i].second);
    }
    return set;
}

TemplateColumn columnOfSet(const Parameterized& set)
{
    TemplateColumn column;
    getFields(set, column, columnFields);
    for (std::size_t i = 0; i < count(set, optionCountKey); ++i)
        column.options.emplace_back(set.intOr(numbered("option", i, "code"), 0),
                                    set.stringOr(numbered("option", i, "text"), ""));
    return column;
}

} // namespace

std::vector<Parameterized> setsOfInfo(const TemplateInfo& info)
{
    Parameterized view;
    view.set(kindKey, std::string(viewKind));
    putFields(view, info, viewFields);
    putFields(view, info.preferences, preferenceFields);
    view.set(sortCountKey, static_cast<int>(info.sortLevels.size()));
    for (std::size_t i = 0; i < info.sortLevels.size(); ++i)
    {
        view.set(numbered("sort", i, "key"), info.sortLevels[i].key);
        view.set(numbered("sort", i, "descending"), info.sortLevels[i].descending ? 1 : 0);
    }

    std::vector<Parameterized> sets = {view};
    for (const TemplateColumn& column : info.columns)
        sets.push_back(setOfColumn(column));
    return sets;
}

bool infoOfSets(const std::vector<Parameterized>& sets, TemplateInfo& info)
{
    if (sets.empty() || !isKind(sets.front(), viewKind))
        return false;
    const Parameterized& view = sets.front();
    TemplateInfo read;
    getFields(view, read, viewFields);
    getFields(view, read.preferences, preferenceFields);
    for (std::size_t i = 0; i < count(view, sortCountKey); ++i)
        read.sortLevels.push_back(
            {view.stringOr(numbered("sort", i, "key"), ""), view.intOr(numbered("sort", i, "descending"), 0) != 0});
    for (std::size_t i = 1; i < sets.size(); ++i)
    {
        if (!isKind(sets[i], columnKind))
            return false;
        read.columns.push_back(columnOfSet(sets[i]));
    }
    info = std::move(read);
    return true;
}

std::vector<Parameterized> setsOfFolders(const std::vector<std::string>& folders)
{
    std::vector<Parameterized> sets;
    for (const std::string& folder : folders)
    {
        Parameterized set;
        set.set(kindKey, std::string(folderKind));
        set.set(pathKey, folder);
        sets.push_back(std::move(set));
    }
    return sets;
}

bool foldersOfSets(const std::vector<Parameterized>& sets, std::vector<std::string>& folders)
{
    std::vector<std::string> read;
    for (const Parameterized& set : sets)
    {
        const std::string* const path = isKind(set, folderKind) ? set.findString(pathKey) : nullptr;
        if (!path)
            return false;
        read.push_back(*path);
    }
    folders = std::move(read);
    return true;
}

} // namespace util::store
