#include "tests/engine/simulator/MachineTime.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace simulator
{

namespace
{

using Direction = std::array<double, 3>;

/// The direction of travel at the start or the end of a motion.
Direction directionOf(const Motion& motion, bool atEnd)
{
    const double length = motion.length();
    const double rise = -motion.descent() / length;
    if (motion.sense == 0)
        return {(motion.end[0] - motion.start[0]) / length, (motion.end[1] - motion.start[1]) / length, rise};
    const Point3& place = atEnd ? motion.end : motion.start;
    const double level = motion.lengthAcross() / length;
    return {-motion.sense * (place[1] - motion.centre[1]) / motion.radius * level,
            motion.sense * (place[0] - motion.centre[0]) / motion.radius * level, rise};
}

double cornerSpeed(const Motion& before, const Motion& after, const Machine& machine)
{
    const Direction in = directionOf(before, true);
    const Direction out = directionOf(after, false);
    const double cosine = std::clamp(in[0] * out[0] + in[1] * out[1] + in[2] * out[2], -1.0, 1.0);
    const double sineOfHalf = std::sqrt((1 + cosine) / 2);
    if (sineOfHalf > 1 - 1e-9)
        return std::numeric_limits<double>::infinity();
    return std::sqrt(machine.acceleration * machine.cornerDeviation * sineOfHalf / (1 - sineOfHalf));
}

double greatestSpeed(const Motion& motion, const Machine& machine)
{
    const double speed = (motion.rapid ? machine.rapidRate : motion.feed) / 60;
    return motion.sense == 0 ? speed : std::min(speed, std::sqrt(machine.acceleration * motion.radius));
}

/// The time over a length between two speeds with a greatest speed on the way.
double secondsFor(double length, double from, double to, double greatest, double acceleration)
{
    const double peak = std::min(greatest, std::sqrt(acceleration * length + (from * from + to * to) / 2));
    const double ramps = (2 * peak * peak - from * from - to * to) / (2 * acceleration);
    return (2 * peak - from - to) / acceleration + std::max(0.0, length - ramps) / peak;
}

} // namespace

std::vector<double> secondsOf(const std::vector<Motion>& motions, const Machine& machine)
{
    std::vector<double> seconds(motions.size(), 0.0);
    std::vector<std::size_t> moving;
    for (std::size_t i = 0; i < motions.size(); ++i)
        if (motions[i].length() > 0)
            moving.push_back(i);
    const std::size_t count = moving.size();
    const auto motion = [&](std::size_t i) -> const Motion& { return motions[moving[i]]; };
    const auto reached = [&](double speed, std::size_t i)
    { return std::sqrt(speed * speed + 2 * machine.acceleration * motion(i).length()); };

    // The speeds at the ends: what corners allow, what can be braked to, what can be reached.
    std::vector<double> speeds(count + 1, 0.0);
    for (std::size_t i = 1; i < count; ++i)
        speeds[i] = std::min({greatestSpeed(motion(i - 1), machine), greatestSpeed(motion(i), machine),
                              cornerSpeed(motion(i - 1), motion(i), machine)});
    for (std::size_t i = count; i-- > 0;)
        speeds[i] = std::min(speeds[i], reached(speeds[i + 1], i));
    for (std::size_t i = 0; i < count; ++i)
    {
        speeds[i + 1] = std::min(speeds[i + 1], reached(speeds[i], i));
        seconds[moving[i]] = secondsFor(motion(i).length(), speeds[i], speeds[i + 1], greatestSpeed(motion(i), machine),
                                        machine.acceleration);
    }
    return seconds;
}

} // namespace simulator
