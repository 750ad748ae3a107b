#ifndef EXCHANGE_GEOM_CURVEASSERTION_H
#define EXCHANGE_GEOM_CURVEASSERTION_H

#include <tessaron/util/Assertion.h>

/// The assertion of the curve classes: throws util::AssertionError under their common published place.
#define GEOM_CURVE_ASSERT(expression) TESSARON_ASSERT(expression, "GeomImpl\\CurveImpl")

#endif
