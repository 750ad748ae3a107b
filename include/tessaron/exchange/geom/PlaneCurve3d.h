#ifndef TESSARON_EXCHANGE_GEOM_PLANECURVE3D_H
#define TESSARON_EXCHANGE_GEOM_PLANECURVE3D_H

// Stability: stable.

#include <tessaron/exchange/geom/ParametricCurve.h>
#include <tessaron/exchange/geom/Transform.h>

namespace geom
{

/// A curve of the plane, placed in space by a transform: the point (x, y) of the plane curve becomes the image of
/// (x, y, 0). It has the parameter range of the plane curve.
class TESSARON_EXCHANGE_API PlaneCurve3d : public virtual ParametricCurve<3>
{
public:
    LOKI_DEFINE_CONST_VISITABLE()

    /// The plane curve; null only when the curve was read from an archive without one.
    virtual const boost::shared_ptr<ParametricCurve<2>>& planeCurve() const = 0;
    virtual const Transform& transform() const = 0;
};

} // namespace geom

#endif
