#include "StockArchives.h"

#include <tessaron/util/Assertion.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace testing_support
{
namespace
{

using geom::PointNd;
using PlaneCurvePtr = boost::shared_ptr<geom::ParametricCurve<2>>;

TEST(Curves, WithUnsoundDataAreReadButNotEvaluated)
{
    const PlaneCurvePtr spline = boost::make_shared<geom::BSplineCurveImpl<2>>(
        std::vector<PointNd<2>>(4), std::vector<double>{0, 0, 0, 0.5, 1, 1, 1});
    const std::string text = writeXml(spline);
    const PlaneCurvePtr rational = boost::make_shared<geom::RationalBSplineCurveImpl<2>>(
        std::vector<PointNd<2>>(2), std::vector<double>{0, 0, 1, 1}, std::vector<double>{1, 2});
    const std::string middle = "<item>5.00000000000000000e-01</item>";
    const struct
    {
        const char* what;
        std::string text;
        bool nowhere; ///< not even where the data are sound
    } cases[] = {
        {"a knot below the one before it", replaced(text, middle, "<item>-3</item>"), false},
        {"a knot above the one behind it", replaced(text, middle, "<item>3</item>"), false},
        {"no knots",
         replaced(text, "<m_knots>[\\s\\S]*</m_knots>",
                  "<m_knots><count>0</count><item_version>0</item_version></m_knots>"),
         true},
        {"fewer weights than points",
         replaced(writeXml(rational), "(<m_weights>\\s*<count>)2([\\s\\S]*?</item>)\\s*<item>[^<]*</item>", "$011$2"),
         true},
        {"more weights than points",
         replaced(writeXml(rational), "(<m_weights>\\s*<count>)2([\\s\\S]*?</item>)", "$013$2<item>1</item>"), true},
    };
    for (const auto& c : cases)
    {
        const auto back = readXml<PlaneCurvePtr>(c.text);
        ASSERT_TRUE(back) << c.what;
        int failed = 0;
        const double parameters[] = {-1.0, 0.0, 0.25, 0.5, 0.75, 1.0, 2.0};
        for (const double t : parameters)
            try
            {
                back->pointAt(t);
            }
            catch (const util::AssertionError&)
            {
                ++failed;
            }
        EXPECT_GE(failed, c.nowhere ? static_cast<int>(std::size(parameters)) : 1) << c.what;
    }
}

} // namespace
} // namespace testing_support
