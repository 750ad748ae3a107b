#ifndef TESTS_GCODE_SAMPLETOOLPATHS_H
#define TESTS_GCODE_SAMPLETOOLPATHS_H

#include "tests/engine/RunningJob.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <gtest/gtest.h>

#include <string>

namespace testing_support
{

/// The names of the sample parts.
inline constexpr const char* samples[] = {"square-pocket", "pocket-with-islands", "open-shape", "large-plate"};

/// The toolpath of a sample part, computed by the engine; fails the test when there is none.
inline exchange::ToolpathRecords sampleToolpath(const std::string& name)
{
    exchange::Tessaron2dInput input;
    exchange::readArchiveFile(std::string(TESSARON_SAMPLES) + "/" + name + ".xml", input);
    const RunningJob job(input);
    EXPECT_EQ(job.wait(), exchange::JobState::finished) << name << ": " << job.info().text;
    const auto toolpath = exchange::jobToolpath(job.id());
    return toolpath ? *toolpath : exchange::ToolpathRecords();
}

} // namespace testing_support

#endif
