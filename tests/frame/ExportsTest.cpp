#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace
{

typedef std::set<std::string> Names;

const std::string sources = TESSARON_SOURCES;

struct Library
{
    const char* room;
    const char* file;
};

const Library libraries[] = {
    {"exchange", TESSARON_EXCHANGE_LIBRARY},
    {"engine", TESSARON_ENGINES_LIBRARY},
    {"frame", TESSARON_RESOURCES_LIBRARY},
};

Names listedNames(const Library& library)
{
    std::ifstream file(sources + "/" + library.room + "/exports.txt");
    Names names;
    for (std::string line; std::getline(file, line);)
        names.insert(line);
    return names;
}

Names exportedNames(const Library& library)
{
    const std::string command = "'" + sources + "/tools/exported-names' '" + library.file + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::string text;
    std::array<char, 4096> part{};
    while (output && std::fgets(part.data(), static_cast<int>(part.size()), output.get()))
        text += part.data();
    Names names;
    for (std::size_t begin = 0, end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        names.insert(text.substr(begin, end - begin));
    return names;
}

std::string difference(const Names& more, const Names& less)
{
    std::vector<std::string> names;
    std::set_difference(more.begin(), more.end(), less.begin(), less.end(), std::back_inserter(names));
    std::string text;
    for (const std::string& name : names)
        text += "  " + name + "\n";
    return text;
}

TEST(Exports, AreThoseOfTheCommittedLists)
{
    for (const Library& library : libraries)
    {
        const Names listed = listedNames(library);
        const Names exported = exportedNames(library);
        EXPECT_FALSE(exported.empty()) << library.file;
        EXPECT_EQ(difference(listed, exported), "") << "listed in " << library.room << "/exports.txt, not exported";
        EXPECT_EQ(difference(exported, listed), "") << "exported, not listed in " << library.room << "/exports.txt";
    }
}

std::vector<std::filesystem::path> publicHeaders()
{
    std::vector<std::filesystem::path> headers;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sources + "/include/tessaron"))
        if (entry.path().extension() == ".h")
            headers.push_back(entry.path());
    return headers;
}

// A mark without the name in exports.map, or the other way round, shows only when somebody links.
TEST(Exports, HoldEveryFunctionAndClassThatAPublicHeaderMarks)
{
    std::string all = "\n";
    for (const Library& library : libraries)
        for (const std::string& name : listedNames(library))
            all += name + "\n";
    const std::regex marked("TESSARON_[A-Z]+_API ([^;({]*?(\\w+)\\(|(\\w+)(<\\d>)? (:|final|\\{)|(\\w+)\\n\\{)");
    std::size_t count = 0;
    for (const std::filesystem::path& header : publicHeaders())
    {
        const std::string text = testing_support::readBytes(header);
        for (std::sregex_iterator match(text.begin(), text.end(), marked), end; match != end; ++match, ++count)
        {
            const std::string function = (*match)[2];
            const std::string cls = (*match)[3].matched ? (*match)[3] : (*match)[6];
            const std::regex exported(function.empty() ? "(::|\\n| )" + cls + "(<\\d>)?(::|\\n)"
                                                       : "(::|\\n)" + function + "(\\(|\\[|\\n)");
            EXPECT_TRUE(std::regex_search(all, exported)) << header << ": " << function << cls;
        }
    }
    EXPECT_GT(count, 50u);
}

TEST(PublicHeaders, SayHowStableTheyAre)
{
    const std::regex stated("#define TESSARON_\\w+_H\\n\\n// Stability: (stable|experimental|internal)\\.\\n");
    for (const std::filesystem::path& header : publicHeaders())
        EXPECT_TRUE(std::regex_search(testing_support::readBytes(header), stated)) << header;
}

} // namespace
