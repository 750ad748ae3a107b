#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>

#include <wx/checkbox.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace
{

using TessaronResources::displayGougeCheckDialog;
using TessaronResources::GougeCheckData;

bool dialogIsUp()
{
    return topWindow() && topWindow()->IsActive() && topWindow()->FindWindow(2019);
}

wxTextCtrl* edit(int id)
{
    return dynamic_cast<wxTextCtrl*>(child(topWindow(), id));
}

bool checked(int id)
{
    return dynamic_cast<wxCheckBox*>(child(topWindow(), id))->GetValue();
}

// Puts the focus on a field, with all of its text selected.
void goTo(WindowDriver& user, int id)
{
    user.then("click on the field", [id] { click(edit(id)); });
    user.when(
        "the field has the focus", [id] { return edit(id)->HasFocus(); }, [] { pressKey('A', wxMOD_CONTROL); });
    user.when("selected", [id] { return edit(id)->GetStringSelection() == edit(id)->GetValue(); });
}

void fill(WindowDriver& user, int id, const char* text)
{
    goTo(user, id);
    user.then("type", [text] { *text == '\0' ? pressKey(WXK_DELETE) : type(text); });
    user.when("typed", [id, text] { return edit(id)->GetValue() == text; });
}

TEST(GougeCheckDialog, ShowsTheRecordAndWritesItOnOk)
{
    GougeCheckData data{1, 0, 7, 2.5, 0.1, 100000};
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp,
              []
              {
                  EXPECT_EQ(topWindow()->GetTitle(), "Gouge check");
                  EXPECT_TRUE(checked(2019));
                  EXPECT_FALSE(checked(2020));
                  EXPECT_TRUE(checked(2021));
                  EXPECT_EQ(edit(1020)->GetValue(), "2.5");
                  EXPECT_EQ(edit(1021)->GetValue(), "0.1");
                  EXPECT_EQ(edit(1022)->GetValue(), "100000");
                  savePicture(topWindow(), "gouge-check");
              });
    fill(user, 1021, "-0.75");
    user.then("check", [] { click(child(topWindow(), 2020)); });
    user.when(
        "arbor on", [] { return checked(2020); }, [] { click(child(topWindow(), 2021)); });
    user.when(
        "shaft off", [] { return !checked(2021); },
        []
        {
            EXPECT_TRUE(edit(1022)->IsEnabled()) << "a box does not disable its clearance";
            click(child(topWindow(), 1));
        });
    EXPECT_EQ(displayGougeCheckDialog(&data), 1);
    EXPECT_EQ(data.checkHolder, 1);
    EXPECT_EQ(data.checkArbor, 1);
    EXPECT_EQ(data.checkShaft, 0);
    EXPECT_EQ(data.holderClearance, 2.5);
    EXPECT_EQ(data.arborClearance, -0.75);
    EXPECT_EQ(data.shaftClearance, 100000);
}

TEST(GougeCheckDialog, LeavesTheRecordAloneOnCancel)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"escape", [] { pressKey(WXK_ESCAPE); }},
        {"close box", [] { clickCloseBox(topWindow()); }},
    };
    for (const auto& [name, cancel] : ways)
    {
        GougeCheckData data{1, 0, 7, 2.5, 0.1, -3};
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp);
        fill(user, 1020, "9");
        user.then("cancel", cancel);
        EXPECT_EQ(displayGougeCheckDialog(&data), 2) << name;
        EXPECT_EQ(data.checkShaft, 7) << name;
        EXPECT_EQ(data.holderClearance, 2.5) << name;
    }
}

class GougeCheckBadNumber : public testing::TestWithParam<const char*>
{
};

TEST_P(GougeCheckBadNumber, IsReportedWithTheFieldAndKeepsTheDialogOpen)
{
    GougeCheckData data{1, 0, 1, 2.5, 0.1, 3};
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    fill(user, 1020, "8");
    fill(user, 1021, GetParam());
    user.then("accept", [] { pressKey(WXK_RETURN); });
    user.when(
        "the message is up", [] { return topWindow() && topWindow()->IsActive() && topWindow()->FindWindow(10); },
        []
        {
            EXPECT_NE(child(topWindow(), 10)->GetLabel().Find("Arbor clearance"), wxNOT_FOUND)
                << child(topWindow(), 10)->GetLabel();
            savePicture(topWindow(), "gouge-check-message");
            pressKey(WXK_RETURN);
        });
    user.when(
        "the focus is on the field", [] { return dialogIsUp() && edit(1021)->HasFocus(); },
        [&]
        {
            EXPECT_EQ(edit(1021)->GetValue(), GetParam());
            EXPECT_EQ(edit(1021)->GetStringSelection(), GetParam());
            EXPECT_EQ(data.holderClearance, 2.5) << "nothing half-written";
            type("4");
        });
    user.when(
        "put right", [] { return edit(1021)->GetValue() == "4"; }, [] { pressKey(WXK_RETURN); });
    EXPECT_EQ(displayGougeCheckDialog(&data), 1);
    EXPECT_EQ(data.holderClearance, 8);
    EXPECT_EQ(data.arborClearance, 4);
}

INSTANTIATE_TEST_SUITE_P(Texts, GougeCheckBadNumber, testing::Values("12abc", "", "1/2", "nan", "1,5", "+-5"));

} // namespace
