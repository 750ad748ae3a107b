#include "progress/ProgressStages.h"
#include "resources/StringTable.h"
#include "tests/progress/ScriptedProgress.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace TessaronResources;
using namespace testing_support;

namespace
{

struct Case
{
    const char* what;
    util::Parameterized stages;
    const char* job;
    const char* worker;
};

std::string text(const util::Parameterized& stages, StageScope scope)
{
    return stageText(stages, scope, resources::stringText);
}

TEST(ProgressStages, ShowTheFirstKnownStageOfTheTable)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Case cases[] = {
        {"fraction is truncated", stageSet({{"Creating toolpath: ", 0.999}}), "Toolpath generation 99% done", nullptr},
        {"offset surfaces", stageSet({{"Creating offset surfaces: ", 0.5}}), "Creating offset surfaces 50% done",
         nullptr},
        {"remaining stock", stageSet({{"Computing remaining stock: ", 1.0}}), "Computing remaining stock 100% done",
         nullptr},
        {"tool axes", stageSet({{"Computing tool axis vectors: ", 0.25}}), "Computing tool axis vectors 25% done",
         nullptr},
        {"boundaries count checks", stageSet({{"Generating boundaries: ", 1234.9}}),
         "Computing cutter locations: 1234 checks left", nullptr},
        {"import is a percentage and not for workers", stageSet({{"Importing file: ", 42.7}}), "Importing file: 42%",
         ""},
        {"table order beats value and key order",
         stageSet({{"Creating offset surfaces: ", 0.9}, {"Creating toolpath: ", 0.1}}), "Toolpath generation 10% done",
         nullptr},
        {"unknown stages clear", stageSet({{"Slices generated: ", 3}, {"Relinking toolpath: ", 0.5}}), "", ""},
        {"what is no number shows 0", stageSet({{"Creating toolpath: ", nan}}), "Toolpath generation 0% done", nullptr},
        {"what no integer holds is kept in its range", stageSet({{"Generating boundaries: ", 1e300}}),
         "Computing cutter locations: 2147483647 checks left", nullptr},
        {"negative truncates toward zero", stageSet({{"Importing file: ", -0.5}}), "Importing file: 0%", ""},
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(text(c.stages, StageScope::job), c.job) << c.what;
        EXPECT_EQ(text(c.stages, StageScope::worker), c.worker ? c.worker : c.job) << c.what;
    }
}

TEST(ProgressStages, AnIntegerValueCountsAsANumber)
{
    util::Parameterized stages;
    stages.set("Importing file: ", 7);
    EXPECT_EQ(text(stages, StageScope::job), "Importing file: 7%");
}

} // namespace
