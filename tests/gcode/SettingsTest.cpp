// The table of settings: each changes the program as it says, and takes what it says.
#include "tests/gcode/Interpreter.h"
#include "tests/gcode/Programs.h"
#include "tests/support/TemporaryFolder.h"

namespace testing_support
{
namespace
{

using exchange::GcodeError;
using exchange::GcodeSettings;
typedef geom::PointNd<3> Point;

/// A toolpath in which every setting shows.
exchange::ToolpathRecords toolpath()
{
    exchange::ToolpathRecords toolpath;
    toolpath.records = {exchange::SpindleSpeed{5000},
                        exchange::FeedRate{300},
                        exchange::RapidMove{Point(1, 1, 5)},
                        exchange::RapidMove{Point(2, 2, 1)},
                        exchange::LinearMove{Point(2.1234567, 2, -1)},
                        exchange::Arc<1>{Point(4, 2, -1), 1.5},
                        exchange::CustomRecord{"Dwell 0.5"}};
    return toolpath;
}

TEST(GcodeSettings, ChangeTheProgramAsTheTableSays)
{
    const struct
    {
        const char* name;
        const char* value;
        const char* has;
        const char* hasNot;
    } cases[] = {
        {"units", "inch", "G20 G17", "G21"},
        {"decimals", "6", "X2.123457 Z-1. F300.\n", "X2.1235"},
        {"line numbers", "5", "N10 G53 G0 Z0\n", "\nG1"},
        {"arc centres", "absolute", "I3.0617", "I0.9383"},
        {"centre decimals", "2", "J1.170319\n", "J1.17032\n"},
        {"arc angle", "30", "G3 X4. Y2. I", "G3 X4. Y2. I0.9382"},
        {"split rapids", "no", "G0 X2. Y2. Z1.\n", "G0 Z1.\n"},
        {"percent", "no", "M30\n", "%"},
        {"program number", "77", "%\nO77\n", "O0"},
        {"title", "Pocket (1)", "(Toolpath: Pocket [1])\n", "Pocket ("},
        {"tool", "12", "T12 M6\nG43 H12\n", "T0"},
        {"spindle", "ccw", "S5000 M4\n", "M3\n"},
        {"coolant", "mist", "M7\n", "M8"},
        {"dwell", "ms", "G4 P500\n", "P0.5"},
        {"start", "G17 G90", "G21 G17 G90\n", "G40"},
        {"retract", "", "M5\nM30\n", "G53"},
        {"end", "M2", "M2\n", "M30"},
    };
    const std::string usual = written(toolpath());
    for (const auto& one : cases)
    {
        GcodeSettings settings;
        exchange::setGcodeSetting(settings, one.name, one.value);
        EXPECT_EQ(exchange::gcodeSetting(settings, one.name), one.value);
        const std::string text = written(toolpath(), settings);
        EXPECT_NE(text.find(one.has), std::string::npos) << one.name << "\n" << text;
        EXPECT_EQ(text.find(one.hasNot), std::string::npos) << one.name << "\n" << text;
        EXPECT_TRUE(usual.find(one.has) == std::string::npos || usual.find(one.hasNot) != std::string::npos)
            << one.name << " changes nothing that the test sees\n"
            << usual;
    }
}

TEST(GcodeSettings, SayWhatBecomesOfTextsOfTheHost)
{
    exchange::ToolpathRecords records = toolpath();
    records.records.emplace_back(exchange::CustomRecord{"MSG,(M0)"});
    GcodeSettings settings;
    EXPECT_THROW(written(records, settings), GcodeError);
    exchange::setGcodeSetting(settings, "free text", "comment");
    EXPECT_NE(written(records, settings).find("(Text: MSG,[M0])\n"), std::string::npos);
    exchange::setGcodeSetting(settings, "comments", "no");
    EXPECT_EQ(written(records, settings).find("MSG"), std::string::npos);
    exchange::setGcodeSetting(settings, "free text", "block");
    EXPECT_NE(written(records, settings).find("\nMSG,(M0)\n"), std::string::npos);
    records.records.back() = exchange::CustomRecord{"M0\nM30"};
    EXPECT_THROW(written(records, settings), GcodeError);
}

TEST(GcodeSettings, RefuseWhatTheyDoNotTake)
{
    const struct
    {
        const char* name;
        const char* value;
    } cases[] = {{"units", "cm"},       {"decimals", "2"},      {"decimals", "9"},     {"decimals", "4.5"},
                 {"decimals", ""},      {"line numbers", "-1"}, {"arc angle", "360"},  {"comments", "true"},
                 {"tool", "1000000"},   {"dwell", "min"},       {"start", "G17\nM30"}, {"end", "%"},
                 {"coolant", "Flood"},  {"Units", "mm"},        {"line number", "10"}, {"program number", "1e3"},
                 {"retract", "G0 Z\t1"}};
    for (const auto& bad : cases)
    {
        GcodeSettings settings;
        recordRefused([&] { exchange::setGcodeSetting(settings, bad.name, bad.value); },
                      '"' + std::string(bad.name) + '"');
        EXPECT_EQ(written(toolpath(), settings), written(toolpath()));
    }
}

TEST(GcodeSettings, AreCheckedBeforeAnythingIsWritten)
{
    GcodeSettings coarseInches;
    coarseInches.units = GcodeSettings::Units::inches;
    coarseInches.decimals = 3;
    GcodeSettings smallAngle;
    smallAngle.arcAngle = 1;
    GcodeSettings badBlock;
    badBlock.end = "M30\nM3";
    for (const GcodeSettings& settings : {coarseInches, smallAngle, badBlock})
    {
        std::ostringstream stream;
        EXPECT_THROW(exchange::writeGcode(stream, toolpath(), settings), GcodeError);
        EXPECT_EQ(stream.str(), "");
    }
}

TEST(GcodeSettings, NumberLinesWithinWhatControlsTake)
{
    exchange::ToolpathRecords records = toolpath();
    for (int i = 0; i < 300; ++i)
        records.records.emplace_back(exchange::LinearMove{Point(i % 2, 0, 0)});
    GcodeSettings settings;
    settings.lineNumbers = 1000;
    const rs274::Program program = rs274::interpret(written(records, settings));
    ASSERT_GT(program.lineNumbers.size(), 300u);
    for (const int number : program.lineNumbers)
        EXPECT_TRUE(number >= 1000 && number <= 99999) << number;
}

TEST(GcodeSettings, AreThoseOfTheDocumentation)
{
    const std::string page = readBytes(TESSARON_DOCS "/gcode.md");
    const GcodeSettings usual;
    for (const exchange::GcodeSetting& setting : exchange::gcodeSettings())
    {
        std::string row = "| `";
        row.append(setting.name).append("` | ").append(setting.values).append(" | ");
        if (const std::string value = exchange::gcodeSetting(usual, setting.name); !value.empty())
            row.append("`").append(value).append("` ");
        row.append("| ").append(setting.effect).append(" |\n");
        EXPECT_NE(page.find(row), std::string::npos) << "docs/gcode.md lacks the row:\n" << row;
    }
}

} // namespace
} // namespace testing_support
