#ifndef ENGINE_POCKETING_FINDINGS_H
#define ENGINE_POCKETING_FINDINGS_H

#include "engine/pocketing/Grid.h"
#include "engine/pocketing/MoveSettings.h"
#include "engine/pocketing/PocketingParameters.h"
#include <tessaron/engine/JobService.h>

#include <vector>

namespace exchange
{
struct Tessaron2dInput;
}

namespace exchange::pocketing
{

/// What an input asks for and the job does not do, as far as can be told without computing.
std::vector<JobFinding> findInput(const Tessaron2dInput& input, const PocketingParameters& parameters);

/// Adds what a finished toolpath leaves out, and the places proposed for drilling.
void addFindings(const std::vector<Point>& unreached, const std::vector<Route>& routes, const MoveSettings& settings,
                 const PocketingParameters& parameters, const Grid& grid, std::vector<JobFinding>& findings);

/// The status code of a toolpath with findings: the most serious warning of the status table, or success.
int statusOf(const std::vector<JobFinding>& findings);

} // namespace exchange::pocketing

#endif
