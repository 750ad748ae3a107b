#ifndef BENCH_ENGINE_MACHINETIME_H
#define BENCH_ENGINE_MACHINETIME_H

#include <tessaron/exchange/ToolpathRecords.h>

#include <cstddef>

namespace bench
{

/// What running a toolpath means to a machine.
struct ToolpathFigures
{
    std::size_t records = 0;
    /// Rapids straight up from below the top of the material.
    int retracts = 0;
    /// Feed moves straight down.
    int plunges = 0;
    double cutLength = 0;
    double rapidLength = 0;
    /// With acceleration: 2 m/s^2 along the way and across it, corners within 0.01 mm (for lengths in millimetres).
    double minutes = 0;
};

/// \param rapidRate in the unit of length a minute
ToolpathFigures figuresOf(const exchange::ToolpathRecords& toolpath, double top, double rapidRate);

} // namespace bench

#endif
