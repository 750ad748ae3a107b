// What cannot be written is refused, by the index of the record, and nothing is left behind.
#include "tests/gcode/Programs.h"
#include "tests/support/TemporaryFolder.h"

#include <limits>
#include <sstream>

namespace testing_support
{
namespace
{

using exchange::GcodeError;
using exchange::ToolpathRecord;
typedef geom::PointNd<3> Point;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

exchange::ToolAxis axis(double x, double y, double z)
{
    return {geom::VecNd<3>(x, y, z)};
}

TEST(GcodeErrors, NameTheRecordAndWhatIsWrong)
{
    const struct
    {
        std::vector<ToolpathRecord> records;
        std::size_t record;
        const char* text;
    } cases[] = {
        {{exchange::LinearMove{Point(1, nan, 0)}}, 3, "Y of the end point is not a finite number"},
        {{exchange::RapidMove{Point(0, 0, infinity)}}, 3, "Z of the end point is not a finite number"},
        {{exchange::LinearMove{Point(2e7, 0, 0)}}, 3, "X of the end point is beyond"},
        {{exchange::LinearMove{Point(1, 0, 0)}, exchange::Arc<1>{Point(2, 0, 0), nan}}, 4, "radius is not a finite"},
        {{exchange::Arc<0>{Point(2, 0, 0), 0}}, 3, "Record 3 (Arc<0>): the radius is 0."},
        {{exchange::Arc<0>{Point(0, 0, 5), 3}}, 3, "leaves its centre open"},
        {{exchange::Arc<1>{Point(10, 0, 0), 4.9}}, 3, "farther apart than its circle is wide"},
        {{exchange::FeedRate{0}}, 3, "(FeedRate): the feed rate is not positive"},
        {{exchange::FeedRate{-5}}, 3, "not positive"},
        {{exchange::FeedRate{1e-6}}, 3, "rounded to 0"},
        {{exchange::FeedRate{nan}}, 3, "the feed rate is not a finite number"},
        {{exchange::SpindleSpeed{-1}}, 3, "negative"},
        {{exchange::SpindleSpeed{infinity}}, 3, "the spindle speed is not a finite number"},
        {{exchange::SpindleSpeed{0.3}}, 3, "less than half a turn"},
        {{axis(0, 0.1, 1)}, 3, "the tool axis is not the z axis"},
        {{axis(0, 0, -1)}, 3, "the tool axis is not the z axis"},
        {{axis(0, 0, 0)}, 3, "the tool axis is not the z axis"},
        {{axis(0, nan, 1)}, 3, "the tool axis is not a finite number"},
        {{exchange::CustomRecord{"Open the door"}}, 3, "\"Open the door\" has no meaning here"},
        {{exchange::CustomRecord{"Dwell long"}}, 3, "should be \"Dwell\" and a number of seconds"},
        {{exchange::CustomRecord{"Dwell -1"}}, 3, "should be \"Dwell\" and a number of seconds"},
        {{exchange::CustomRecord{"Dwell 1,5"}}, 3, "should be \"Dwell\" and a number of seconds"},
        {{exchange::CustomRecord{"Tool"}}, 3, "should be \"Tool\" and a number from 1 to 99999"},
        {{exchange::CustomRecord{"Tool 0"}}, 3, "should be \"Tool\" and a number from 1 to 99999"},
        {{exchange::CustomRecord{"Coolant on"}}, 3, "should be \"Coolant\" and off, mist or flood"},
        {{exchange::CustomRecord{"Tool 3"}, exchange::LinearMove{Point(1, 0, 0)}}, 4, "a cut follows a tool change"},
    };
    for (const auto& bad : cases)
    {
        const auto write = [&] { written(behindGoodOnes(bad.records)); };
        EXPECT_EQ(recordRefused(write, bad.text), bad.record);
        recordRefused(write, "Record " + std::to_string(bad.record) + " (");
    }
}

TEST(GcodeErrors, WantAStartAndAFeedRateForCuts)
{
    const struct
    {
        std::deque<ToolpathRecord> records;
        const char* text;
    } cases[] = {{{exchange::LinearMove{Point(1, 0, 0)}}, "begins with a cut"},
                 {{exchange::Arc<1>{Point(1, 0, 0), 2}}, "begins with a cut"},
                 {{exchange::RapidMove{}, exchange::LinearMove{Point(1, 0, 0)}}, "before the first feed rate"},
                 {{exchange::RapidMove{}, exchange::Arc<0>{Point(1, 0, 0), 2}}, "before the first feed rate"}};
    for (const auto& bad : cases)
    {
        exchange::ToolpathRecords toolpath;
        toolpath.records = bad.records;
        EXPECT_EQ(recordRefused([&] { written(toolpath); }, bad.text), bad.records.size() - 1);
    }
}

TEST(GcodeErrors, LeaveTheFileThatWasThere)
{
    const TemporaryFolder folder;
    const std::string path = folder / "part.ngc";
    writeBytes(path, "the old program\n");
    const auto bad = behindGoodOnes({exchange::LinearMove{Point(nan, 0, 0)}});
    EXPECT_EQ(recordRefused([&] { exchange::writeGcodeFile(path, bad); }, path), 3u);
    EXPECT_EQ(readBytes(path), "the old program\n");
    EXPECT_EQ(folder.entryCount(), 1);
    exchange::writeGcodeFile(path, behindGoodOnes({}));
    EXPECT_EQ(readBytes(path).substr(0, 2), "%\n");
}

TEST(GcodeErrors, NameTheFileThatCannotBeWritten)
{
    const TemporaryFolder folder;
    const std::string path = folder / "missing/part.ngc";
    EXPECT_EQ(recordRefused([&] { exchange::writeGcodeFile(path, behindGoodOnes({})); }, path), GcodeError::noRecord);
}

TEST(GcodeErrors, TellOfAStreamThatFails)
{
    std::ostringstream stream;
    stream.setstate(std::ios_base::badbit);
    EXPECT_THROW(exchange::writeGcode(stream, behindGoodOnes({})), GcodeError);
}

} // namespace
} // namespace testing_support
