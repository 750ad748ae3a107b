#ifndef TESSARON_EXCHANGE_GEOM_CURVES_H
#define TESSARON_EXCHANGE_GEOM_CURVES_H

// Stability: stable.

// All kinds of curves.
#include <tessaron/exchange/geom/Arc2Impl.h>
#include <tessaron/exchange/geom/BSplineCurveImpl.h>
#include <tessaron/exchange/geom/LineImpl.h>
#include <tessaron/exchange/geom/PlaneCurve3dImpl.h>
#include <tessaron/exchange/geom/PolylineImpl.h>
#include <tessaron/exchange/geom/RationalBSplineCurveImpl.h>

#endif
