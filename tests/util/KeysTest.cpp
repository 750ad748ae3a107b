#include <tessaron/util/Keys.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace
{

using namespace util;

/// The published vocabulary, one text a line, each closed by a bar because some end in a blank.
std::vector<std::string> publishedTexts()
{
    std::ifstream file(TESSARON_TEST_DATA "/parameter-keys.txt");
    std::vector<std::string> texts;
    for (std::string line; std::getline(file, line, '\n');)
        texts.push_back(line.substr(0, line.rfind('|')));
    return texts;
}

/// The texts of the constants in the header, which C++ cannot enumerate by itself.
std::vector<std::string> declaredTexts()
{
    std::ifstream file(KEYS_HEADER);
    const std::string header{std::istreambuf_iterator<char>(file), {}};
    const std::regex declaration(R"re(inline constexpr Key\s+\w+\(\s*"([^"]*)"\);)re");
    std::vector<std::string> texts;
    for (auto it = std::sregex_iterator(header.begin(), header.end(), declaration); it != std::sregex_iterator(); ++it)
        texts.push_back((*it)[1]);
    return texts;
}

TEST(Keys, AreThePublishedTextsByteForByteInTheirThemes)
{
    EXPECT_EQ(declaredTexts(), publishedTexts());
}

TEST(Keys, TextsThatInviteCorrectionStandAsTheyAre)
{
    const struct
    {
        Key key;
        const char* text;
    } cases[] = {
        {keys::toolFlutLength, "Tool Flut Length"},
        {keys::feedrate, "Feedrate"},
        {keys::minimumFeedRate, "Minimum Feed Rate"},
        {keys::sideMillStepover, "Side-mill Stepover"},
        {keys::maximumSegmentLength, "Maximum segment length"},
        {keys::templateCam, "Template CAM"},
        {keys::stageCreatingToolpath, "Creating toolpath: "},
        {keys::orrimantTemplateInfo, "orrimant_template_info"},
    };
    for (const auto& c : cases)
    {
        EXPECT_STREQ(c.key.c_str(), c.text);
        EXPECT_EQ(std::string(c.key), c.text);
        EXPECT_EQ(std::string_view(c.key), c.text);
    }
}

} // namespace
