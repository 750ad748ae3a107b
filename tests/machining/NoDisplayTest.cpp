#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/machining/SmartLinkData.h>
#include <tessaron/util/Assertion.h>
#include <tessaron/util/Keys.h>
#include <tessaron/util/Parameterized.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

using namespace TessaronResources;

class NoDisplay : public testing::Test
{
protected:
    void SetUp() override
    {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
    }
};

TEST_F(NoDisplay, EveryMachiningDialogIsCancelled)
{
    GougeCheckData gouge{1, 0, 1, 0.1, 0.2, 0.3};
    EXPECT_EQ(displayGougeCheckDialog(&gouge), 2);
    EXPECT_EQ(gouge.arborClearance, 0.2);

    SmartLinkData link{1, 1, 0.35};
    EXPECT_EQ(displaySmartLinkDialog(&link), 2);
    EXPECT_EQ(link.linkPreference, 0.35);

    int spindleSpeed = 5000;
    double feedrate = 1000;
    double stepover = 0;
    EXPECT_EQ(displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, true), 1);
    EXPECT_EQ(spindleSpeed, 5000);
    EXPECT_EQ(feedrate, 1000);
    EXPECT_EQ(stepover, 0);
}

TEST_F(NoDisplay, AMissingParameterLeavesTheCallersModuleStateInForce)
{
    ModuleState callers;
    const ModuleStateGuard guard(&callers);
    util::Parameterized params;
    params.set(util::keys::toolDiameter, 10.0);
    EXPECT_THROW(displayChipControlDialog(0, &params, true), util::AssertionError);
    EXPECT_EQ(getCurrentModuleState(), &callers);
}

} // namespace
