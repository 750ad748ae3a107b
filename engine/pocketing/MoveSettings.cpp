#include "engine/pocketing/MoveSettings.h"

#include "engine/jobs/JobError.h"
#include "engine/pocketing/Place.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace exchange::pocketing
{

namespace
{

namespace keys = util::keys;
using jobs::JobError;

/// The part of "Cut Tolerance" that arcs may take: what offsets leave of it.
constexpr double arcShare = 0.25;
/// The radius of a helix, as parts of "Tool Diameter": no core may stay in its middle.
constexpr double helixRadius = 0.4;
constexpr double leastHelixRadius = 0.1;
/// The radius of leads.
constexpr double leadRadius = 0.25;

PlungeType plungeTypeOf(const PocketingParameters& parameters)
{
    return static_cast<PlungeType>(parameters.plungeType);
}

/// The holes that the tool goes down in, checked.
class HoleReader
{
public:
    HoleReader(const PocketingParameters& parameters, const Grid& grid, const GougeCheck& walls)
        : m_parameters(parameters), m_grid(grid), m_walls(walls)
    {
    }

    std::vector<EntryHole> read(const TessaronDrillHoles& holes, std::vector<JobFinding>& findings) const
    {
        const PlungeType type = plungeTypeOf(m_parameters);
        const bool asked = type == PlungeType::preDrill;
        std::vector<EntryHole> usable;
        if (holes.holes.empty() || (!asked && type != PlungeType::automatic))
            return usable;
        for (const TessaronDrillHole& hole : holes.holes)
            if (!std::isfinite(hole.center[0]) || !std::isfinite(hole.center[1]) || !(hole.usableDepth >= 0))
                refuse(status::preDrilledHolesCorrupted, {});
        if (std::isnan(m_parameters.drillDiameter))
            refuse(status::preDrilledHolesDiameterNotSet, keys::drillDiameter);
        for (const TessaronDrillHole& hole : holes.holes)
        {
            const IntPoint steps = m_grid.toGrid(hole.center);
            const Vec place = toVec(steps);
            const double limit = std::max(m_parameters.toolDiameter, m_parameters.drillDiameter);
            const double room = m_grid.toLength(m_walls.distanceToPart(place, m_grid.toSteps(limit)));
            const bool inPart = !m_walls.mayStand(place) && room > m_parameters.clearance();
            // What was asked for and gouges ends the job; else the hole is left alone and named.
            if (asked && !inPart && room < m_parameters.drillDiameter / 2)
                refuse(status::drillTooLarge, keys::drillDiameter);
            if (asked && (inPart || room < m_parameters.toolDiameter))
                refuse(status::preDrillTooCloseToPart, {});
            const double bottom =
                hole.through ? -std::numeric_limits<double>::infinity() : m_parameters.topMaterialZ - hole.usableDepth;
            std::string fault;
            if (!m_walls.mayStand(place))
                fault = "is too close to the part";
            else if (m_parameters.drillDiameter < m_parameters.toolDiameter)
                fault = "is narrower than the tool";
            else if (bottom > m_parameters.levels().back())
                fault = "does not reach the floor";
            if (fault.empty())
                usable.push_back({place, bottom});
            else
                findings.push_back(
                    {finding::notUsed, keys::drillDiameter,
                     "The pre-drilled hole at " + placeText(hole.center) + " " + fault + " and is not used."});
        }
        return usable;
    }

private:
    [[noreturn]] static void refuse(int code, const std::string& field)
    {
        throw JobError(code, statusText(code), field);
    }

    const PocketingParameters& m_parameters;
    const Grid& m_grid;
    const GougeCheck& m_walls;
};

} // namespace

MoveSettings moveSettings(const Tessaron2dInput& input, const PocketingParameters& parameters, const Grid& grid,
                          const GougeCheck& walls)
{
    MoveSettings settings;
    const PlungeType type = plungeTypeOf(parameters);
    const auto steps = [&grid](double length) { return grid.toSteps(length); };

    LinkSettings& links = settings.links;
    // A stepover of the whole diameter would leave a ridge as wide as the tolerances.
    links.stepover = steps(std::min(parameters.stepover, parameters.toolDiameter - 2 * parameters.cutTolerance));
    links.toolRadius = steps(parameters.toolRadius());
    links.feed = steps(parameters.feedrate);
    links.slotFeed = steps(parameters.slotFeedrate);
    links.highFeed = steps(parameters.highFeedrate);
    links.rampFeed = steps(parameters.rampFeedrate);
    links.rapid = steps(parameters.xyRapidFeedRate);
    links.verticalRapid = steps(parameters.zRapidFeedRate);
    const std::vector<double> levels = parameters.levels();
    const double middle = (parameters.topMaterialZ + levels.back()) / 2;
    links.liftHeight = steps(parameters.travelZ() - middle);
    const double step = (parameters.topMaterialZ - levels.back()) / static_cast<double>(levels.size());
    links.hopHeight = steps(step + parameters.highFeedClearance);
    links.entryMinutes = step / parameters.rampSlope() / parameters.rampFeedrate;
    links.plungeClearance = steps(parameters.plungeClearance);
    links.highFeedPreference = parameters.rapidVsHighFeed;
    links.leadRadius = parameters.motionStart != 0 ? steps(leadRadius * parameters.toolDiameter) : 0;
    links.leadsOut = parameters.motionEnd != 0;
    links.materialOnRight = parameters.counterClockwise != 0;

    EntrySettings& entries = settings.entries;
    const bool automatic = type == PlungeType::automatic || type == PlungeType::preDrill;
    entries.helix = (automatic && parameters.plungeHelix != 0) || type == PlungeType::helix;
    entries.ramp = (automatic && parameters.plungeCurve != 0) || type == PlungeType::ramp || type == PlungeType::helix;
    entries.straight = type == PlungeType::straight;
    entries.side = type != PlungeType::preDrill;
    entries.toolRadius = steps(parameters.toolRadius());
    const bool radiusGiven = !std::isnan(parameters.plungeRadius);
    entries.helixRadius = steps(radiusGiven ? parameters.plungeRadius : helixRadius * parameters.toolDiameter);
    entries.leastHelixRadius = radiusGiven ? entries.helixRadius : steps(leastHelixRadius * parameters.toolDiameter);
    double highest = 0;
    double above = parameters.topMaterialZ;
    for (const double z : levels)
    {
        highest = std::max(highest, above - z);
        above = z;
    }
    entries.rampLength = steps((highest + parameters.plungeClearance) / parameters.rampSlope());
    entries.holes = HoleReader(parameters, grid, walls).read(input.preDrilledHoles, settings.holeFindings);
    entries.holeRange = std::isnan(parameters.drillPointRange) ? std::numeric_limits<double>::infinity()
                                                               : steps(parameters.drillPointRange);

    HeightSettings& heights = settings.heights;
    heights.top = parameters.topMaterialZ;
    heights.rapidZ = parameters.travelZ();
    heights.plungeClearance = std::max(parameters.plungeClearance, parameters.minimumClearance);
    heights.hopClearance = parameters.highFeedClearance;
    heights.rampSlope = parameters.rampSlope();
    heights.counterClockwise = parameters.counterClockwise != 0;
    heights.dwellAfterPlunge = parameters.dwellAfterPlunge;
    heights.scale = grid.toSteps(1);

    const double ramp = parameters.rampFeedrate;
    const auto set = [&settings](Purpose purpose, double feed)
    { settings.records.feeds[static_cast<std::size_t>(purpose)] = feed; };
    set(Purpose::link, parameters.highFeedrate);
    set(Purpose::slot, parameters.slotFeedrate);
    set(Purpose::cut, parameters.feedrate);
    set(Purpose::lead, parameters.feedrate * parameters.feedrateEntryFactor);
    set(Purpose::ramp, ramp * parameters.rampFeedFactor);
    set(Purpose::helix, ramp * parameters.helixFeedFactor);
    set(Purpose::plunge, ramp * parameters.rampFeedrateEntryFactor);
    settings.records.greatestLength = parameters.linearizationMode != 0 ? parameters.maximumSegmentLength : 0;

    settings.lineTolerance =
        parameters.linearizationMode != 0
            ? steps(std::min(parameters.linearizationTolerance, parameters.cutTolerance * arcShare))
            : 0;
    settings.arcTolerance = parameters.linearizationMode != 0 ? 0 : steps(parameters.cutTolerance * arcShare);
    if (parameters.fromPointSelected != 0)
        settings.from = toVec(grid.toGrid(Point(parameters.fromPointX, parameters.fromPointY)));
    const auto plane = [&](double given) { return std::isnan(given) ? parameters.rapidPlaneZ : given; };
    settings.initialZ = plane(parameters.initialRapidPlaneZ);
    settings.finalZ = plane(parameters.finalRapidPlaneZ);
    return settings;
}

} // namespace exchange::pocketing
