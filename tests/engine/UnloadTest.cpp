#include "tests/engine/PocketShapes.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <cstdlib>

// What becomes of running jobs when the process ends.

TEST(UnloadDeathTest, ExitWithRunningJobsEndsCleanly)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            exchange::Tessaron2dInput input = shapes::manyIslands(6);
            input.parameters.set(util::keys::stepover, 0.1);
            for (int i = 0; i < 3; ++i)
                exchange::startJob(input);
            std::exit(7);
        },
        testing::ExitedWithCode(7), "");
}
