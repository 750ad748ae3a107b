#include "templates/TemplateDefinitions.h"

#include "templates/TemplateMatch.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <cmath>

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

/// A column in one line: title, key, type, format, width and the first option.
std::string line(const util::TemplateColumn& column)
{
    return column.title + "|" + column.key + "|" + std::to_string(column.type) + "|" + column.format + "|" +
           std::to_string(column.width) + "|" + (column.options.empty() ? "" : column.options.front().second) +
           (column.shown && column.offered ? "" : "|hidden");
}

std::vector<std::string> lines(int kind, bool titleVariant)
{
    std::vector<std::string> result;
    for (const util::TemplateColumn& column : defaultTemplateColumns(kind, titleVariant, makeExpertData()))
        result.push_back(line(column));
    return result;
}

// Written out a second time on purpose: users and hosts rely on every word of it.
const std::vector<std::string> milling = {
    "Name|Template Name|30|%s|96|",
    "Part Material|Part Material Type|50|%d|96|material",
    "Material|Material|30|%s|96|",
    "Hardness|Part Material Hardness|20|%g|96|",
    "Tool Diameter|Tool Diameter|20|%g|96|",
    "Tool Corner Radius|Tool Corner Radius|20|%g|96|",
    "Tool Num Flutes|Tool Num Flutes|10|%d|96|",
    "Tool Length of Cut|Tool Length of Cut|20|%g|96|",
    "High Feed Rate|High Feedrate|20|%g|96|",
    "Tool Stick Out Length|Tool Stick Out Length|20|%g|96|",
    "Tool Holder|Tool Holder Type|50|%d|96|holder",
    "Machine Tool|Machine Tool|30|%s|96|",
    "Description|Template Description|30|%s|128|",
    "Comments|Template Comments|30|%s|128|",
    "Machine Taper|Machine Taper Type|50|%d|96|taper",
    "Hardness Scale|Part Material Hardness Type|50|%d|96|scale",
    "Part Holding|Part Holding Type|50|%d|96|holding",
    "Tool Coating|Tool Coating Type|50|%d|96|coating",
    "Recommendations|Aggressiveness Type|50|%d|156|aggressiveness",
    "XY Rapid Feed Rate|XY Rapid Feed Rate|20|%g|96|",
    "Z Rapid Feed Rate|Z Rapid Feed Rate|20|%g|96|",
    "Maximum Spindle Speed|Maximum Spindle Speed|10|%d|96|",
    "Maximum Feed Rate|Maximum Feedrate|20|%g|96|",
    "Date Modified|Template Date Modified|40|%Y-%m-%d %H:%M:%S|130|",
    "Date Created|Template Date Created|40|%Y-%m-%d %H:%M:%S|130|",
    "Rating|Template Rating|60|%g|96|",
};

TEST(DefaultColumns, MillingWithTheTitleVariant)
{
    EXPECT_EQ(lines(operationKind::milling, true), milling);
}

TEST(DefaultColumns, MillingWithoutTheTitleVariantDiffersInFourRows)
{
    std::vector<std::string> expected = milling;
    expected[5] = "Tool Lower Radius|Tool Corner Radius|20|%g|96|";
    expected[6] = "Flutes|Tool Num Flutes|10|%d|96|";
    expected[7] = "Flute Length|Tool Flut Length|20|%g|96|";
    expected[8] = "Traversal Rate|High Feedrate|20|%g|96|";
    EXPECT_EQ(lines(operationKind::milling, false), expected);
}

TEST(DefaultColumns, Turning)
{
    const std::vector<std::string> expected = {
        "Name|Template Name|30|%s|96|",
        "Insert Shape|Tool Insert Shape|30|%s|96|",
        "Nose Radius|Tool Nose Radius|20|%g|96|",
        "Machine Tool|Machine Tool|30|%s|96|",
        "Description|Template Description|30|%s|128|",
        "Comments|Template Comments|30|%s|128|",
        "Date Modified|Template Date Modified|40|%Y-%m-%d %H:%M:%S|130|",
        "Date Created|Template Date Created|40|%Y-%m-%d %H:%M:%S|130|",
        "Rating|Template Rating|60|%g|96|",
    };
    EXPECT_EQ(lines(operationKind::turning, true), expected);
    EXPECT_EQ(lines(operationKind::turning, false), expected);
    EXPECT_TRUE(lines(2, true).empty());
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
    EXPECT_EQ(matchFilterTexts().size(), 3U);
}

} // namespace
