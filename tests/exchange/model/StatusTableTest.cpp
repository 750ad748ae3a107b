#include <tessaron/exchange/StatusTable.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace
{

using exchange::Severity;
using exchange::severity;
using exchange::statusText;

TEST(StatusTable, GivesTheExactTexts)
{
    const struct
    {
        int code;
        const char* text;
    } cases[] = {
        {-1002, "The input geometry does not define a single closed region"},
        {-1004, "The requested toolpath job does not exist"},
        {-1006, "Toolpath is corrupted; please ensure that you have the latest version of the Tessaron client"},
        {-1008, "Toolpath generation cancelled"},
        {-1012, "The tool diameter you have specified is too small"},
        {-1013, "No toolpath was generated; the tool may be too large"},
        {-1022, "No stock has been defined for this operation"},
        {-1023, "No part has been defined for this operation"},
        {-1025, "Pre-drilled holes are corrupted; please ensure that you have the latest version of the Tessaron "
                "client"},
        {-1026, "Pre-drilled holes diameter is not set"},
        {-1027, "Manually selected point is beyond the defined range distance."},
        {-1028, "Pre-Drill location is too close to the part. Please ensure that specified Pre-Drill locations are "
                "clear of any part geometry by at least the diameter of the active milling cutter."},
        {-1029, "A drill of the specified diameter is too large for the area being machined and will gouge the part. "
                "Please use a smaller-diameter drill."},
        {-1030, "Plunge type: Pre-Drill cannot be used in areas of zero cut depth."},
        {-1032, "Technology Expert database corrupted."},
        {-1033, "Technology Expert database sql syntax error."},
        {-1034, "The Technology Expert requires a tool with 2 or more flutes."},
        {-1035, "Invalid automatic Approach move."},
        {-1036, "Invalid automatic Departure move."},
        {-1037, "Invalid automatic In-Process Return move."},
        {-1038, "No path could be generated with these In-Process Return parameters"},
        {-1039, "Error writing Template file."},
        {-1040, "Error reading Template file."},
        {-1041, "Template file format error."},
        {-1042, "Template file is missing GUID."},
        {-1043, "Missing template columns file."},
        {-1044, "Template file name is missing."},
        {-1045, "Duplicated template names."},
        {-2000, "The corner radius of this tool will cause scallops to be left on the floor; you may want to adjust "
                "the stepover and/or repositioning clearance"},
        {-2001, "Some toolpath has been discarded due to Plunge Type = None. Please review resulting toolpath."},
        {-2002, "Only a portion of the toolpath could be generated with these In-Process Return parameters. Please "
                "review resulting toolpath."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(statusText(c.code), c.text) << c.code;

    const std::string start = "There was an internal error in processing; please report this problem to ";
    EXPECT_EQ(statusText(-1007).compare(0, start.size(), start), 0);
    EXPECT_NE(statusText(-1007).find('@', start.size()), std::string::npos);
}

TEST(StatusTable, OtherCodesHaveNoText)
{
    for (const int code : {0, 1, -1, -1000, -1001, -1003, -1031, -1046, -1999, -2003, 1040, INT_MIN, INT_MAX})
        EXPECT_EQ(statusText(code), "") << code;
}

TEST(StatusTable, TellsErrorsFromWarningsByTheRange)
{
    const struct
    {
        int code;
        Severity expected;
    } cases[] = {
        {0, Severity::none},        {7, Severity::none},          {-1, Severity::none},
        {-999, Severity::none},     {-1000, Severity::error},     {-1045, Severity::error},
        {-1999, Severity::error},   {-2000, Severity::warning},   {-2001, Severity::warning},
        {-9999, Severity::warning}, {INT_MIN, Severity::warning}, {INT_MAX, Severity::none},
    };
    for (const auto& c : cases)
        EXPECT_EQ(severity(c.code), c.expected) << c.code;
}

} // namespace
