#ifndef TESTS_ENGINE_SIMULATOR_WORKPIECE_H
#define TESTS_ENGINE_SIMULATOR_WORKPIECE_H

#include "tests/engine/simulator/Raster.h"
#include <tessaron/exchange/Tessaron2dInput.h>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace simulator
{

/// A tool and what it is asked to do, as the parameters of an input say it.
struct Operation
{
    explicit Operation(const util::Parameterized& parameters);

    double radius = 0;
    /// Of the axis from the part.
    double clearance = 0;
    double tolerance = 0;
    double top = 0;
    double floor = 0;
    double depthOfCut = 0;
    /// The greatest feed rate of cuts.
    double feed = 0;
    /// The tangent of "Ramp Angle".
    double slope = 0;
};

/// The curves of a boundary as chords that lie within a distance of them.
std::vector<Chord> chordsOf(const exchange::CurveList& curves, double deviation);

/// The walls of a part, found by place.
class Walls
{
public:
    Walls(const std::vector<Chord>& chords, double reach);

    /// The distance of a chord from the walls; at least the reach where there is none so near.
    double distanceTo(const Chord& chord) const;

private:
    static std::uint64_t key(std::int64_t x, std::int64_t y);
    std::int64_t square(double value) const { return static_cast<std::int64_t>(std::floor(value / m_reach)); }

    double m_reach;
    std::unordered_map<std::uint64_t, std::vector<Chord>> m_squares;
};

/// A block of material with the part in it, as cells.
struct Workpiece
{
    Workpiece(const exchange::Tessaron2dInput& input, const Operation& operation, double cell);

    Raster raster;
    std::vector<Chord> wallChords;
    std::vector<char> inPart;
    std::vector<char> inStock;
    /// From the walls of the part; exact up to a little more than the clearance.
    std::vector<float> wallDistance;
    /// The height of the material; of air the lowest number.
    std::vector<double> height;
};

} // namespace simulator

#endif
