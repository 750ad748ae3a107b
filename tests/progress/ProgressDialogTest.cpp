#include "tests/progress/ScriptedProgress.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/engine/ProgressData.h>
#include <tessaron/frame/EntryPoints.h>

#include <boost/make_shared.hpp>

#include <wx/gauge.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;
typedef int (*EntryPoint)(Record&, const char*);

struct Look
{
    const char* name;
    EntryPoint show;
};

class ProgressDialogTest : public testing::TestWithParam<Look>
{
protected:
    int show(const char* caption = "Pocket")
    {
        Record record = m_progress;
        return GetParam().show(record, caption);
    }

    static int barPosition() { return dynamic_cast<wxGauge*>(child(topWindow(), 1000))->GetValue(); }
    static wxString stage() { return child(topWindow(), 1021)->GetLabel(); }

    boost::shared_ptr<ScriptedProgress> m_progress = boost::make_shared<ScriptedProgress>();
};

TEST_P(ProgressDialogTest, ShowsTheJobAndReturnsOneWhenItHasEnded)
{
    m_progress->report(42.9, stageSet({{"Creating toolpath: ", 0.429}}));
    WindowDriver user;
    user.when("the bar follows the job", [] { return topWindow() && barPosition() == 42; });
    user.when(
        "the stage is told", [] { return stage() == "Toolpath generation 42% done"; },
        [&]
        {
            EXPECT_EQ(topWindow()->GetTitle(), wxString::FromUTF8("Tasche groß"));
            EXPECT_TRUE(topWindow()->GetIcon().IsOk());
            savePicture(topWindow(), std::string("progress-") + GetParam().name);
            m_progress->report(-1.0);
        });
    // Captions of hosts that come from Windows are not always UTF-8.
    EXPECT_EQ(show("Tasche gro\xdf"), 1);
    EXPECT_EQ(topWindow(), nullptr);
    EXPECT_EQ(m_progress->m_cancelRequests, 0);
}

TEST_P(ProgressDialogTest, EveryStageTextFitsAndEveryControlHasAName)
{
    const std::pair<const char*, double> longest[] = {
        {"Creating toolpath: ", 1.0},         {"Creating offset surfaces: ", 1.0},
        {"Computing remaining stock: ", 1.0}, {"Computing tool axis vectors: ", 1.0},
        {"Generating boundaries: ", 1e9},     {"Importing file: ", 100.0}};
    WindowDriver user;
    wxString before;
    for (const auto& stageAndValue : longest)
    {
        user.then("the engine reports", [&, stageAndValue] { m_progress->report(50.0, stageSet({stageAndValue})); });
        user.when(
            stageAndValue.first, [&] { return topWindow() && stage() != before; },
            [&]
            {
                before = stage();
                expectWellLaidOut(topWindow());
                for (const int other : {1000, 1043, 2})
                    EXPECT_FALSE(child(topWindow(), 1021)->GetRect().Intersects(child(topWindow(), other)->GetRect()))
                        << before << " runs into control " << other;
                if (before.Contains("1000000000"))
                    savePicture(topWindow(), std::string("progress-") + GetParam().name + "-billion");
            });
    }
    user.then("the names",
              [&]
              {
                  EXPECT_EQ(accessibleName(child(topWindow(), 1000)), "Progress");
                  EXPECT_FALSE(accessibleName(child(topWindow(), 1043)).empty());
                  EXPECT_EQ(accessibleName(child(topWindow(), 2)), "Cancel");
                  m_progress->report(-1.0);
              });
    EXPECT_EQ(show(), 1);
}

TEST_P(ProgressDialogTest, EveryWayToCancelReturnsTwo)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"click", [] { click(child(topWindow(), 2)); }},
        {"escape", [] { pressKey(WXK_ESCAPE); }},
        {"space on the focused button",
         []
         {
             EXPECT_TRUE(child(topWindow(), 2)->HasFocus());
             pressKey(WXK_SPACE);
         }},
        {"close box", [] { clickCloseBox(topWindow()); }},
    };
    for (const auto& [name, cancel] : ways)
    {
        m_progress = boost::make_shared<ScriptedProgress>();
        WindowDriver user;
        user.when(
            name, [&] { return m_progress->m_polls > 0 && topWindow() && topWindow()->IsActive(); }, cancel);
        EXPECT_EQ(show(), 2) << name;
        EXPECT_EQ(m_progress->m_cancelRequests, 1) << name;
        EXPECT_TRUE(m_progress->m_lockFreeAtCancel) << name;
    }
}

TEST_P(ProgressDialogTest, ANullCaptionGivesAnUntitledWindow)
{
    WindowDriver user;
    user.when(
        "the window is up", [] { return topWindow() != nullptr; },
        [&]
        {
            EXPECT_EQ(topWindow()->GetTitle(), "");
            m_progress->report(-1.0);
        });
    EXPECT_EQ(show(nullptr), 1);
}

TEST_P(ProgressDialogTest, AnotherCallFromInsideWorksAndReturnsFirst)
{
    const auto inner = boost::make_shared<ScriptedProgress>();
    int innerResult = 0;
    WindowDriver user;
    user.when(
        "the outer window is up", [&] { return m_progress->m_polls > 0; },
        [&]
        {
            Record record = inner;
            innerResult = GetParam().show(record, "Inner");
            m_progress->report(-1.0);
        });
    user.when(
        "the inner window is up", [&] { return inner->m_polls > 0 && takesKeys(windowTitled("Inner")); },
        [] { clickCloseBox(windowTitled("Inner")); });
    EXPECT_EQ(show(), 1);
    EXPECT_EQ(innerResult, 2);
}

INSTANTIATE_TEST_SUITE_P(Looks, ProgressDialogTest,
                         testing::Values(Look{"milling", TessaronResources::displayProgressDialog},
                                         Look{"turning", TessaronResources::displayOrrimantProgressDialog}),
                         [](const auto& look) { return look.param.name; });

} // namespace
