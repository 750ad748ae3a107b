#include "tests/support/TemporaryFolder.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace testing_support
{
namespace
{

class TourTest : public testing::Test
{
protected:
    /// \returns whether it ended with 0
    bool runTour(const std::string& arguments)
    {
        const std::string command = TESSARON_TOUR " --pictures " + folder.path() + "/pictures " + arguments + " >" +
                                    folder.path() + "/output 2>&1";
        const bool good = std::system(command.c_str()) == 0;
        output = readBytes(folder / "output");
        return good;
    }

    std::size_t pictures() const
    {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "pictures"))
            count += entry.path().extension() == ".png" && entry.file_size() > 1000;
        return count;
    }

    const TemporaryFolder folder;
    std::string output;
};

// The last part is the one whose job is watched and cancelled, so it has to take its time.
std::string slowPart(const TemporaryFolder& folder)
{
    exchange::Tessaron2dInput input;
    exchange::readArchiveFile(TESSARON_SAMPLES "/pocket-with-islands.xml", input);
    input.parameters.set(util::keys::stepover, 0.03);
    input.parameters.set(util::keys::numberOfConcurrentThreads, 1);
    exchange::writeArchiveFile(folder / "slow.xml", input);
    return folder / "slow.xml";
}

TEST_F(TourTest, ShowsAPartCancelsSavesAndMeetsABadFile)
{
    EXPECT_TRUE(runTour(TESSARON_SAMPLES "/square-pocket.xml " + slowPart(folder))) << output;
    EXPECT_NE(output.find("The tour is complete."), std::string::npos) << output;
    EXPECT_NE(output.find("\"Tool Diameter\" is missing"), std::string::npos) << output;
    EXPECT_NE(output.find("the template brought the stepover back"), std::string::npos) << output;
    EXPECT_GE(pictures(), 23u);
}

TEST_F(TourTest, FailsWhenAPartIsMissing)
{
    EXPECT_FALSE(runTour(folder / "nothing.xml"));
    EXPECT_NE(output.find("nothing.xml"), std::string::npos) << output;
}

TEST_F(TourTest, SaysThatTheModuleIsMissing)
{
    EXPECT_FALSE(runTour("--module /nowhere/libModule.so"));
    EXPECT_NE(output.find("/nowhere/libModule.so"), std::string::npos) << output;
}

} // namespace
} // namespace testing_support
