#ifndef TESTS_GCODE_PROGRAMS_H
#define TESTS_GCODE_PROGRAMS_H

#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/gcode/GcodeWriter.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace testing_support
{

inline std::string written(const exchange::ToolpathRecords& toolpath,
                           const exchange::GcodeSettings& settings = exchange::GcodeSettings())
{
    std::ostringstream stream;
    exchange::writeGcode(stream, toolpath, settings);
    return stream.str();
}

/// Records behind three good ones: a spindle speed, a feed rate and a rapid move to the origin.
inline exchange::ToolpathRecords behindGoodOnes(const std::vector<exchange::ToolpathRecord>& records)
{
    exchange::ToolpathRecords toolpath;
    toolpath.records = {exchange::SpindleSpeed{5000}, exchange::FeedRate{300}, exchange::RapidMove{{0, 0, 0}}};
    toolpath.records.insert(toolpath.records.end(), records.begin(), records.end());
    return toolpath;
}

/// Expects that `write` is refused, for a reason with that text. \returns the record that is named
template <class Write>
std::size_t recordRefused(const Write& write, const std::string& text)
{
    try
    {
        write();
    }
    catch (const exchange::GcodeError& error)
    {
        EXPECT_NE(std::string(error.what()).find(text), std::string::npos) << error.what();
        return error.record();
    }
    ADD_FAILURE() << "was taken: " << text;
    return exchange::GcodeError::noRecord;
}

} // namespace testing_support

#endif
