#include "engine/pocketing/PocketingJob.h"

#include "engine/jobs/JobError.h"
#include "engine/jobs/WorkerPool.h"
#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/LevelWriter.h"
#include "engine/pocketing/PocketingParameters.h"
#include "engine/pocketing/RegionBuilder.h"
#include "engine/pocketing/RingOrder.h"
#include "engine/pocketing/Rings.h"
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
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
    void checkRings();
    void createToolpath();

    boost::shared_ptr<const ToolpathRecords> toolpath() const { return m_toolpath; }

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
    void checkSome(std::size_t first, std::size_t last, int worker);
    void orderRegion(std::size_t region, int worker);
    void writeOne(std::size_t region, std::size_t level, int worker);
    void assemble();

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
    std::optional<GougeCheck> m_gougeCheck;
    std::optional<RingStore> m_store;
    std::optional<RingBuilder> m_builder;
    /// The outermost ring of each region.
    std::vector<Ring*> m_regions;
    double m_regionSize = 0;
    std::vector<const Ring*> m_rings;
    std::vector<double> m_levels;
    /// The passes of each region, and their records level by level.
    std::vector<std::vector<Pass>> m_passes;
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
    m_plan = buildRegions(*m_input, m_parameters, cancelFlag(),
                          [this, worker](double fraction)
                          {
                              report(boundaryStage, fraction, fraction);
                              m_job->setWorkerStage(worker, boundaryStage.key, fraction);
                          });
    const Grid& grid = m_plan.grid;
    m_gougeCheck.emplace(m_plan.part, m_plan.stock, grid.toSteps(m_parameters.clearance()));
    m_store.emplace(maxRecords / static_cast<double>(m_levels.size()));
    // A stepover of the whole diameter would leave a ridge as wide as the tolerances.
    const double stepover = std::min(m_parameters.stepover, m_parameters.toolDiameter - 2 * m_parameters.cutTolerance);
    m_builder.emplace(*m_store,
                      RingSteps{grid.toSteps(stepover), grid.toSteps(m_parameters.toolRadius()),
                                grid.toSteps(m_parameters.cutTolerance), m_plan.tolerance},
                      cancelFlag());
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
        submit(&PocketingWork::buildBlock, region);
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

void PocketingWork::checkRings()
{
    m_rings.assign(m_regions.begin(), m_regions.end());
    for (std::size_t i = 0; i < m_rings.size(); ++i)
        m_rings.insert(m_rings.end(), m_rings[i]->children.begin(), m_rings[i]->children.end());

    constexpr std::size_t atOnce = 8;
    m_done = 0;
    report(checkStage, 0, static_cast<double>(m_rings.size()));
    for (std::size_t first = 0; first < m_rings.size(); first += atOnce)
        submit(&PocketingWork::checkSome, first, std::min(first + atOnce, m_rings.size()));
    m_pool->wait();
}

void PocketingWork::checkSome(std::size_t first, std::size_t last, int worker)
{
    const auto total = static_cast<double>(m_rings.size());
    for (std::size_t i = first; i < last; ++i)
    {
        m_job->setWorkerStage(worker, checkStage.key, static_cast<double>(last - i));
        m_gougeCheck->check(*m_rings[i], cancelFlag());
        const std::lock_guard lock(m_progressMutex);
        m_done += 1;
        report(checkStage, m_done / total, total - m_done);
    }
}

void PocketingWork::createToolpath()
{
    m_done = 0;
    report(toolpathStage, 0, 0);
    m_passes.resize(m_regions.size());
    m_records.resize(m_regions.size());
    for (std::size_t region = 0; region < m_regions.size(); ++region)
        submit(&PocketingWork::orderRegion, region);
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

void PocketingWork::orderRegion(std::size_t region, int worker)
{
    m_job->setWorkerStage(worker, toolpathStage.key, 0);
    IntPoint from = m_regions[region]->contours.front().front();
    m_passes[region] = orderRings(*m_regions[region], from, cancelFlag());
}

void PocketingWork::writeOne(std::size_t region, std::size_t level, int worker)
{
    const double above = level == 0 ? m_parameters.topMaterialZ : m_levels[level - 1];
    m_records[region][level] =
        writeLevel(m_passes[region], m_levels[level], above, m_parameters, m_plan.grid, cancelFlag(),
                   [this, worker](double fraction) { m_job->setWorkerStage(worker, toolpathStage.key, fraction); });
    advance(toolpathStage, 1, static_cast<double>(m_regions.size() * m_levels.size()));
}

void PocketingWork::assemble()
{
    m_toolpath = boost::make_shared<ToolpathRecords>();
    auto& records = m_toolpath->records;
    records.emplace_back(SpindleSpeed{m_parameters.spindleSpeed});
    const auto append = [&](std::vector<ToolpathRecord>& part)
    {
        for (std::size_t i = 0; i < part.size(); ++i)
        {
            if (i % 1024 == 0)
                cancelFlag().check();
            records.push_back(std::move(part[i]));
        }
        part = {};
    };
    if (m_parameters.depthFirst)
    {
        for (auto& region : m_records)
            std::for_each(region.begin(), region.end(), append);
        return;
    }
    for (std::size_t level = 0; level < m_levels.size(); ++level)
        for (auto& region : m_records)
            append(region[level]);
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

boost::shared_ptr<const ToolpathRecords> PocketingJob::compute()
{
    m_work->processBoundaries();
    m_work->createRings();
    m_work->checkRings();
    m_work->createToolpath();
    return m_work->toolpath();
}

} // namespace exchange::pocketing
