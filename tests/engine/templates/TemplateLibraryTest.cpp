#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace
{

TEST(TemplateLibrary, FindsTheExpertDataBesideItself)
{
    util::TechnologyExpertData data;
    EXPECT_EQ(util::getTechnologyExpertData(&data), exchange::status::ok);
    EXPECT_FALSE(data.machineTapers.empty());
}

TEST(TemplateLibrary, FindsTheExpertDataAfterTheHostHasChangedItsFolder)
{
    const std::filesystem::path library = std::filesystem::canonical(TESSARON_LIBRARY);
    const std::string command =
        "cd '" + library.parent_path().string() + "' && '" + LATE_LOADER + "' './" + library.filename().string() + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::array<char, 80> line{};
    ASSERT_TRUE(output && std::fgets(line.data(), static_cast<int>(line.size()), output.get()));
    EXPECT_EQ(line.data(), std::to_string(exchange::status::ok) + "\n");
}

} // namespace
