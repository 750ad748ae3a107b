#ifndef EXCHANGE_GEOM_CURVES_H
#define EXCHANGE_GEOM_CURVES_H

// All kinds of curves.
#include "exchange/geom/Arc2Impl.h"
#include "exchange/geom/BSplineCurveImpl.h"
#include "exchange/geom/LineImpl.h"
#include "exchange/geom/PlaneCurve3dImpl.h"
#include "exchange/geom/PolylineImpl.h"
#include "exchange/geom/RationalBSplineCurveImpl.h"

#endif
