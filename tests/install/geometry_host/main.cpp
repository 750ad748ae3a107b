// A host that makes, copies, tells apart and exchanges every kind of curve, and derives one of its own.
#include <tessaron/exchange/PolymorphicArchives.h>
#include <tessaron/exchange/geom/CurveSerialization.h>
#include <tessaron/exchange/geom/Curves.h>

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>
#include <boost/make_shared.hpp>

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>

namespace
{

int failures = 0;

void check(bool condition, const std::string& what)
{
    if (!condition)
    {
        std::fprintf(stderr, "FAILED: %s\n", what.c_str());
        ++failures;
    }
}

template <int N>
using CurvePtr = boost::shared_ptr<geom::ParametricCurve<N>>;

/// The name of a curve's kind, as a visitor finds it.
template <int N>
struct KindVisitor : Loki::BaseVisitor,
                     Loki::Visitor<geom::Line<N>, void, true>,
                     Loki::Visitor<geom::Polyline<N>, void, true>,
                     Loki::Visitor<geom::BSplineCurve<N>, void, true>,
                     Loki::Visitor<geom::RationalBSplineCurve<N>, void, true>
{
    void Visit(const geom::Line<N>& line) override { kind = line.startPoint() == line.endPoint() ? "point" : "line"; }
    void Visit(const geom::Polyline<N>& line) override { kind = "polyline " + std::to_string(line.points().size()); }
    void Visit(const geom::BSplineCurve<N>& curve) override { kind = "B-spline " + std::to_string(curve.degree()); }
    void Visit(const geom::RationalBSplineCurve<N>& curve) override
    {
        kind = "rational " + std::to_string(curve.weights().size());
    }

    std::string kind;
};

/// A curve goes through an archive of the host's own, for which it has registered nothing.
template <class Output, class Input, int N>
void checkOwnArchive(const CurvePtr<N>& curve, const std::string& kind)
{
    std::stringstream stream;
    {
        Output archive(stream);
        archive << boost::serialization::make_nvp("curve", curve);
    }
    CurvePtr<N> copy;
    Input archive(stream);
    archive >> boost::serialization::make_nvp("curve", copy);
    check(copy && copy->pointAt(copy->endParam()) == curve->pointAt(curve->endParam()), kind + " in its own archive");
}

/// A curve comes back from both kinds of archive as what it was, at the same place.
template <int N>
void checkCurve(const CurvePtr<N>& curve, const std::string& kind)
{
    for (const exchange::ArchiveFormat format : {exchange::ArchiveFormat::xml, exchange::ArchiveFormat::binary})
    {
        std::stringstream archive;
        exchange::writeArchive(archive, curve, format);
        CurvePtr<N> copy;
        exchange::readArchive(archive, copy);
        KindVisitor<N> visitor;
        copy->Accept(visitor);
        check(visitor.kind == kind, kind + " came back as " + visitor.kind);
        const double middle = (curve->startParam() + curve->endParam()) / 2;
        check(copy->pointAt(middle) == curve->pointAt(middle), kind + " came back elsewhere");
    }
    checkOwnArchive<boost::archive::xml_oarchive, boost::archive::xml_iarchive>(curve, kind);
    checkOwnArchive<boost::archive::binary_oarchive, boost::archive::binary_iarchive>(curve, kind);
}

/// A curve with nothing in it, which a host fills from an archive of its own: that of the serialization library, by way
/// of its polymorphic archives.
template <class Curve>
void checkRead(const Curve& curve, const std::string& kind)
{
    std::stringstream archive;
    exchange::PolymorphicWriter writer(archive);
    writer.archive() << boost::serialization::make_nvp("curve", curve);
    writer.finish();
    Curve copy;
    exchange::PolymorphicReader reader(archive);
    reader.archive() >> boost::serialization::make_nvp("curve", copy);
    reader.finish();
    check(copy.endParam() == curve.endParam(), kind + " was not read");
    const Curve another(copy);
    check(another.pointAt(another.startParam()) == curve.pointAt(curve.startParam()), kind + " was not copied");
}

template <int N>
void checkCurves()
{
    typedef geom::PointNd<N> Point;
    Point a, b, c;
    b[0] = 4;
    c[1] = 3;
    const geom::LineImpl<N> line(a, b);
    const geom::PolylineImpl<N> polyline({a, b, c});
    const geom::BSplineCurveImpl<N> spline({a, b, c}, {0, 0, 0, 1, 1, 1});
    const geom::RationalBSplineCurveImpl<N> rational({a, b, c}, {0, 0, 0, 1, 1, 1}, {1, 2, 1});
    checkRead(line, "line");
    checkRead(polyline, "polyline");
    checkRead(spline, "spline");
    checkRead(rational, "rational");
    checkCurve<N>(boost::make_shared<geom::LineImpl<N>>(line), "line");
    checkCurve<N>(boost::make_shared<geom::PolylineImpl<N>>(polyline), "polyline 3");
    checkCurve<N>(boost::make_shared<geom::BSplineCurveImpl<N>>(spline), "B-spline 2");
    checkCurve<N>(boost::make_shared<geom::RationalBSplineCurveImpl<N>>(rational), "rational 3");
}

/// A curve of the host's own.
class Parabola : public geom::ParametricCurve<2>
{
public:
    double startParam() const override { return 0; }
    double endParam() const override { return 2; }

private:
    void doEvaluate(double t, geom::PointNd<2>& point, geom::VecNd<2>* derivs, int nderivs) const override
    {
        point = geom::PointNd<2>(t, t * t);
        if (nderivs >= 1)
            derivs[0] = geom::VecNd<2>(1, 2 * t);
        if (nderivs >= 2)
            derivs[1] = geom::VecNd<2>(0, 2);
    }
};

} // namespace

int main()
{
    checkCurves<2>();
    checkCurves<3>();

    const geom::Arc2Impl arc(geom::PointNd<2>(1, 2), 5, 0, 1);
    checkRead(arc, "arc");
    geom::PlaneCurve3dImpl placed(boost::make_shared<geom::Arc2Impl>(arc), geom::Transform());
    checkRead(placed, "placed arc");

    const Parabola parabola;
    geom::VecNd<2> slope;
    geom::PointNd<2> point;
    parabola.evaluate(2, point, &slope, 1);
    check(point == geom::PointNd<2>(2, 4) && slope == geom::VecNd<2>(1, 4), "the host's own curve is evaluated");
    return failures != 0;
}
