#ifndef TESSARON_EXCHANGE_GEOM_ARC_H
#define TESSARON_EXCHANGE_GEOM_ARC_H

// Stability: stable.

#include <tessaron/exchange/geom/ParametricCurve.h>

namespace geom
{

template <int N>
class Arc;

/// A circular arc in the plane. Its direction is carried by the order of its angles: it runs counter-clockwise when the
/// end angle is the greater one, else clockwise.
template <>
class TESSARON_EXCHANGE_API Arc<2> : public virtual ParametricCurve<2>
{
public:
    LOKI_DEFINE_CONST_VISITABLE()

    virtual const PointNd<2>& center() const = 0;
    virtual double radius() const = 0;
    /// Angles in radians, counter-clockwise from the x axis.
    virtual double startAngle() const = 0;
    virtual double endAngle() const = 0;
};

} // namespace geom

#endif
