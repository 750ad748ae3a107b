// The programs run in the interpreter of LinuxCNC, where that is installed.
#include "tests/gcode/Programs.h"
#include "tests/gcode/SampleToolpaths.h"
#include "tests/support/TemporaryFolder.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace testing_support
{
namespace
{

using exchange::GcodeSettings;

bool isInstalled()
{
    return std::system("command -v rs274 >/dev/null 2>&1") == 0;
}

/// What the interpreter makes of a program.
struct Outcome
{
    bool accepted = false;
    std::string output;

    /// How often it has called a function of the machine.
    std::size_t calls(const std::string& function) const
    {
        std::size_t count = 0;
        for (std::size_t at = output.find(" " + function + "("); at != std::string::npos;
             at = output.find(" " + function + "(", at + 1))
            ++count;
        return count;
    }
};

Outcome run(const std::string& program)
{
    const TemporaryFolder folder;
    writeBytes(folder / "part.ngc", program);
    writeBytes(folder / "tools.tbl", "T1 P1 D6 Z0\n");
    const std::string command =
        "cd '" + folder.path() + "' && rs274 -t tools.tbl -g part.ngc </dev/null >output 2>errors";
    Outcome result;
    result.accepted = std::system(command.c_str()) == 0;
    result.output = readBytes(folder / "output");
    if (!result.accepted)
        result.output = readBytes(folder / "errors").substr(0, 1000);
    return result;
}

TEST(LinuxCnc, AcceptsTheProgramsOfAllSamples)
{
    if (!isInstalled())
        GTEST_SKIP() << "rs274 of the package linuxcnc-uspace is not installed";
    for (const char* const name : samples)
    {
        SCOPED_TRACE(name);
        const exchange::ToolpathRecords toolpath = sampleToolpath(name);
        std::size_t arcs = 0;
        std::size_t lines = 0;
        for (const exchange::ToolpathRecord& record : toolpath.records)
        {
            arcs += record.which() == 2 || record.which() == 3;
            lines += record.which() == 1;
        }
        for (const auto units : {GcodeSettings::Units::millimetres, GcodeSettings::Units::inches})
        {
            GcodeSettings settings;
            settings.units = units;
            settings.tool = 1;
            settings.title = name;
            settings.coolant = GcodeSettings::Coolant::flood;
            const Outcome result = run(written(toolpath, settings));
            ASSERT_TRUE(result.accepted) << result.output;
            EXPECT_EQ(result.calls("PROGRAM_END"), 1u);
            // Arcs too flat to show are lines; all others are arcs to this interpreter, too.
            EXPECT_EQ(result.calls("ARC_FEED") + result.calls("STRAIGHT_FEED"), arcs + lines);
            EXPECT_GT(result.calls("ARC_FEED"), arcs * 9 / 10);
        }
    }
}

// So that the test above can fail.
TEST(LinuxCnc, RefusesABadProgram)
{
    if (!isInstalled())
        GTEST_SKIP() << "rs274 of the package linuxcnc-uspace is not installed";
    EXPECT_FALSE(run("G21 G17 G90\nG0 X0 Y0 Z0\nG1 X1 F100\nG2 X3 Y0 I1.1 J0\nM30\n").accepted);
}

} // namespace
} // namespace testing_support
