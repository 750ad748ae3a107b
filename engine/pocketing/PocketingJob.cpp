#include "engine/pocketing/PocketingJob.h"

#include "engine/jobs/JobError.h"
#include "engine/jobs/WorkerPool.h"
#include "engine/pocketing/Findings.h"
#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/MoveSettings.h"
#include "engine/pocketing/PocketingParameters.h"
#include "engine/pocketing/RegionBuilder.h"
#include "engine/pocketing/Rings.h"
#include "engine/pocketing/Thinning.h"
#include "engine/pocketing/moves/ArcFitter.h"
#include "engine/pocketing/moves/EntryFinder.h"
#include "engine/pocketing/moves/MovePlan.h"
#include "engine/pocketing/moves/RecordWriter.h"
#include "engine/pocketing/moves/RoutePlanner.h"
#include "engine/pocketing/moves/Tour.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace exchange::pocketing
{

namespace
{

namespace keys = util::keys;

/// The most records that a toolpath may have; some 300 MB.
constexpr double maxRecords = 5e6;

/// A stage of the job: its name and the percentages of the whole job that it takes.
struct Stage
{
    util::Key key;
    double from;
    double to;

    double percent(double fraction) const { return from + (to - from) * fraction; }
};

constexpr Stage boundaryStage{keys::stageProcessingPartBoundaries, 0, 5};
constexpr Stage ringStage{keys::stageCreatingOffsetSurfaces, 5, 75};
constexpr Stage checkStage{keys::stageGeneratingBoundaries, 75, 90};
constexpr Stage toolpathStage{keys::stageCreatingToolpath, 90, 100};

} // namespace

/// Everything a pocketing job works on. Its tasks share the ownership, because one that cannot be broken off may
/// outlive the job.
class PocketingWork : public std::enable_shared_from_this<PocketingWork>
{
public:
    PocketingWork(std::shared_ptr<jobs::Job> job, std::shared_ptr<const Tessaron2dInput> input)
        : m_job(std::move(job)), m_input(std::move(input))
    {
    }

    void start(jobs::ThreadGroup& threads, const std::function<void(int)>& addWorkers);
    void stop() { m_job->setCancelHook(nullptr); }

    // The stages, in order; each waits for its tasks.
    void processBoundaries();
    void createRings();
    void fitRings();
    void createToolpath();

    PocketingResult result();

private:
    /// Has a worker run a member function with arguments and the worker's number.
    template <class... Params, class... Args>
    void submit(void (PocketingWork::*function)(Params...), Args... args)
    {
        m_pool->submit([self = shared_from_this(), function, args...](int worker)
                       { (self.get()->*function)(args..., worker); });
    }

    void findRegions(int worker);
    void buildBlock(Ring* start, int worker);
    void buildInsideWall(Ring* wall, int worker);
    void fitSome(std::size_t first, std::size_t last, int worker);
    void planRegion(std::size_t region, int worker);
    void writeOne(std::size_t region, std::size_t level, int worker);
    void orderRegions();
    void assemble();
    /// Whether the tool is at a level of a region just after the level above.
    bool followsLevelAbove(std::size_t level) const { return level > 0 && m_parameters.depthFirst != 0; }

    /// Tells the job what part of a stage is done.
    void report(const Stage& stage, double fraction, double shown)
    {
        m_job->setStage(stage.key, shown, stage.percent(fraction));
    }
    /// Adds to what is done of a stage; `total` is all there is to do.
    void advance(const Stage& stage, double amount, double total);
    const jobs::CancelFlag& cancelFlag() const { return m_job->cancelFlag(); }

    const std::shared_ptr<jobs::Job> m_job;
    const std::shared_ptr<const Tessaron2dInput> m_input;
    PocketingParameters m_parameters;
    std::unique_ptr<jobs::WorkerPool> m_pool;

    RegionPlan m_plan;
    ForEach m_forEach;
    std::optional<GougeCheck> m_gougeCheck;
    std::optional<RingStore> m_store;
    std::optional<RingBuilder> m_builder;
    /// The outermost ring of each region.
    std::vector<Ring*> m_regions;
    double m_regionSize = 0;
    std::vector<Ring*> m_rings;
    std::vector<double> m_levels;
    MoveSettings m_settings;
    std::optional<EntryFinder> m_entries;
    std::optional<MovePlanner> m_planner;
    /// The way through each region, and its records level by level.
    std::vector<Route> m_routes;
    /// Where the tool comes from to each region.
    std::vector<Vec> m_fromPlaces;
    std::vector<std::vector<std::vector<ToolpathRecord>>> m_records;
    boost::shared_ptr<ToolpathRecords> m_toolpath;

    std::mutex m_progressMutex;
    double m_done = 0;
};

void PocketingWork::start(jobs::ThreadGroup& threads, const std::function<void(int)>& addWorkers)
{
    m_parameters = readParameters(*m_input);
    m_levels = m_parameters.levels();
    m_pool = std::make_unique<jobs::WorkerPool>(threads, m_parameters.threads,
                                                std::shared_ptr<const jobs::CancelFlag>(m_job, &m_job->cancelFlag()));
    m_forEach = [this](std::size_t count, const std::function<void(std::size_t)>& call)
    { m_pool->forEach(count, call); };
    m_job->setCancelHook([this] { m_pool->wake(); });
    addWorkers(m_parameters.threads);
}

void PocketingWork::advance(const Stage& stage, double amount, double total)
{
    const std::lock_guard lock(m_progressMutex);
    m_done += amount;
    const double fraction = std::clamp(m_done / total, 0.0, 1.0);
    report(stage, fraction, fraction);
}

void PocketingWork::processBoundaries()
{
    report(boundaryStage, 0, 0);
    submit(&PocketingWork::findRegions);
    m_pool->wait();
}

void PocketingWork::findRegions(int worker)
{
    m_plan = buildRegions(
        *m_input, m_parameters, cancelFlag(),
        [this, worker](double fraction)
        {
            report(boundaryStage, fraction, fraction);
            m_job->setWorkerStage(worker, boundaryStage.key, fraction);
        },
        m_forEach);
    const Grid& grid = m_plan.grid;
    m_gougeCheck.emplace(m_plan.part, m_plan.stock, grid.toSteps(m_parameters.clearance()));
    m_settings = moveSettings(*m_input, m_parameters, grid, *m_gougeCheck);
    m_entries.emplace(*m_gougeCheck, m_settings.entries);
    m_planner.emplace(*m_gougeCheck, m_settings.heights);
    m_store.emplace(maxRecords / static_cast<double>(m_levels.size()));
    m_builder.emplace(*m_store,
                      RingSteps{m_settings.links.stepover, grid.toSteps(m_parameters.toolRadius()),
                                grid.toSteps(m_parameters.cutTolerance), m_plan.tolerance},
                      cancelFlag(), m_forEach);
    for (Area& region : m_plan.regions)
    {
        m_regionSize += sizeOf(region);
        m_regions.push_back(m_store->add(std::move(region)));
    }
}

void PocketingWork::createRings()
{
    report(ringStage, 0, 0);
    for (Ring* const region : m_regions)
        submit(m_parameters.partRadialStock > 0 ? &PocketingWork::buildInsideWall : &PocketingWork::buildBlock, region);
    m_pool->wait();
}

void PocketingWork::buildBlock(Ring* start, int worker)
{
    const double size = sizeOf(start->contours);
    double done = 0;
    m_job->setWorkerStage(worker, ringStage.key, 0);
    m_builder->buildBlock(
        *start, [this](Ring& next) { submit(&PocketingWork::buildBlock, &next); },
        [&](double amount)
        {
            done += amount;
            m_job->setWorkerStage(worker, ringStage.key, std::min(1.0, done / size));
            advance(ringStage, amount, m_regionSize);
        });
}

void PocketingWork::buildInsideWall(Ring* wall, int)
{
    // What is left on the wall is cut by the last pass alone.
    double inside = 0;
    for (Ring* const ring : m_builder->addInside(*wall, m_plan.grid.toSteps(m_parameters.partRadialStock)))
    {
        inside += sizeOf(ring->contours);
        submit(&PocketingWork::buildBlock, ring);
    }
    advance(ringStage, sizeOf(wall->contours) - inside, m_regionSize);
}

void PocketingWork::fitRings()
{
    m_rings.assign(m_regions.begin(), m_regions.end());
    for (std::size_t i = 0; i < m_rings.size(); ++i)
        m_rings.insert(m_rings.end(), m_rings[i]->children.begin(), m_rings[i]->children.end());

    constexpr std::size_t atOnce = 8;
    m_done = 0;
    report(checkStage, 0, static_cast<double>(m_rings.size()));
    for (std::size_t first = 0; first < m_rings.size(); first += atOnce)
        submit(&PocketingWork::fitSome, first, std::min(first + atOnce, m_rings.size()));
    m_pool->wait();
}

void PocketingWork::fitSome(std::size_t first, std::size_t last, int worker)
{
    const auto total = static_cast<double>(m_rings.size());
    const MoveFilter allows = [this](const PlaneMove& move) { return m_gougeCheck->keepsClear(move); };
    const auto fit = [&](Paths& paths, std::vector<Track>& loops)
    {
        for (const Path& path : paths)
        {
            cancelFlag().check();
            const Path thinned = m_settings.lineTolerance > 0 ? simplified(path, m_settings.lineTolerance) : Path();
            Track loop = fitArcs(thinned.size() < 3 ? path : thinned, m_settings.arcTolerance, allows);
            m_gougeCheck->check(loop);
            loops.push_back(m_parameters.counterClockwise != 0 ? std::move(loop) : reversed(loop));
        }
        paths = {};
    };
    for (std::size_t i = first; i < last; ++i)
    {
        m_job->setWorkerStage(worker, checkStage.key, static_cast<double>(last - i));
        fit(m_rings[i]->contours, m_rings[i]->loops);
        fit(m_rings[i]->leftovers, m_rings[i]->leftoverLoops);
        const std::lock_guard lock(m_progressMutex);
        m_done += 1;
        report(checkStage, m_done / total, total - m_done);
    }
}

void PocketingWork::createToolpath()
{
    m_done = 0;
    report(toolpathStage, 0, 0);
    orderRegions();
    m_routes.resize(m_regions.size());
    m_records.resize(m_regions.size());
    for (std::size_t region = 0; region < m_regions.size(); ++region)
        submit(&PocketingWork::planRegion, region);
    m_pool->wait();
    for (std::size_t region = 0; region < m_regions.size(); ++region)
    {
        m_records[region].resize(m_levels.size());
        for (std::size_t level = 0; level < m_levels.size(); ++level)
            submit(&PocketingWork::writeOne, region, level);
    }
    m_pool->wait();
    assemble();
}

void PocketingWork::orderRegions()
{
    std::vector<Vec> places;
    for (const Ring* const region : m_regions)
        places.push_back(middleOf(region->loops.front()));
    m_fromPlaces.clear();
    std::vector<Ring*> ordered;
    Vec from = m_settings.from.value_or(places.front());
    for (const std::size_t i : shortTour(places, from, cancelFlag()))
    {
        m_fromPlaces.push_back(from);
        ordered.push_back(m_regions[i]);
        from = places[i];
    }
    m_regions = std::move(ordered);
}

void PocketingWork::planRegion(std::size_t region, int worker)
{
    m_job->setWorkerStage(worker, toolpathStage.key, 0);
    RoutePlanner planner(*m_gougeCheck, *m_entries, m_settings.links, cancelFlag());
    const Route& route = m_routes[region] = planner.plan(*m_regions[region], m_fromPlaces[region]);
    const bool inHole = !route.steps.empty() && route.steps.front().entry.kind == Entry::Kind::hole;
    const bool holesAsked = m_parameters.plungeType == static_cast<int>(PlungeType::preDrill);
    if (holesAsked && !inHole && !m_settings.entries.holes.empty() && !std::isnan(m_parameters.drillPointRange))
        throw jobs::JobError(status::selectedPointOutOfRange, statusText(status::selectedPointOutOfRange),
                             keys::drillPointRange);
}

void PocketingWork::writeOne(std::size_t region, std::size_t level, int worker)
{
    m_job->setWorkerStage(worker, toolpathStage.key, 0);
    const Route& route = m_routes[region];
    if (!route.steps.empty())
    {
        const double above = level == 0 ? m_parameters.topMaterialZ : m_levels[level - 1];
        std::optional<Vec> from;
        if (followsLevelAbove(level))
            from = route.steps.back().end();
        std::vector<Move> moves = m_planner->planLevel(route, m_levels[level], above, from);
        if (level + 1 == m_levels.size() || !followsLevelAbove(level + 1))
            moves.push_back(m_planner->lift(route.steps.back().end()));
        checkMoves(moves, *m_gougeCheck, m_parameters.topMaterialZ, m_parameters.rampSlope());
        // Every part begins with a feed rate of its own; the ones in between are dropped when they repeat.
        double feedrate = 0;
        m_records[region][level] = writeRecords(moves, m_settings.records, m_plan.grid, feedrate, cancelFlag());
    }
    advance(toolpathStage, 1, static_cast<double>(m_regions.size() * m_levels.size()));
}

void PocketingWork::assemble()
{
    m_toolpath = boost::make_shared<ToolpathRecords>();
    auto& records = m_toolpath->records;
    records.emplace_back(SpindleSpeed{m_parameters.spindleSpeed});
    if (m_settings.from)
    {
        const Point place = m_plan.grid.toPoint(m_settings.from->x, m_settings.from->y);
        records.emplace_back(RapidMove{geom::PointNd<3>(place[0], place[1], m_settings.initialZ)});
    }
    const std::size_t before = records.size();
    double feedrate = 0;
    const auto append = [&](std::vector<ToolpathRecord>& part)
    {
        for (std::size_t i = 0; i < part.size(); ++i)
        {
            if (i % 1024 == 0)
                cancelFlag().check();
            const FeedRate* const feed = boost::get<FeedRate>(&part[i]);
            if (feed && feed->feedrate == feedrate)
                continue;
            if (feed)
                feedrate = feed->feedrate;
            // The first way across is on the initial rapid plane.
            RapidMove* const rapid = records.size() == before ? boost::get<RapidMove>(&part[i]) : nullptr;
            if (rapid && rapid->endPt[2] < m_settings.initialZ)
            {
                RapidMove above = *rapid;
                above.endPt[2] = m_settings.initialZ;
                records.emplace_back(above);
            }
            records.push_back(std::move(part[i]));
        }
        part = {};
    };
    if (m_parameters.depthFirst != 0)
        for (auto& region : m_records)
            std::for_each(region.begin(), region.end(), append);
    else
        for (std::size_t level = 0; level < m_levels.size(); ++level)
            for (auto& region : m_records)
                append(region[level]);
    if (records.size() == before)
        throw jobs::JobError(status::noToolpath, statusText(status::toolpathDiscarded), keys::plungeType);
    const RapidMove* const last = boost::get<RapidMove>(&records.back());
    if (last && last->endPt[2] < m_settings.finalZ)
    {
        RapidMove above = *last;
        above.endPt[2] = m_settings.finalZ;
        records.emplace_back(above);
    }
    if (m_parameters.homePointSelected != 0)
        records.emplace_back(
            RapidMove{geom::PointNd<3>(m_parameters.homePointX, m_parameters.homePointY, m_settings.finalZ)});
}

PocketingResult PocketingWork::result()
{
    PocketingResult result;
    result.toolpath = m_toolpath;
    result.findings = findInput(*m_input, m_parameters);
    addFindings(m_plan.unreached, m_routes, m_settings, m_parameters, m_plan.grid, result.findings);
    return result;
}

PocketingJob::PocketingJob(std::shared_ptr<jobs::Job> job, std::shared_ptr<const Tessaron2dInput> input)
    : m_work(std::make_shared<PocketingWork>(std::move(job), std::move(input)))
{
}

PocketingJob::~PocketingJob()
{
    m_work->stop();
}

void PocketingJob::start(jobs::ThreadGroup& threads, const std::function<void(int)>& addWorkers)
{
    m_work->start(threads, addWorkers);
}

PocketingResult PocketingJob::compute()
{
    m_work->processBoundaries();
    m_work->createRings();
    m_work->fitRings();
    m_work->createToolpath();
    return m_work->result();
}

} // namespace exchange::pocketing
