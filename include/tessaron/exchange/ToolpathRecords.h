#ifndef TESSARON_EXCHANGE_TOOLPATHRECORDS_H
#define TESSARON_EXCHANGE_TOOLPATHRECORDS_H

// Stability: stable.

#include <tessaron/exchange/geom/PointNd.h>
#include <tessaron/exchange/geom/VecNd.h>

#include <boost/variant.hpp>

#include <deque>
#include <string>

namespace exchange
{

// The records of a toolpath. Lengths, feed rates and speeds are in the host's units, which are passed on unchanged. A
// move carries its end point only: it starts where the move before it ended, and the first one wherever the host's tool
// stands. Feed rate, spindle speed and tool axis are modal: they hold until the next record of their kind.
//
// The serialize functions are the library's own; hosts use <tessaron/exchange/Archives.h>.

/// A move at rapid traverse.
struct RapidMove
{
    geom::PointNd<3> endPt;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// A straight cutting move at the current feed rate.
struct LinearMove
{
    geom::PointNd<3> endPt;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// A circular cutting move in the plane across the tool axis. Sense 1 turns counter-clockwise and sense 0 clockwise,
/// seen against the direction of the z axis, from above. A positive radius is the arc of at most half a turn, a
/// negative one the longer arc.
template <int Sense>
struct Arc
{
    static_assert(Sense == 0 || Sense == 1, "an arc turns in one of two senses");

    geom::PointNd<3> endPt;
    double radius = 0;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// A new feed rate for the cutting moves that follow.
struct FeedRate
{
    double feedrate = 0;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// A new spindle speed.
struct SpindleSpeed
{
    double speed = 0;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// Free text.
struct CustomRecord
{
    std::string string;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// A new direction of the tool axis, from the tip towards the holder; of unit length by convention.
struct ToolAxis
{
    geom::VecNd<3> axis;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// One record. The order of the kinds is their tag in archives.
typedef boost::variant<RapidMove, LinearMove, Arc<1>, Arc<0>, FeedRate, SpindleSpeed, CustomRecord, ToolAxis>
    ToolpathRecord;

/// A toolpath: its records in the order in which the machine executes them.
struct ToolpathRecords
{
    std::deque<ToolpathRecord> records;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

} // namespace exchange

#endif
