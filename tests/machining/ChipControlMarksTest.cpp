// What the chip thickness dialog says about entries that it could not read, or that contradict each other.
#include "tests/machining/ChipControlUser.h"

#include <gtest/gtest.h>

#include <utility>

using namespace testing_support;

namespace
{

TEST(ChipControlMarks, ReplacesTextThatIsNoExpressionByItsLeadingNumber)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    enter(user, 4003, "12abc");
    press(user, WXK_RETURN);
    user.then("Enter leaves it", [] { EXPECT_EQ(text(4003), "12abc"); });
    press(user, WXK_TAB);
    shows(user, 4003, "12");
    shows(user, 4002, "0.0012");
    user.when(
        "marked", [] { return isMarked(4003); },
        []
        {
            EXPECT_TRUE(label(4008).StartsWith("MMPM: 12 was read of \"12abc\".")) << label(4008);
            savePicture(dialog(), "chip-control-misread");
        });
    enter(user, 4003, "13");
    user.then("edited",
              []
              {
                  EXPECT_FALSE(isMarked(4003));
                  EXPECT_FALSE(label(4008).Contains("12abc")) << label(4008);
              });
    press(user, WXK_ESCAPE);
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlMarks, HearsNothingOfAnEmptyField)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    goTo(user, 4003);
    press(user, WXK_DELETE);
    user.when(
        "empty", [] { return text(4003).empty(); }, [] { pressKey(WXK_TAB); });
    user.when(
        "the focus has moved on", [] { return edit(4002)->HasFocus() && isMarked(4003); },
        []
        {
            EXPECT_EQ(text(4003), "");
            EXPECT_EQ(text(4002), "0.1");
            EXPECT_EQ(label(4008), "MMPM: Please enter a number. Thinning factor 1.25.");
            pressKey(WXK_TAB); // leaving another field reads the form, and finds the empty one
        });
    user.when("the empty field is reported", messageIsUp,
              []
              {
                  EXPECT_NE(child(topWindow(), 10)->GetLabel().Find("MMPM"), wxNOT_FOUND);
                  pressKey(WXK_RETURN);
              });
    user.when(
        "the focus is on it, with the value it had", [] { return dialogIsUp() && edit(4003)->HasFocus(); },
        []
        {
            EXPECT_EQ(text(4003), "1000");
            EXPECT_FALSE(isMarked(4003));
            pressKey(WXK_ESCAPE);
        });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlMarks, ReportsASpindleSpeedThatIsNoWholeNumber)
{
    const util::Parameterized before = operation();
    for (const auto& [typed, byApply] : {std::pair("12.5", false), {"12.5", true}, {"+-5", false}, {"", true}})
    {
        util::Parameterized set = before;
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp);
        goTo(user, 4001);
        user.then("type", [typed = typed] { *typed == '\0' ? pressKey(WXK_DELETE) : type(typed); });
        user.when("typed", [typed = typed] { return text(4001) == typed; });
        user.then("leave", [byApply = byApply] { byApply ? click(child(dialog(), 1)) : pressKey(WXK_TAB); });
        user.when("the message is up", messageIsUp,
                  []
                  {
                      EXPECT_NE(child(topWindow(), 10)->GetLabel().Find("RPM"), wxNOT_FOUND);
                      savePicture(topWindow(), "chip-control-message");
                      pressKey(WXK_RETURN);
                  });
        user.when(
            "the focus is back on the field", [] { return dialogIsUp() && edit(4001)->HasFocus(); },
            []
            {
                EXPECT_EQ(text(4001), "5000");
                pressKey(WXK_ESCAPE);
            });
        EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
        EXPECT_EQ(set, before);
    }
}

TEST(ChipControlMarks, ReadsAllFieldsButTheOneAtFault)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    goTo(user, 4000);
    press(user, WXK_DELETE);
    enter(user, 4003, "1500");
    press(user, WXK_TAB);
    user.when("the empty field is reported", messageIsUp,
              []
              {
                  EXPECT_TRUE(child(topWindow(), 10)->GetLabel().Contains("SMM")) << child(topWindow(), 10)->GetLabel();
                  pressKey(WXK_RETURN);
              });
    user.when("the entry has come in", dialogIsUp,
              []
              {
                  EXPECT_EQ(text(4000), "157.079633");
                  EXPECT_EQ(text(4003), "1500");
                  EXPECT_EQ(text(4002), "0.15");
              });
    goTo(user, 4004);
    press(user, WXK_DELETE);
    press(user, 'A', wxMOD_ALT);
    user.when("a field that is empty is not applied", messageIsUp,
              []
              {
                  EXPECT_TRUE(child(topWindow(), 10)->GetLabel().Contains("Stepover"));
                  pressKey(WXK_RETURN);
              });
    user.when("back", dialogIsUp, [] { pressKey(WXK_ESCAPE); });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlMarks, MarksAChipThatContradictsTheRest)
{
    util::Parameterized set = operation();
    set.set(keys::maximumSpindleSpeed, 4000);
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    choose(user, 2);
    enter(user, 4005, "0.3");
    press(user, WXK_TAB);
    user.when(
        "marked", [] { return isMarked(4005); },
        []
        {
            EXPECT_EQ(text(4004), "5");
            wxString notes = label(4008);
            notes.Replace("\n", " ");
            EXPECT_EQ(notes, "At this feed per tooth and stepover the chip is 0.1 mm thick. "
                             "Spindle speed above the maximum of 4000.");
            EXPECT_EQ(label(4007), wxString::FromUTF8("cm³/min"));
            expectWellLaidOut(dialog());
            savePicture(dialog(), "chip-control-contradiction");
        });
    enter(user, 4005, "0.1");
    press(user, WXK_TAB);
    user.when(
        "not any more", [] { return !isMarked(4005); },
        [] { EXPECT_TRUE(label(4008).StartsWith("From half the diameter up")) << label(4008); });
    press(user, WXK_ESCAPE);
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

} // namespace
