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

TEST(ModuleLibrary, NamesAFileThatIsMissing)
{
    EXPECT_NE(complaintAbout("/nowhere/libModule.so").find("\"/nowhere/libModule.so\" cannot be loaded"),
              std::string::npos);
}

TEST(ModuleLibrary, NamesAFileThatIsNoLibrary)
{
    const std::string file = TESSARON_SAMPLES "/square-pocket.xml";
    EXPECT_NE(complaintAbout(file).find(file), std::string::npos);
}

TEST(ModuleLibrary, NamesWhatALibraryLacks)
{
    const std::string complaint = complaintAbout(TESSARON_OTHER_LIBRARY);
    EXPECT_NE(complaint.find(TESSARON_OTHER_LIBRARY), std::string::npos);
    EXPECT_NE(complaint.find("\"displayProgressDialogForJobId\""), std::string::npos);
}

} // namespace

} // namespace host
