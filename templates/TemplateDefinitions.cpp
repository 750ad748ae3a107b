#include "templates/TemplateDefinitions.h"

#include "engine/TemplateStore.h"
#include "exchange/StatusTable.h"
#include "util/Keys.h"

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
    {"Name", keys::templateName, type::text, "%s", 96, noList},
    {"Part Material", keys::partMaterialType, type::list, "%d", 96, &Expert::partMaterials},
    {"Material", keys::material, type::text, "%s", 96, noList},
    {"Hardness", keys::partMaterialHardness, type::real, "%g", 96, noList},
    {"Tool Diameter", keys::toolDiameter, type::real, "%g", 96, noList},
    {"Tool Corner Radius", keys::toolCornerRadius, type::real, "%g", 96, noList, "Tool Lower Radius"},
    {"Tool Num Flutes", keys::toolNumFlutes, type::integer, "%d", 96, noList, "Flutes"},
    {"Tool Length of Cut", keys::toolLengthOfCut, type::real, "%g", 96, noList, "Flute Length", &keys::toolFlutLength},
    {"High Feed Rate", keys::highFeedrate, type::real, "%g", 96, noList, "Traversal Rate"},
    {"Tool Stick Out Length", keys::toolStickOutLength, type::real, "%g", 96, noList},
    {"Tool Holder", keys::toolHolderType, type::list, "%d", 96, &Expert::toolHolders},
    {"Machine Tool", keys::machineTool, type::text, "%s", 96, noList},
    {"Description", keys::templateDescription, type::text, "%s", 128, noList},
    {"Comments", keys::templateComments, type::text, "%s", 128, noList},
    {"Machine Taper", keys::machineTaperType, type::list, "%d", 96, &Expert::machineTapers},
    {"Hardness Scale", keys::partMaterialHardnessType, type::list, "%d", 96, &Expert::hardnessScales},
    {"Part Holding", keys::partHoldingType, type::list, "%d", 96, &Expert::partHoldings},
    {"Tool Coating", keys::toolCoatingType, type::list, "%d", 96, &Expert::toolCoatings},
    {"Recommendations", keys::aggressivenessType, type::list, "%d", 156, &Expert::aggressivenesses},
    {"XY Rapid Feed Rate", keys::xyRapidFeedRate, type::real, "%g", 96, noList},
    {"Z Rapid Feed Rate", keys::zRapidFeedRate, type::real, "%g", 96, noList},
    {"Maximum Spindle Speed", keys::maximumSpindleSpeed, type::integer, "%d", 96, noList},
    {"Maximum Feed Rate", keys::maximumFeedrate, type::real, "%g", 96, noList},
    {"Date Modified", keys::templateDateModified, type::date, dateFormat, 130, noList},
    {"Date Created", keys::templateDateCreated, type::date, dateFormat, 130, noList},
    {"Rating", keys::templateRating, type::rating, "%g", 96, noList},
}};

constexpr std::array<DefaultColumn, 9> turningColumns = {{
    {"Name", keys::templateName, type::text, "%s", 96, noList},
    {"Insert Shape", keys::toolInsertShape, type::text, "%s", 96, noList},
    {"Nose Radius", keys::toolNoseRadius, type::real, "%g", 96, noList},
    {"Machine Tool", keys::machineTool, type::text, "%s", 96, noList},
    {"Description", keys::templateDescription, type::text, "%s", 128, noList},
    {"Comments", keys::templateComments, type::text, "%s", 128, noList},
    {"Date Modified", keys::templateDateModified, type::date, dateFormat, 130, noList},
    {"Date Created", keys::templateDateCreated, type::date, dateFormat, 130, noList},
    {"Rating", keys::templateRating, type::rating, "%g", 96, noList},
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
                                            util::TemplateInfo& info, TemplateUser& user)
{
    util::TechnologyExpertData expertData;
    int code = util::getTechnologyExpertData(&expertData);
    if (code != status::ok)
    {
        user.showError(exchange::statusText(code));
        return DefinitionsState::failed;
    }
    DefinitionsState state = DefinitionsState::loaded;
    code = util::loadTemplateDefs(folder, templateDefinitionsName(kind), &info);
    if (code == status::templateColumnsMissing)
    {
        info = util::TemplateInfo();
        info.columns = defaultTemplateColumns(kind, titleVariant, expertData);
        code = util::saveTemplateDefs(folder, templateDefinitionsName(kind), info);
        state = DefinitionsState::created;
    }
    else if (code != status::ok)
        state = DefinitionsState::failed;
    if (code != status::ok)
        user.showError(exchange::statusText(code));
    return state;
}

} // namespace TessaronResources
