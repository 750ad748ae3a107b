#include "templates/TemplateDefinitions.h"

#include "frame/Translation.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <array>

namespace TessaronResources
{

namespace
{

namespace keys = util::keys;
namespace status = exchange::status;
namespace type = util::templateColumnType;

typedef util::TechnologyExpertData::List util::TechnologyExpertData::*ExpertList;
constexpr ExpertList noList = nullptr;
typedef util::TechnologyExpertData Expert;

constexpr const char* dateFormat = "%Y-%m-%d %H:%M:%S";

struct DefaultColumn
{
    const char* title;
    util::Key key;
    int type;
    const char* format;
    int width;
    ExpertList options;
    // Without the title variant, where they differ.
    const char* shortTitle = nullptr;
    const util::Key* shortKey = nullptr;
};

constexpr std::array<DefaultColumn, 26> millingColumns = {{
    {translatable("Name"), keys::templateName, type::text, "%s", 96, noList},
    {translatable("Part Material"), keys::partMaterialType, type::list, "%d", 96, &Expert::partMaterials},
    {translatable("Material"), keys::material, type::text, "%s", 96, noList},
    {translatable("Hardness"), keys::partMaterialHardness, type::real, "%g", 96, noList},
    {translatable("Tool Diameter"), keys::toolDiameter, type::real, "%g", 96, noList},
    {translatable("Tool Corner Radius"), keys::toolCornerRadius, type::real, "%g", 96, noList,
     translatable("Tool Lower Radius")},
    {translatable("Tool Num Flutes"), keys::toolNumFlutes, type::integer, "%d", 96, noList, translatable("Flutes")},
    {translatable("Tool Length of Cut"), keys::toolLengthOfCut, type::real, "%g", 96, noList,
     translatable("Flute Length"), &keys::toolFlutLength},
    {translatable("High Feed Rate"), keys::highFeedrate, type::real, "%g", 96, noList, translatable("Traversal Rate")},
    {translatable("Tool Stick Out Length"), keys::toolStickOutLength, type::real, "%g", 96, noList},
    {translatable("Tool Holder"), keys::toolHolderType, type::list, "%d", 96, &Expert::toolHolders},
    {translatable("Machine Tool"), keys::machineTool, type::text, "%s", 96, noList},
    {translatable("Description"), keys::templateDescription, type::text, "%s", 128, noList},
    {translatable("Comments"), keys::templateComments, type::text, "%s", 128, noList},
    {translatable("Machine Taper"), keys::machineTaperType, type::list, "%d", 96, &Expert::machineTapers},
    {translatable("Hardness Scale"), keys::partMaterialHardnessType, type::list, "%d", 96, &Expert::hardnessScales},
    {translatable("Part Holding"), keys::partHoldingType, type::list, "%d", 96, &Expert::partHoldings},
    {translatable("Tool Coating"), keys::toolCoatingType, type::list, "%d", 96, &Expert::toolCoatings},
    {translatable("Recommendations"), keys::aggressivenessType, type::list, "%d", 156, &Expert::aggressivenesses},
    {translatable("XY Rapid Feed Rate"), keys::xyRapidFeedRate, type::real, "%g", 96, noList},
    {translatable("Z Rapid Feed Rate"), keys::zRapidFeedRate, type::real, "%g", 96, noList},
    {translatable("Maximum Spindle Speed"), keys::maximumSpindleSpeed, type::integer, "%d", 96, noList},
    {translatable("Maximum Feed Rate"), keys::maximumFeedrate, type::real, "%g", 96, noList},
    {translatable("Date Modified"), keys::templateDateModified, type::date, dateFormat, 130, noList},
    {translatable("Date Created"), keys::templateDateCreated, type::date, dateFormat, 130, noList},
    {translatable("Rating"), keys::templateRating, type::rating, "%g", 96, noList},
}};

constexpr std::array<DefaultColumn, 9> turningColumns = {{
    {translatable("Name"), keys::templateName, type::text, "%s", 96, noList},
    {translatable("Insert Shape"), keys::toolInsertShape, type::text, "%s", 96, noList},
    {translatable("Nose Radius"), keys::toolNoseRadius, type::real, "%g", 96, noList},
    {translatable("Machine Tool"), keys::machineTool, type::text, "%s", 96, noList},
    {translatable("Description"), keys::templateDescription, type::text, "%s", 128, noList},
    {translatable("Comments"), keys::templateComments, type::text, "%s", 128, noList},
    {translatable("Date Modified"), keys::templateDateModified, type::date, dateFormat, 130, noList},
    {translatable("Date Created"), keys::templateDateCreated, type::date, dateFormat, 130, noList},
    {translatable("Rating"), keys::templateRating, type::rating, "%g", 96, noList},
}};

util::TemplateColumn makeColumn(const DefaultColumn& row, bool titleVariant, const Expert& expertData)
{
    util::TemplateColumn column;
    column.title = !titleVariant && row.shortTitle ? row.shortTitle : row.title;
    column.key = !titleVariant && row.shortKey ? row.shortKey->c_str() : row.key.c_str();
    column.type = row.type;
    column.format = row.format;
    column.width = row.width;
    if (row.options)
        column.options = util::templateOptions(expertData.*row.options);
    return column;
}

int storeDefaults(const std::string& folder, int kind, bool titleVariant, const Expert& expertData,
                  util::TemplateInfo& info)
{
    info = util::TemplateInfo();
    info.columns = defaultTemplateColumns(kind, titleVariant, expertData);
    return util::saveTemplateDefs(folder, templateDefinitionsName(kind), info);
}

const char* kindWord(int kind)
{
    return kind == operationKind::milling ? keys::folderTessaron.c_str() : keys::folderOrrimant.c_str();
}

} // namespace

std::string templateKindFolder(const std::string& templateFolder, int kind)
{
    return util::templatePath(templateFolder, kindWord(kind));
}

std::string templateDefinitionsName(int kind)
{
    if (kind == operationKind::milling)
        return std::string(keys::folderTessaron).append("_template_info");
    return keys::orrimantTemplateInfo;
}

std::string templateNamePrefix(int kind)
{
    return kind == operationKind::milling ? "TESSARON" : "ORRIMANT";
}

std::vector<util::TemplateColumn> defaultTemplateColumns(int kind, bool titleVariant,
                                                         const util::TechnologyExpertData& expertData)
{
    std::vector<util::TemplateColumn> columns;
    if (kind == operationKind::milling)
        for (const DefaultColumn& row : millingColumns)
            columns.push_back(makeColumn(row, titleVariant, expertData));
    else if (kind == operationKind::turning)
        for (const DefaultColumn& row : turningColumns)
            columns.push_back(makeColumn(row, titleVariant, expertData));
    return columns;
}

DefinitionsState prepareTemplateDefinitions(const std::string& folder, int kind, bool titleVariant,
                                            util::TemplateInfo& info, int& code)
{
    util::TechnologyExpertData expertData;
    code = util::getTechnologyExpertData(&expertData);
    if (code != status::ok)
        return DefinitionsState::failed;
    code = util::loadTemplateDefs(folder, templateDefinitionsName(kind), &info);
    if (code == status::templateColumnsMissing)
    {
        code = storeDefaults(folder, kind, titleVariant, expertData, info);
        return DefinitionsState::created;
    }
    return code == status::ok ? DefinitionsState::loaded : DefinitionsState::failed;
}

int makeTemplateDefinitions(const std::string& folder, int kind, bool titleVariant, util::TemplateInfo& info)
{
    util::TechnologyExpertData expertData;
    const int code = util::getTechnologyExpertData(&expertData);
    return code == status::ok ? storeDefaults(folder, kind, titleVariant, expertData, info) : code;
}

} // namespace TessaronResources
