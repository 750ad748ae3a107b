#include "controls/ControlMover.h"
#include "tests/support/WindowDriver.h"

#include <wx/button.h>
#include <wx/dialog.h>

#include <gtest/gtest.h>

#include <algorithm>

#include <memory>

using namespace TessaronResources;

namespace
{

struct MoveCase
{
    const char* name;
    MoveFactors factors;
    int dx;
    int dy;
    ControlBounds expected;
};

constexpr ControlBounds registered{10, 20, 60, 45};

class MovedBoundsTest : public testing::TestWithParam<MoveCase>
{
};

TEST_P(MovedBoundsTest, EachEdgeTakesItsShare)
{
    const MoveCase& c = GetParam();
    EXPECT_EQ(movedBounds(registered, c.factors, c.dx, c.dy), c.expected);
}

const MoveCase moveCases[] = {
    {"NoFactors", {}, 50, 50, registered},
    {"GrowsInWidth", {0, 0, 1, 0}, 37, 11, {10, 20, 97, 45}},
    {"GrowsInHeight", {0, 0, 0, 1}, 37, 11, {10, 20, 60, 56}},
    {"FollowsTheCorner", {1, 1, 0, 0}, 37, 11, {47, 31, 97, 56}},
    {"HalfIsCutTowardZero", {0.5F, 0.5F, 0, 0}, 3, 5, {11, 22, 61, 47}},
    {"NegativeHalfIsCutTowardZero", {0.5F, 0.5F, 0, 0}, -3, -5, {9, 18, 59, 43}},
    // 1.5 and 4.5: each product is cut by itself, not their sum.
    {"MoveAndGrowthAreCutApart", {0.25F, 0, 0.75F, 0}, 6, 0, {11, 20, 65, 45}},
    {"ShrinksBelowTheReference", {0, 0, 1, 1}, -20, -10, {10, 20, 40, 35}},
    // The nearest single to 0.7 lies below it: ten times that is 7 in single precision, 6.9999999 in double.
    {"SinglePrecision", {0.7F, 0, 0, 0}, 10, 0, {17, 20, 67, 45}},
};

INSTANTIATE_TEST_SUITE_P(Cases, MovedBoundsTest, testing::ValuesIn(moveCases),
                         [](const auto& c) { return c.param.name; });

class ControlMoverTest : public testing::Test
{
protected:
    ControlMoverTest() : m_dialog(new wxDialog(nullptr, wxID_ANY, "mover", wxDefaultPosition, wxSize(400, 300)))
    {
        m_client = m_dialog->GetClientSize();
    }
    ~ControlMoverTest() override { m_dialog->Destroy(); }

    wxButton* addButton(const wxRect& rect)
    {
        return new wxButton(m_dialog, wxID_ANY, "b", rect.GetPosition(), rect.GetSize());
    }

    wxDialog* m_dialog;
    wxSize m_client;
    ControlMover m_mover;
};

TEST_F(ControlMoverTest, MovesWhatIsThereAndPassesOverTheRest)
{
    wxButton* const growing = addButton({10, 10, 100, 40});
    wxButton* const gone = addButton({10, 60, 100, 40});
    wxButton* const corner = addButton({200, 200, 100, 40});
    m_mover.add(growing, {0, 0, 1, 0});
    m_mover.resize(m_client.x + 30, m_client.y + 20);
    EXPECT_EQ(growing->GetRect(), wxRect(10, 10, 100, 40)) << "nothing moves before the mover is set up";

    m_mover.setUp(*m_dialog);
    m_mover.add(gone, {1, 1, 0, 0});
    m_mover.add(nullptr, {1, 1, 0, 0});
    m_mover.add(corner, {1, 1, 0, 0});
    gone->Destroy();
    m_mover.resize(m_client.x + 30, m_client.y + 20);
    EXPECT_EQ(growing->GetRect(), wxRect(10, 10, 130, 40));
    EXPECT_EQ(corner->GetRect(), wxRect(230, 220, 100, 40));
    m_mover.resize(m_client.x, m_client.y);
    EXPECT_EQ(growing->GetRect(), wxRect(10, 10, 100, 40));
    EXPECT_EQ(corner->GetRect(), wxRect(200, 200, 100, 40));
}

TEST_F(ControlMoverTest, NoControlGetsANegativeSize)
{
    wxButton* const small = addButton({10, 10, 100, 40});
    m_mover.setUp(*m_dialog);
    m_mover.add(small, {0, 0, 1, 1});
    for (const int shrunk : {41, 101, 102, 300})
    {
        m_mover.resize(m_client.x - shrunk, m_client.y - shrunk);
        EXPECT_EQ(small->GetRect(), wxRect(10, 10, std::max(100 - shrunk, 0), 0)) << shrunk;
    }
    m_mover.resize(m_client.x, m_client.y);
    EXPECT_EQ(small->GetRect(), wxRect(10, 10, 100, 40));
}

TEST_F(ControlMoverTest, TheFirstMinimumSizeIsKept)
{
    EXPECT_EQ(m_mover.minimumSize(), wxSize(0, 0));
    m_mover.setUp(*m_dialog, 120, 0);
    EXPECT_EQ(m_mover.minimumSize(), wxSize(120, m_dialog->GetSize().y));
    m_mover.setUp(*m_dialog, 10, 10);
    EXPECT_EQ(m_mover.minimumSize(), wxSize(120, m_dialog->GetSize().y));
}

} // namespace
