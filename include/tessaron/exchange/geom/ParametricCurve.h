#ifndef TESSARON_EXCHANGE_GEOM_PARAMETRICCURVE_H
#define TESSARON_EXCHANGE_GEOM_PARAMETRICCURVE_H

// Stability: stable.

#include <tessaron/exchange/geom/PointNd.h>
#include <tessaron/exchange/geom/VecNd.h>
#include <tessaron/util/Export.h>
#include <tessaron/util/Parameterized.h>

#include <loki/Visitor.h>

#include <boost/shared_ptr.hpp>

namespace geom
{

/// A curve in the plane (N = 2) or in space (N = 3), with a parameter set of its own. The base of every curve.
///
/// Curves are held by boost::shared_ptr, do not change after construction apart from their parameter set, and can be
/// evaluated from several threads at once. To tell their kinds apart, derive a class from Loki::BaseVisitor and from
/// Loki::Visitor<T, void, true> for each interface T of interest, and pass it to Accept: `Visit(const T&)` is called
/// for the most specific interface of the curve (for a line Line<N>, for a rational B-spline RationalBSplineCurve<N>
/// and not BSplineCurve<N>). A visitor that does not know the interface is not called, which is no error.
template <int N>
class TESSARON_EXCHANGE_API ParametricCurve : public Loki::BaseVisitable<void, Loki::DefaultCatchAll, true>,
                                              public util::Parameterized
{
public:
    LOKI_DEFINE_CONST_VISITABLE()

    ParametricCurve& operator=(const ParametricCurve&) = delete;
    ~ParametricCurve() override;

    /// The parameter range of the curve, from start to end; each kind of curve documents its own. A curve runs through
    /// its points in the order of growing parameters.
    /// \throws util::AssertionError when the curve's data define no range (a polyline without points, say).
    virtual double startParam() const = 0;
    virtual double endParam() const = 0;

    /// Computes the point at a parameter and, on request, the first derivatives with respect to the parameter. Outside
    /// the parameter range the first or last piece of the curve is continued. Where two pieces meet with a corner the
    /// derivatives are those of the later one.
    /// \param t a finite parameter value
    /// \param point receives the point, in the units of the control data
    /// \param derivs receives derivs[0] (first derivative) up to derivs[nderivs - 1]; may be null when nderivs is 0
    /// \param nderivs number of derivatives, 0 to 2
    /// \throws util::AssertionError when nderivs is outside 0 to 2, t is not finite, or the curve's data are unsound.
    /// The results are then unspecified.
    void evaluate(double t, PointNd<N>& point, VecNd<N>* derivs = nullptr, int nderivs = 0) const;

    /// The point at a parameter; as evaluate.
    PointNd<N> pointAt(double t) const;

    /// Reads or writes the parameter set as "utilParameterized", from class version 1 on; defined in
    /// <tessaron/exchange/geom/CurveSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

protected:
    ParametricCurve();
    ParametricCurve(const ParametricCurve& other);

private:
    /// evaluate after its arguments were checked.
    virtual void doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const = 0;
};

extern template class ParametricCurve<2>;
extern template class ParametricCurve<3>;

} // namespace geom

#endif
