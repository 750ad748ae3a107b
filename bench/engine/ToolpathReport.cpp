#include "tests/engine/simulator/Simulation.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/util/Keys.h>

#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <utility>
#include <vector>

// engine_toolpath_report INPUT TOOLPATH...: what each toolpath of an input means to a machine, and what is wrong with
// it.

int main(int count, char** arguments)
try
{
    const std::vector<std::string> names(arguments + 1, arguments + count);
    if (names.size() < 2)
        return 2;
    exchange::Tessaron2dInput input;
    exchange::readArchiveFile(names.front(), input);
    simulator::Options options;
    options.machine.rapidRate = input.parameters.numberOr(util::keys::xyRapidFeedRate, 15000);
    for (std::size_t i = 1; i < names.size(); ++i)
    {
        exchange::ToolpathRecords toolpath;
        exchange::readArchiveFile(names[i], toolpath);
        const simulator::Report report = simulator::simulate(input, toolpath, options);
        std::printf("%s\n  %zu records, %.1f m at feed, %.1f m at rapid, %zu retracts, %zu hops\n", names[i].c_str(),
                    report.records, report.feedLength / 1000, report.rapidLength / 1000, report.retracts, report.hops);
        const auto& seconds = report.seconds;
        std::printf("  seconds: %.1f = cut %.1f + air %.1f + ramp %.1f + plunge %.1f + rapid %.1f\n  engagement:",
                    seconds.all(), seconds.cut, seconds.air, seconds.ramp, seconds.plunge, seconds.rapid);
        for (const double length : report.engagement)
            std::printf(" %.3f m", length / 1000);
        // What each feed rate comes to; 0 is rapid.
        std::map<double, std::pair<double, double>> byFeed;
        const std::vector<simulator::Motion> motions = simulator::motionsOf(toolpath).all;
        const std::vector<double> times = simulator::secondsOf(motions, options.machine);
        for (std::size_t k = 0; k < motions.size(); ++k)
        {
            byFeed[motions[k].feed].first += motions[k].length() / 1000;
            byFeed[motions[k].feed].second += times[k];
        }
        for (const auto& [feed, sums] : byFeed)
            std::printf("\n  F%g: %.3f m, %.1f s", feed, sums.first, sums.second);
        const std::string problems = report.problems();
        std::printf("\n  %s\n", problems.empty() ? "sound" : problems.c_str());
    }
    return 0;
}
catch (const std::exception& error)
{
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
