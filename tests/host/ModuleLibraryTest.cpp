#include "host/ModuleLibrary.h"

#include <gtest/gtest.h>

namespace host
{

namespace
{

std::string complaintAbout(const std::string& file)
{
    try
    {
        const Module module(file);
        return "";
    }
    catch (const ModuleError& error)
    {
        return error.what();
    }
}

TEST(ModuleLibrary, FindsTheEntryPointsOfTheModule)
{
    const Module module(TESSARON_MODULE);
    EXPECT_TRUE(module.progress && module.turningProgress && module.multiProgress && module.turningMultiProgress);
    EXPECT_TRUE(module.quit && module.chipControl && module.gougeCheck && module.smartLink);
    EXPECT_NE(module.progress, module.turningProgress);
}

TEST(ModuleLibrary, NamesTheFileAndWhatIsWrongWithIt)
{
    const struct
    {
        std::string file;
        const char* problem;
    } cases[] = {{"/nowhere/libModule.so", "cannot be loaded"},
                 {TESSARON_SAMPLES "/square-pocket.xml", "cannot be loaded"},
                 {TESSARON_OTHER_LIBRARY, "\"displayProgressDialogForJobId\""}};
    for (const auto& [file, problem] : cases)
    {
        const std::string complaint = complaintAbout(file);
        EXPECT_NE(complaint.find(file), std::string::npos) << complaint;
        EXPECT_NE(complaint.find(problem), std::string::npos) << complaint;
    }
}

} // namespace

} // namespace host
