#include <tessaron/exchange/StatusTable.h>

#include <map>

namespace exchange
{

namespace
{

using Table = std::map<int, std::string>;

Table makeTable()
{
    return {
        {-1002, "The input geometry does not define a single closed region"},
        {-1004, "The requested toolpath job does not exist"},
        {-1006, "Toolpath is corrupted; please ensure that you have the latest version of the Tessaron client"},
        {-1007, "There was an internal error in processing; please report this problem to support@halvorsund.example"},
        {-1008, "Toolpath generation cancelled"},
        {-1012, "The tool diameter you have specified is too small"},
        {-1013, "No toolpath was generated; the tool may be too large"},
        {-1022, "No stock has been defined for this operation"},
        {-1023, "No part has been defined for this operation"},
        {-1025,
         "Pre-drilled holes are corrupted; please ensure that you have the latest version of the Tessaron client"},
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
}

const Table table = makeTable();
const std::string noText;

} // namespace

Severity severity(int code)
{
    if (code <= -2000)
        return Severity::warning;
    return code <= -1000 ? Severity::error : Severity::none;
}

const std::string& statusText(int code)
{
    const auto it = table.lower_bound(code);
    return it != table.end() && it->first == code ? it->second : noText;
}

} // namespace exchange
