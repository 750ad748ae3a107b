#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/SmartLinkData.h>

#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/slider.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace
{

using TessaronResources::displaySmartLinkDialog;
using TessaronResources::SmartLinkData;

bool dialogIsUp()
{
    wxTopLevelWindow* const dialog = windowTitled("SmartLink Parameters");
    return dialog && dialog->IsActive();
}

bool chosen(int id)
{
    return dynamic_cast<wxRadioButton*>(child(topWindow(), id))->GetValue();
}

wxSlider* trackBar()
{
    return dynamic_cast<wxSlider*>(child(topWindow(), 1027));
}

bool preferenceEnabled()
{
    const bool enabled = trackBar()->IsEnabled();
    EXPECT_EQ(child(topWindow(), 1028)->IsEnabled(), enabled);
    EXPECT_EQ(child(topWindow(), 1029)->IsEnabled(), enabled);
    return enabled;
}

// Moves the track bar with the arrow keys, one step at a time.
void moveTo(WindowDriver& user, int position)
{
    user.when("focus",
              [pressedOn = static_cast<wxWindow*>(nullptr)]() mutable
              {
                  wxWindow* const at = wxWindow::FindFocus();
                  if (at != trackBar() && at != pressedOn) // one key at a time
                      pressKey(WXK_TAB);
                  pressedOn = at;
                  return at == trackBar();
              });
    user.when("moved",
              [position, pressedAt = -1]() mutable
              {
                  const int at = trackBar()->GetValue();
                  if (at != position && at != pressedAt) // one key at a time
                      pressKey(at < position ? WXK_RIGHT : WXK_LEFT);
                  pressedAt = at;
                  return at == position;
              });
}

TEST(SmartLinkDialog, WritesTheWholeRecordOnOk)
{
    SmartLinkData data{5, 1, 0.35};
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp,
              []
              {
                  EXPECT_TRUE(chosen(1024));
                  EXPECT_FALSE(chosen(1025));
                  EXPECT_TRUE(preferenceEnabled());
                  EXPECT_EQ(trackBar()->GetValue(), 3);
                  savePicture(topWindow(), "smartlink");
              });
    moveTo(user, 7);
    user.when(
        "stored at once", [&] { return data.linkPreference == 0.7; },
        [&]
        {
            EXPECT_EQ(data.depthFirst, 5);
            click(child(topWindow(), 1));
        });
    EXPECT_EQ(displaySmartLinkDialog(&data), 1);
    EXPECT_EQ(data.depthFirst, 1);
    EXPECT_EQ(data.rapidPlaneOnly, 1);
    EXPECT_EQ(data.linkPreference, 0.7);
}

TEST(SmartLinkDialog, KeepsTheTrackBarsValueOnCancelAndNothingElse)
{
    SmartLinkData data{0, 1, 0.2};
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp, [] { click(child(topWindow(), 1024)); });
    user.when(
        "depth first", [] { return chosen(1024); }, [] { EXPECT_FALSE(chosen(1025)); });
    moveTo(user, 0);
    user.then("cancel", [] { pressKey(WXK_ESCAPE); });
    EXPECT_EQ(displaySmartLinkDialog(&data), 2);
    EXPECT_EQ(data.depthFirst, 0);
    EXPECT_EQ(data.rapidPlaneOnly, 1);
    EXPECT_EQ(data.linkPreference, 0.0);
}

TEST(SmartLinkDialog, EnablesThePreferenceWithTheCheckBox)
{
    SmartLinkData data{-3, 0, 1.5};
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp,
              []
              {
                  EXPECT_TRUE(chosen(1025));
                  EXPECT_FALSE(preferenceEnabled());
                  EXPECT_EQ(trackBar()->GetValue(), 10);
                  savePicture(topWindow(), "smartlink-disabled");
                  click(child(topWindow(), 1026));
              });
    user.when("enabled", preferenceEnabled, [] { click(child(topWindow(), 1026)); });
    user.when(
        "disabled again", [] { return !preferenceEnabled(); }, [] { pressKey(WXK_RETURN); });
    EXPECT_EQ(displaySmartLinkDialog(&data), 1);
    EXPECT_EQ(data.depthFirst, 0);
    EXPECT_EQ(data.rapidPlaneOnly, 0);
    EXPECT_EQ(data.linkPreference, 1.5) << "unchanged until the track bar moves";
}

} // namespace
