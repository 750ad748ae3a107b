#include <tessaron/exchange/geom/Curves.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <string>

// Through the shared library: the visitors of a host live in another module than the curves.

namespace
{

using namespace geom;

class AllVisitor : public Loki::BaseVisitor,
                   public Loki::Visitor<Line<2>, void, true>,
                   public Loki::Visitor<Line<3>, void, true>,
                   public Loki::Visitor<Polyline<2>, void, true>,
                   public Loki::Visitor<Polyline<3>, void, true>,
                   public Loki::Visitor<BSplineCurve<2>, void, true>,
                   public Loki::Visitor<BSplineCurve<3>, void, true>,
                   public Loki::Visitor<RationalBSplineCurve<2>, void, true>,
                   public Loki::Visitor<RationalBSplineCurve<3>, void, true>,
                   public Loki::Visitor<Arc<2>, void, true>,
                   public Loki::Visitor<PlaneCurve3d, void, true>
{
public:
    void Visit(const Line<2>&) override { visited += "line2 "; }
    void Visit(const Line<3>&) override { visited += "line3 "; }
    void Visit(const Polyline<2>&) override { visited += "polyline2 "; }
    void Visit(const Polyline<3>&) override { visited += "polyline3 "; }
    void Visit(const BSplineCurve<2>&) override { visited += "bspline2 "; }
    void Visit(const BSplineCurve<3>&) override { visited += "bspline3 "; }
    void Visit(const RationalBSplineCurve<2>&) override { visited += "rational2 "; }
    void Visit(const RationalBSplineCurve<3>&) override { visited += "rational3 "; }
    void Visit(const Arc<2>& arc) override { visited += "arc" + std::to_string(static_cast<int>(arc.radius())) + " "; }
    void Visit(const PlaneCurve3d&) override { visited += "plane "; }

    std::string visited;
};

TEST(Visitor, IsCalledForTheMostSpecificInterface)
{
    AllVisitor visitor;
    const auto arc = boost::make_shared<Arc2Impl>(PointNd<2>(), 7, 0, 1);
    const boost::shared_ptr<ParametricCurve<2>> plane[] = {
        boost::make_shared<LineImpl<2>>(), boost::make_shared<PolylineImpl<2>>(),
        boost::make_shared<BSplineCurveImpl<2>>(), boost::make_shared<RationalBSplineCurveImpl<2>>(), arc};
    for (const auto& curve : plane)
        curve->Accept(visitor);
    const boost::shared_ptr<ParametricCurve<3>> space[] = {
        boost::make_shared<LineImpl<3>>(), boost::make_shared<PolylineImpl<3>>(),
        boost::make_shared<BSplineCurveImpl<3>>(), boost::make_shared<RationalBSplineCurveImpl<3>>(),
        boost::make_shared<PlaneCurve3dImpl>(arc, Transform())};
    for (const auto& curve : space)
        curve->Accept(visitor);
    EXPECT_EQ(visitor.visited, "line2 polyline2 bspline2 rational2 arc7 line3 polyline3 bspline3 rational3 plane ");
}

TEST(Visitor, ThatDoesNotKnowTheInterfaceIsLeftAlone)
{
    class : public Loki::BaseVisitor,
            public Loki::Visitor<BSplineCurve<2>, void, true>,
            public Loki::Visitor<ParametricCurve<2>, void, true>
    {
    public:
        void Visit(const BSplineCurve<2>&) override { ++calls; }
        void Visit(const ParametricCurve<2>&) override { ++calls; }
        int calls = 0;
    } visitor;
    // A rational curve is a B-spline curve, but only its most specific interface is looked up.
    RationalBSplineCurveImpl<2>().Accept(visitor);
    LineImpl<2>().Accept(visitor);
    LineImpl<3>().Accept(visitor);
    EXPECT_EQ(visitor.calls, 0);
    BSplineCurveImpl<2>().Accept(visitor);
    EXPECT_EQ(visitor.calls, 1);
}

TEST(Visitor, OfTheBaseIsCalledForCurvesWithoutAnInterfaceOfTheirOwn)
{
    class Point : public ParametricCurve<2>
    {
    public:
        double startParam() const override { return 0; }
        double endParam() const override { return 0; }

    private:
        void doEvaluate(double, PointNd<2>& point, VecNd<2>*, int) const override { point = PointNd<2>(); }
    };
    class : public Loki::BaseVisitor, public Loki::Visitor<ParametricCurve<2>, void, true>
    {
    public:
        void Visit(const ParametricCurve<2>&) override { ++calls; }
        int calls = 0;
    } visitor;
    Point().Accept(visitor);
    EXPECT_EQ(visitor.calls, 1);
}

} // namespace
