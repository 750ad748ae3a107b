#include "engine/pocketing/Findings.h"

#include "engine/pocketing/KnownKeys.h"
#include "engine/pocketing/Place.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace exchange::pocketing
{

namespace
{

namespace keys = util::keys;

/// A finding about a place.
JobFinding at(int code, const std::string& field, std::string text, const Point& place)
{
    JobFinding finding{code, field, std::move(text)};
    finding.hasPlace = true;
    finding.x = place[0];
    finding.y = place[1];
    return finding;
}

JobFinding unusedKey(const std::string& key)
{
    if (isKnownKey(key))
        return {finding::notUsed, key, "\"" + key + "\" is set and not used by this job."};
    const std::string meant = keyMeant(key);
    return {finding::unknownKey, key,
            "\"" + key + "\" is not a parameter that this job knows" +
                (meant.empty() ? "." : "; did you mean \"" + meant + "\"?")};
}

} // namespace

std::vector<JobFinding> findInput(const Tessaron2dInput& input, const PocketingParameters& parameters)
{
    std::vector<JobFinding> findings;
    if (parameters.toolCornerRadius > 0 &&
        parameters.stepover > parameters.toolDiameter - 2 * parameters.toolCornerRadius)
        findings.push_back({status::scallopsLeft, keys::stepover, statusText(status::scallopsLeft)});
    std::set<std::string> used;
    for (const ParameterRow& row : parameterTable())
        used.insert(row.key);
    for (const auto& [key, value] : input.parameters.params())
        if (!used.contains(key) && !isDescription(key))
            findings.push_back(unusedKey(key));
    if (!input.holderProfile.empty())
        findings.push_back({finding::notUsed, {}, "The holder profile is not checked for collisions."});
    const bool holesUsed = parameters.plungeType == static_cast<int>(PlungeType::automatic) ||
                           parameters.plungeType == static_cast<int>(PlungeType::preDrill);
    if (!input.preDrilledHoles.holes.empty() && !holesUsed)
        findings.push_back(
            {finding::notUsed, keys::plungeType, "The pre-drilled holes are not used with this \"Plunge Type\"."});
    return findings;
}

void addFindings(const std::vector<Point>& unreached, const std::vector<Route>& routes, const MoveSettings& settings,
                 const PocketingParameters& parameters, const Grid& grid, std::vector<JobFinding>& findings)
{
    findings.insert(findings.end(), settings.holeFindings.begin(), settings.holeFindings.end());
    for (const Point& place : unreached)
        findings.push_back(at(finding::notReached, keys::toolDiameter,
                              "The tool does not fit into the material about " + placeText(place) + ".", place));
    std::size_t wallsWithoutLead = 0;
    for (const Route& route : routes)
    {
        wallsWithoutLead += static_cast<std::size_t>(route.wallsWithoutLead);
        for (const Vec& start : route.dropped)
        {
            const Point place = grid.toPoint(start.x, start.y);
            const bool none = parameters.plungeType == static_cast<int>(PlungeType::none);
            findings.push_back(
                at(status::toolpathDiscarded, keys::plungeType,
                   none ? statusText(status::toolpathDiscarded)
                        : "The cut at " + placeText(place) + " is left out: no entry that is allowed fits there.",
                   place));
        }
        if (parameters.detectPreDrillPoints != 0 && !route.steps.empty() && route.steps.front().reach == Reach::entry &&
            route.steps.front().entry.kind != Entry::Kind::side)
        {
            const Entry& entry = route.steps.front().entry;
            const Point place = grid.toPoint(entry.place.x, entry.place.y);
            findings.push_back(at(finding::preDrillPlace, keys::detectOptimalPreDrillPoints,
                                  "A hole drilled at " + placeText(place) + " would take the tool down.", place));
        }
    }
    if (wallsWithoutLead > 0)
        findings.push_back(
            {finding::leadLeftOut, keys::motionStartCutting,
             "No arc fits on to " + std::to_string(wallsWithoutLead) + " of the walls; they are cut without."});
}

int statusOf(const std::vector<JobFinding>& findings)
{
    int code = status::ok;
    for (const JobFinding& finding : findings)
        if (!statusText(finding.code).empty() && severity(finding.code) == Severity::warning)
            code = std::min(code, finding.code);
    return code;
}

} // namespace exchange::pocketing
