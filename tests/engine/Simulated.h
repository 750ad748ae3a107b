#ifndef TESTS_ENGINE_SIMULATED_H
#define TESTS_ENGINE_SIMULATED_H

#include "tests/engine/simulator/Simulation.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/StatusTable.h>

namespace testing_support
{

/// A job that has ended, and what its toolpath does to the material.
struct Simulated
{
    exchange::JobInfo info;
    boost::shared_ptr<const exchange::ToolpathRecords> toolpath;
    simulator::Report report;

    /// The job's failure, else what is wrong with its toolpath; empty for a sound one.
    std::string problems() const { return toolpath ? report.problems() : info.text; }
};

/// Where a cut has no way in and is left out, no coverage is asked for.
inline Simulated simulated(const exchange::Tessaron2dInput& input, simulator::Options options = {})
{
    constexpr int longEnough = 240000;
    const exchange::JobStart start = exchange::startJob(input);
    Simulated result;
    exchange::waitForJob(start.jobId, longEnough);
    result.info = exchange::jobInfo(start.jobId);
    result.toolpath = exchange::jobToolpath(start.jobId);
    exchange::releaseJob(start.jobId);
    options.coverage = result.info.status != exchange::status::toolpathDiscarded;
    if (result.toolpath)
        result.report = simulator::simulate(input, *result.toolpath, options);
    return result;
}

} // namespace testing_support

#endif
