#include "templates/TemplateDefinitions.h"

#include "templates/TemplateMatch.h"
#include "templates/columns/ColumnKinds.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

namespace type = util::templateColumnType;
namespace keys = util::keys;
using namespace TessaronResources;

namespace
{

util::TechnologyExpertData makeExpertData()
{
    util::TechnologyExpertData data;
    data.partMaterials = {{1, "material"}};
    data.hardnessScales = {{2, "scale"}};
    data.partHoldings = {{3, "holding"}};
    data.toolCoatings = {{4, "coating"}};
    data.machineTapers = {{5, "taper"}};
    data.toolHolders = {{6, "holder"}};
    data.aggressivenesses = {{7, "aggressiveness"}};
    return data;
}

typedef std::vector<util::TemplateColumn> Columns;

Columns columnsOf(int kind, bool titleVariant)
{
    return defaultTemplateColumns(kind, titleVariant, makeExpertData());
}

TEST(DefaultColumns, EveryColumnShowsWhatItsTemplateHolds)
{
    for (const int kind : {operationKind::milling, operationKind::turning})
        for (const bool titleVariant : {true, false})
        {
            const Columns columns = columnsOf(kind, titleVariant);
            EXPECT_EQ(columns.size(), kind == operationKind::milling ? 26U : 9U);
            EXPECT_EQ(columns.front().key, std::string(keys::templateName)) << "the first column is never hidden";
            std::set<std::string> different;
            for (const util::TemplateColumn& column : columns)
            {
                SCOPED_TRACE(column.title);
                EXPECT_TRUE(column.shown && column.offered);
                EXPECT_TRUE(different.insert(column.key).second && different.insert("title " + column.title).second);
                EXPECT_EQ(column.options.empty(), column.type != type::list);
                util::Parameterized set;
                if (column.type == type::text || column.type == type::date)
                    set.set(column.key, std::string("1700000000"));
                else
                    set.set(column.key, column.options.empty() ? 4 : column.options.front().first);
                EXPECT_NE(makeGridColumn(column, true)->format(set), "");
            }
        }
    EXPECT_TRUE(columnsOf(2, true).empty());
}

TEST(DefaultColumns, ListsOfferTheirOwnPartOfTheExpertData)
{
    std::map<std::string, std::string> offered;
    for (const util::TemplateColumn& column : columnsOf(operationKind::milling, true))
        if (!column.options.empty())
            offered[column.key] = column.options.front().second;
    EXPECT_EQ(offered, (std::map<std::string, std::string>{{keys::partMaterialType, "material"},
                                                           {keys::partMaterialHardnessType, "scale"},
                                                           {keys::partHoldingType, "holding"},
                                                           {keys::toolCoatingType, "coating"},
                                                           {keys::machineTaperType, "taper"},
                                                           {keys::toolHolderType, "holder"},
                                                           {keys::aggressivenessType, "aggressiveness"}}));
}

TEST(DefaultColumns, TheTitleVariantDiffersInFourColumnsOfMilling)
{
    const Columns longTitles = columnsOf(operationKind::milling, true);
    const Columns shortTitles = columnsOf(operationKind::milling, false);
    std::vector<std::string> different;
    for (std::size_t i = 0; i < longTitles.size(); ++i)
        if (longTitles[i] != shortTitles[i])
            different.push_back(shortTitles[i].title + ": " + shortTitles[i].key);
    EXPECT_EQ(different, (std::vector<std::string>{"Tool Lower Radius: Tool Corner Radius", "Flutes: Tool Num Flutes",
                                                   "Flute Length: Tool Flut Length", "Traversal Rate: High Feedrate"}));
    EXPECT_EQ(columnsOf(operationKind::turning, true), columnsOf(operationKind::turning, false));
}

TEST(TemplateKinds, HaveTheirWords)
{
    EXPECT_EQ(templateKindFolder("/t", operationKind::milling), util::templatePath("/t", "tessaron"));
    EXPECT_EQ(templateKindFolder("/t", operationKind::turning), util::templatePath("/t", "orrimant"));
    EXPECT_EQ(templateDefinitionsName(operationKind::turning), "orrimant_template_info");
    EXPECT_NE(templateDefinitionsName(operationKind::milling), templateDefinitionsName(operationKind::turning));
    EXPECT_EQ(templateNamePrefix(operationKind::milling), "TESSARON");
    EXPECT_EQ(templateNamePrefix(operationKind::turning), "ORRIMANT");
    EXPECT_EQ(templateNamePrefix(5), "ORRIMANT");
}

TEST(MatchFilter, ComparesTheToolWithinATolerance)
{
    const util::Key reals[] = {keys::toolDiameter, keys::toolLowerRadius, keys::toolTaperAngle,
                               keys::toolTipAngle, keys::toolLength,      keys::toolFlutLength};
    util::Parameterized current;
    double value = 1.0;
    for (const util::Key& key : reals)
        current.set(key, value += 1.5);
    current.set(keys::toolNumFlutes, 4);

    EXPECT_TRUE(matchesFilter(matchFilter::sameTool, current, current));
    for (const util::Key& key : reals)
    {
        const bool isDiameter = std::string(key) == std::string(keys::toolDiameter);
        for (const double difference : {0.9e-8, 1.1e-8, -0.9e-8, -1.1e-8, 1.0})
        {
            util::Parameterized set = current;
            set.set(key, *current.findDouble(key) + difference);
            const bool equal = std::abs(difference) < 1e-8;
            EXPECT_EQ(matchesFilter(matchFilter::sameTool, set, current), equal) << key.c_str() << difference;
            EXPECT_EQ(matchesFilter(matchFilter::sameToolDiameter, set, current), equal || !isDiameter);
            EXPECT_TRUE(matchesFilter(matchFilter::all, set, current));
            EXPECT_TRUE(matchesFilter(7, set, current));
        }
        util::Parameterized without = current;
        without.erase(key);
        EXPECT_FALSE(matchesFilter(matchFilter::sameTool, without, current));
        EXPECT_TRUE(matchesFilter(matchFilter::sameTool, without, without));
    }
    util::Parameterized otherFlutes = current;
    otherFlutes.set(keys::toolNumFlutes, 5);
    EXPECT_FALSE(matchesFilter(matchFilter::sameTool, otherFlutes, current));
    EXPECT_TRUE(matchesFilter(matchFilter::sameToolDiameter, otherFlutes, current));
    otherFlutes.set(keys::toolNumFlutes, 4.0);
    EXPECT_TRUE(matchesFilter(matchFilter::sameTool, otherFlutes, current)) << "some programs store whole reals";
    current.set(keys::toolNumFlutes, 6.0);
    EXPECT_FALSE(matchesFilter(matchFilter::sameTool, otherFlutes, current));
    EXPECT_EQ(matchFilterTexts().size(), 3U);
}

} // namespace
