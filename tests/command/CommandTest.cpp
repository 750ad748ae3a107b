// The command as those who use it do: a process, its files, its messages, its exit status.
#include "tests/command/Program.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/gcode/GcodeSettings.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <limits>

namespace
{

namespace fs = std::filesystem;
namespace keys = util::keys;
typedef std::vector<std::string> Texts;

class Command : public testing::Test
{
protected:
    /// A part in the folder: a sample, with parameters set.
    void addPart(const std::string& name, const util::Parameterized& parameters = {},
                 const char* sample = "square-pocket", exchange::ArchiveFormat format = exchange::ArchiveFormat::xml)
    {
        exchange::Tessaron2dInput input;
        exchange::readArchiveFile(std::string(TESSARON_SAMPLES) + "/" + sample + ".xml", input);
        for (const auto& [key, value] : parameters.params())
            input.parameters.set(key, value);
        exchange::writeArchiveFile(folder / name, input, format);
    }

    /// A part that keeps the engine busy for long.
    void addSlowPart(const std::string& name, double stepover = 0.03)
    {
        util::Parameterized parameters;
        parameters.set(keys::stepover, stepover);
        addPart(name, parameters, "pocket-with-islands");
    }

    int run(const Texts& arguments)
    {
        Program program(folder.path(), arguments);
        const int status = program.wait();
        output = program.output();
        errors = program.errors();
        return status;
    }

    bool isThere(const std::string& name) const { return fs::exists(folder / name); }
    std::string content(const std::string& name) const { return readBytes(folder / name); }

    /// The names of all files in the folder and below it.
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
            if (entry.is_regular_file())
                names.push_back(fs::relative(entry.path(), folder.path()).string());
        std::sort(names.begin(), names.end());
        return names;
    }

    double lowestZ(const std::string& name) const
    {
        exchange::ToolpathRecords toolpath;
        exchange::readArchiveFile(folder / name, toolpath);
        double lowest = std::numeric_limits<double>::infinity();
        for (const exchange::ToolpathRecord& record : toolpath.records)
            if (const auto* const move = boost::get<exchange::LinearMove>(&record))
                lowest = std::min(lowest, move->endPt[2]);
        return lowest;
    }

    const TemporaryFolder folder;
    std::string output;
    std::string errors;
};

bool has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

TEST_F(Command, WritesAProgramBesideThePartAndSaysNothing)
{
    addPart("pocket.xml");
    EXPECT_EQ(run({"pocket.xml"}), 0) << errors;
    EXPECT_EQ(output + errors, "");
    EXPECT_EQ(files(), (Texts{"pocket.ngc", "pocket.xml"}));
    const std::string program = content("pocket.ngc");
    EXPECT_EQ(program.substr(0, 2), "%\n");
    EXPECT_TRUE(has(program, "(Toolpath: pocket)\n"));
    EXPECT_TRUE(has(program, "T1 M6\n")) << "the tool number of the archive";
    EXPECT_TRUE(has(program, "\nG3 "));
    EXPECT_EQ(run({"--verbose", "pocket.xml"}), 0);
    EXPECT_TRUE(has(errors, "pocket.xml: ") && has(errors, " records into pocket.ngc")) << errors;
}

TEST_F(Command, TakesFormatAndPlaceFromTheOptionsOrTheName)
{
    addPart("part.bin", {}, "square-pocket", exchange::ArchiveFormat::binary);
    const struct
    {
        Texts arguments;
        const char* file;
        bool isXml;
    } cases[] = {
        {{"part.bin", "-f", "xml"}, "part-toolpath.xml", true},
        {{"part.bin", "-o", "a.xml"}, "a.xml", true},
        {{"part.bin", "-o", "a.nc"}, "a.nc", false},
        {{"part.bin", "--output=b", "--format=gcode"}, "b", false},
        {{"part.bin", "-o", "c.xml", "-f", "gcode"}, "c.xml", false},
        {{"part.bin", "-o", "new/folder/"}, "new/folder/part.ngc", false},
        {{"part.bin", "-o", "new", "-f", "xml"}, "new/part-toolpath.xml", true},
        {{"-o", "d.tap", "--", "part.bin"}, "d.tap", false},
    };
    for (const auto& one : cases)
    {
        EXPECT_EQ(run(one.arguments), 0) << errors;
        EXPECT_EQ(content(one.file).substr(0, 5) == "<?xml", one.isXml) << one.file;
    }
    EXPECT_EQ(lowestZ("a.xml"), lowestZ("part-toolpath.xml"));
}

TEST_F(Command, RefusesACommandLineThatItCannotFollow)
{
    addPart("a.xml");
    fs::create_directory(folder / "b");
    addPart("b/a.xml");
    const struct
    {
        Texts arguments;
        const char* text;
    } cases[] = {
        {{}, "No part is given"},
        {{"a.xml", "--job", "2"}, "unrecognised option '--job'"},
        {{"a.xml", "-j"}, "'--jobs' is missing"},
        {{"a.xml", "-j", "0"}, "--jobs takes a number from 1 to 256"},
        {{"a.xml", "-j", "two"}, "'--jobs' is invalid"},
        {{"a.xml", "--threads", "-4"}, "--threads"},
        {{"a.xml", "-f", "binary"}, "no binary archives"},
        {{"a.xml", "-f", "pdf"}, "--format takes gcode or xml, not \"pdf\""},
        {{"a.xml", "-o", "a.pdf"}, "\"a.pdf\" does not tell the format"},
        {{"a.xml", "-o", "a.xml"}, "would take the place of the part \"a.xml\""},
        {{"a.xml", "b/a.xml", "-o", "out/"}, "\"a.xml\" and \"b/a.xml\" would both be written into \"out/a.ngc\""},
        {{"a.xml", "b/a.xml", "-o", "b/a.xml"}, "The folder \"b/a.xml\" cannot be made"},
        {{"a.xml", "-s", "Stepover"}, "--set \"Stepover\" should be"},
        {{"a.xml", "-g", "decimals=1"}, "\"decimals\" cannot be \"1\"; it takes 3 to 8"},
        {{"a.xml", "-g", "colour=red"}, "\"colour\" is no G-code setting; there are: units,"},
        {{"a.xml", "--template", "no.vtmpl"}, "\"no.vtmpl\": Error reading Template file."},
    };
    for (const auto& one : cases)
    {
        EXPECT_EQ(run(one.arguments), 1) << one.text;
        EXPECT_TRUE(has(errors, one.text)) << errors;
        EXPECT_TRUE(has(errors, "Try tessaron-job --help.")) << errors;
        EXPECT_EQ(output, "");
        EXPECT_EQ(files(), (Texts{"a.xml", "b/a.xml"}));
    }
}

TEST_F(Command, TellsWhatItCanDo)
{
    EXPECT_EQ(run({"--help"}), 0);
    for (const exchange::GcodeSetting& setting : exchange::gcodeSettings())
        EXPECT_TRUE(has(output, std::string("  ") + setting.name + "=")) << setting.name;
    for (const char* const option : {"--output", "--format", "--jobs", "--set", "--template", "--version"})
        EXPECT_TRUE(has(output, option)) << output;
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_EQ(output, "tessaron-job " TESSARON_VERSION "\n");
}

TEST_F(Command, GoesOnWhenSomeOfManyPartsFail)
{
    util::Parameterized largeTool;
    largeTool.set(keys::toolDiameter, 200.0);
    for (const char* const name : {"1.xml", "3.xml", "5.xml"})
        addPart(name);
    addPart("2.xml", largeTool);
    writeBytes(folder / "4.xml", "Dear machinist,\n");
    exchange::writeArchiveFile(folder / "6.xml", exchange::ToolpathRecords());
    for (const char* const jobs : {"1", "3"})
    {
        EXPECT_EQ(run({"-j", jobs, "-o", "out", "1.xml", "2.xml", "3.xml", "4.xml", "5.xml", "6.xml", "7.xml"}), 1);
        EXPECT_TRUE(has(errors, "2.xml: error: No toolpath was generated")) << errors;
        EXPECT_TRUE(has(errors, "(-1013)")) << errors;
        EXPECT_TRUE(has(errors, "4.xml: error: Cannot read '4.xml'")) << errors;
        EXPECT_TRUE(has(errors, "6.xml: error: Cannot read '6.xml'")) << errors;
        EXPECT_TRUE(has(errors, "7.xml: error: Cannot read '7.xml': No such file")) << errors;
        for (const char* const name : {"1", "3", "5"})
        {
            EXPECT_TRUE(fs::remove(folder / ("out/" + std::string(name) + ".ngc"))) << name;
            EXPECT_FALSE(has(errors, std::string(name) + ".xml")) << errors;
        }
        EXPECT_TRUE(fs::is_empty(folder / "out"));
    }
}

TEST_F(Command, TellsWarningsAndExitsWith2)
{
    addPart("part.xml");
    EXPECT_EQ(run({"part.xml", "-s", "Holder Clearance=1", "-s", "Feed rate=3"}), 2);
    EXPECT_TRUE(has(errors, "part.xml: warning: \"Holder Clearance\" is set and not used by this job. (-2003)\n"))
        << errors;
    EXPECT_TRUE(has(errors, "did you mean \"Feedrate\"? (-2004)")) << errors;
    EXPECT_TRUE(isThere("part.ngc"));
    EXPECT_EQ(run({"part.xml", "-s", "Holder Clearance=1", "--quiet"}), 2);
    EXPECT_EQ(errors, "");
    // A proposal is no warning.
    EXPECT_EQ(run({"part.xml", "-s", "Detect Optimal Pre-Drill Points=1"}), 0);
    EXPECT_TRUE(has(errors, "part.xml: note: ")) << errors;
}

TEST_F(Command, TakesParametersFromTheArchiveThenTheTemplateThenTheCommandLine)
{
    addPart("part.xml");
    util::Parameterized roughing;
    roughing.set(keys::templateName, std::string("Roughing"));
    roughing.set(keys::zDepth, -3.5);
    roughing.set(keys::toolDiameter, 0.001);
    roughing.set(keys::zStockToLeave, 0.25);
    ASSERT_EQ(util::saveTemplateFile(folder / "Roughing", false, &roughing), 0);
    const std::string base = "part.xml";
    const Texts plain{base, "-f", "xml"};
    ASSERT_EQ(run(plain), 0) << errors;
    const double deep = lowestZ("part-toolpath.xml");
    ASSERT_EQ(run({base, "-f", "xml", "--template", "Roughing.vtmpl"}), 0) << errors;
    EXPECT_NE(deep, -3.25);
    EXPECT_EQ(lowestZ("part-toolpath.xml"), -3.25) << "the tool of the template is not taken, all else is";
    ASSERT_EQ(
        run({base, "-f", "xml", "--template", "Roughing.vtmpl", "-s", "Z Depth=-2", "-s", "Z Stock to Leave=0.5"}), 0)
        << errors;
    EXPECT_EQ(lowestZ("part-toolpath.xml"), -1.5);
    EXPECT_EQ(run({base, "-s", "Z Depth=deep"}), 1);
    EXPECT_TRUE(has(errors, "part.xml: error: ") && has(errors, "\"Z Depth\"")) << errors;
}

TEST_F(Command, WritesTheDialectThatIsAskedFor)
{
    addPart("part.xml");
    EXPECT_EQ(run({"part.xml", "-g", "units=inch", "-g", "line numbers=10", "-g", "tool=0", "-g", "title=Job 7"}), 0);
    const std::string program = content("part.ngc");
    EXPECT_TRUE(has(program, "(Toolpath: Job 7)\nN10 G20 G17")) << program.substr(0, 200);
    EXPECT_FALSE(has(program, "M6"));
}

TEST_F(Command, NamesTheOutputThatItCannotWrite)
{
    addPart("part.xml");
    for (const char* const path : {"missing/part.ngc", "missing/part.xml"})
    {
        EXPECT_EQ(run({"part.xml", "-o", path}), 1);
        EXPECT_TRUE(has(errors, std::string("Cannot write '") + path + "'")) << errors;
    }
    EXPECT_EQ(files(), (Texts{"part.xml"}));
}

TEST_F(Command, ShowsProgressOnATerminal)
{
    addPart("a.xml");
    addSlowPart("b.xml");
    Program program(folder.path(), {"a.xml", "b.xml", "-s", "Holder Clearance=1"}, Program::Errors::intoTerminal);
    EXPECT_TRUE(program.waitForError("1 of 2  b.xml "));
    EXPECT_TRUE(program.waitForError(" %")) << program.errors();
    // The warning stands on a line of its own, without rests of the progress.
    EXPECT_TRUE(has("\n" + program.errors(), "\na.xml: warning: ") || has(program.errors(), "\ra.xml: warning: "))
        << program.errors();
}

TEST_F(Command, LeavesNothingHalfWrittenWhenItIsInterrupted)
{
    addPart("a.xml");
    addSlowPart("b.xml");
    addSlowPart("c.xml");
    addPart("d.xml");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    {
        Program program(folder.path(), {"-o", "out/", "-j", "2", "a.xml", "b.xml", "c.xml", "d.xml"},
                        Program::Errors::intoTerminal);
        ASSERT_TRUE(program.waitForError("1 of 4  b.xml"));
        program.signal(signal);
        EXPECT_EQ(program.wait(), -signal) << "whoever started it must see the signal";
        EXPECT_TRUE(has(program.errors(), "b.xml: error: Toolpath generation cancelled")) << program.errors();
        EXPECT_EQ(files(), (Texts{"a.xml", "b.xml", "c.xml", "d.xml", "out/a.ngc"}));
        fs::remove_all(folder / "out");
    }
}

TEST_F(Command, GoesOnUnderNohup)
{
    addPart("a.xml");
    addSlowPart("b.xml", 0.2);
    std::signal(SIGHUP, SIG_IGN);
    Program program(folder.path(), {"a.xml", "b.xml"}, Program::Errors::intoTerminal);
    std::signal(SIGHUP, SIG_DFL);
    ASSERT_TRUE(program.waitForError("1 of 2  b.xml"));
    program.signal(SIGHUP);
    EXPECT_EQ(program.wait(), 0) << program.errors();
    EXPECT_TRUE(isThere("b.ngc"));
}

} // namespace
