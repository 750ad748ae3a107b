#ifndef TESTS_ENGINE_SIMULATOR_MACHINETIME_H
#define TESTS_ENGINE_SIMULATOR_MACHINETIME_H

#include "tests/engine/simulator/Motion.h"

#include <vector>

namespace simulator
{

/// How a machine runs through a toolpath: it looks ahead without limit, speeds up and slows down along the way, and
/// takes corners as fast as an arc within the deviation allows (the "junction deviation" of grbl). Lengths are in the
/// unit of the toolpath, times in seconds.
struct Machine
{
    /// Along the way, and across it on arcs.
    double acceleration = 2000;
    double cornerDeviation = 0.01;
    /// A minute.
    double rapidRate = 15000;
};

/// The seconds that each motion takes.
std::vector<double> secondsOf(const std::vector<Motion>& motions, const Machine& machine);

} // namespace simulator

#endif
