#include "frame/MessageDialog.h"
#include "tests/support/WindowDriver.h"

#include <wx/toplevel.h>

#include <gtest/gtest.h>

using namespace testing_support;
using namespace TessaronResources;

// A name that is spelled wrongly in a question is a file that the user does not know.
TEST(MessageDialog, ShowsAnAmpersandInAName)
{
    constexpr int text = 10;
    WindowDriver user;
    user.when(
        "the message is up", [] { return takesKeys(topWindow()); },
        []
        {
            EXPECT_EQ(accessibleName(child(topWindow(), text)), "R&D && more.vtmpl already exists.");
            savePicture(topWindow(), "message-ampersand");
            pressKey(WXK_RETURN);
        });
    EXPECT_TRUE(askOkCancel(nullptr, "Save", "R&D && more.vtmpl already exists.", MessageKind::warning));
}
