#include "host/Part.h"

#include "tests/support/TemporaryFolder.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace host
{

namespace
{

namespace keys = util::keys;
using namespace testing_support;

const std::string square = TESSARON_SAMPLES "/square-pocket.xml";

class PartFileTest : public testing::Test
{
protected:
    void writeChanged(const std::function<void(exchange::Tessaron2dInput&)>& change) const
    {
        exchange::Tessaron2dInput input = loadPart(square).input;
        change(input);
        exchange::writeArchiveFile(m_path, input);
    }

    std::string complaint() const
    {
        try
        {
            loadPart(m_path);
            return "";
        }
        catch (const PartError& error)
        {
            return error.what();
        }
    }

    const TemporaryFolder m_folder;
    const std::string m_path = m_folder / "part.xml";
};

TEST(Part, EverySampleOpensWithClosedBoundaries)
{
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TESSARON_SAMPLES))
    {
        ++samples;
        const Part part = loadPart(entry.path().string());
        for (const auto* contours : {&part.partContours, &part.stockContours})
        {
            EXPECT_FALSE(contours->empty()) << entry.path();
            for (const Contour& contour : *contours)
                EXPECT_TRUE(contour.closed) << entry.path();
        }
    }
    EXPECT_EQ(samples, 4);
}

TEST(Part, KnowsItsNameAndSize)
{
    const Part part = loadPart(square);
    EXPECT_EQ(part.name(), "Square pocket");
    EXPECT_EQ(part.fileName(), "square-pocket.xml");
    EXPECT_EQ(part.box().size(0), 120);
    EXPECT_EQ(part.box().size(2), 12);
}

TEST_F(PartFileTest, BadFilesAreNamedAndExplained)
{
    const std::string good = readBytes(square);
    const struct
    {
        const char* what;
        std::function<void()> make;
        const char* expected;
    } cases[] = {
        {"missing", [] {}, "No such file"},
        {"a text", [this] { writeBytes(m_path, "Dear machinist,\n"); }, "no archive"},
        {"truncated", [&] { writeBytes(m_path, good.substr(0, good.size() / 2)); }, "incomplete or damaged"},
        {"a toolpath", [this] { exchange::writeArchiveFile(m_path, exchange::ToolpathRecords()); },
         "does not hold a part"},
        {"no tool", [this] { writeChanged([](auto& input) { input.parameters.erase(keys::toolDiameter); }); },
         "\"Tool Diameter\" is missing"},
        {"a text for a number",
         [this] { writeChanged([](auto& input) { input.parameters.set(keys::feedrate, std::string("fast")); }); },
         "\"Feedrate\""},
        {"a negative stepover",
         [this] { writeChanged([](auto& input) { input.parameters.set(keys::stepover, -1.0); }); }, "\"Stepover\""},
        {"a missing curve",
         [this] { writeChanged([](auto& input) { input.boundaries.partBoundaries.push_back(nullptr); }); },
         "a boundary curve is missing"},
    };
    for (const auto& testCase : cases)
    {
        std::filesystem::remove(m_path);
        testCase.make();
        const std::string text = complaint();
        EXPECT_NE(text.find(m_path), std::string::npos) << testCase.what << ": " << text;
        EXPECT_NE(text.find(testCase.expected), std::string::npos) << testCase.what << ": " << text;
    }
}

TEST_F(PartFileTest, APartWithoutStockOpens)
{
    writeChanged([](auto& input) { input.boundaries.materialBoundaries.clear(); });
    EXPECT_EQ(complaint(), "") << "the job says what is wrong with boundaries, and the part can be looked at";
}

} // namespace

} // namespace host
