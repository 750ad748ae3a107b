#include <tessaron/c/Common.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

// The rules that <tessaron/c/Common.h> gives for all headers of its folder, checked in their text.

namespace
{

/// A header without its comments and line breaks.
std::string codeOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    const std::string code = std::regex_replace(text, std::regex(R"(/\*[^]*?\*/|//.*)"), " ");
    return std::regex_replace(code, std::regex(R"(\s+)"), " ");
}

/// Whether a function's kind of result fits what its name says it does.
bool resultFits(const std::string& result, const std::string& name)
{
    const auto endsWith = [&name](const std::string& tail)
    { return name.size() >= tail.size() && name.compare(name.size() - tail.size(), tail.size(), tail) == 0; };
    if (endsWith("Free"))
        return result == "void";
    if (result == "size_t")
        return endsWith("Count");
    // What cannot fail.
    if (name == "tessaronLastError" || name == "tessaronStatusText" || name == "tessaronInputParameters")
        return true;
    return result == "int";
}

} // namespace

TEST(CHeaderRules, EveryFunctionKeepsThem)
{
    const std::regex function(R"(TESSARON_\w+_API ([^(;]*?[ *])(\w+)\(([^;]*)\);)");
    int functions = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TESSARON_C_HEADERS))
    {
        const std::string code = codeOf(entry.path());
        for (std::sregex_iterator it(code.begin(), code.end(), function), end; it != end; ++it, ++functions)
        {
            const std::string result = std::regex_replace((*it)[1].str(), std::regex(" +$"), "");
            const std::string name = (*it)[2];
            const std::string arguments = (*it)[3];
            EXPECT_EQ(name.rfind("tessaron", 0), 0U) << name;
            EXPECT_TRUE(resultFits(result, name)) << name << " returns " << result;
            EXPECT_NE(arguments, "") << name << " has to say void";
            EXPECT_FALSE(std::regex_search(arguments, std::regex("\\b(enum|bool|long)\\b")))
                << name << " takes a type whose size differs between compilers";
        }
    }
    EXPECT_GT(functions, 60);
}

TEST(CHeaderRules, VersionIsTheProjects)
{
    const std::string version = std::to_string(TESSARON_VERSION_MAJOR) + "." + std::to_string(TESSARON_VERSION_MINOR) +
                                "." + std::to_string(TESSARON_VERSION_PATCH);
    EXPECT_EQ(version, TESSARON_PROJECT_VERSION);
    EXPECT_EQ(tessaronVersion(), TESSARON_VERSION);
    EXPECT_EQ(tessaronHasFeature("jobs"), 1);
    EXPECT_EQ(tessaronHasFeature("time travel"), 0);
    EXPECT_EQ(tessaronHasFeature(nullptr), 0);
}
