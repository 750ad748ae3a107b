#ifndef TESSARON_EXCHANGE_TESSARON2DINPUT_H
#define TESSARON_EXCHANGE_TESSARON2DINPUT_H

// Stability: stable.

#include <tessaron/exchange/TessaronDrillHoles.h>
#include <tessaron/exchange/geom/ParametricCurve.h>
#include <tessaron/util/Parameterized.h>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace exchange
{

// Lengths are in the host's unit, which is passed on unchanged. The serialize functions of this header's records are
// the library's own; hosts use <tessaron/exchange/Archives.h>.

/// Curves of the plane. A pointer may be empty, and one curve may occur several times: archives keep it shared.
typedef std::vector<boost::shared_ptr<geom::ParametricCurve<2>>> CurveList;

/// An outline of the plane: its points in order.
typedef std::vector<geom::PointNd<2>> Profile;

/// A region of the plane. Class version 0.
struct Tessaron2dBoundaries
{
    CurveList partBoundaries;     ///< closed curves of the finished part: material that must stay
    CurveList materialBoundaries; ///< closed curves of the stock: material that may be removed

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// The input of a 2-axis milling or drilling job. Class version 2.
struct Tessaron2dInput
{
    Tessaron2dBoundaries boundaries;
    util::Parameterized parameters;     ///< machining parameters, by the keys of <tessaron/util/Keys.h>
    TessaronDrillHoles preDrilledHoles; ///< entry holes already drilled; since version 1
    Profile holderProfile;              ///< outline of the tool holder; since version 2

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

} // namespace exchange

#endif
