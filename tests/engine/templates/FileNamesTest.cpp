#include "engine/templates/FileNames.h"
#include <tessaron/engine/TemplatePath.h>

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace store = util::store;

namespace
{

struct NameCase
{
    const char* name;
    const char* stem;
};

TEST(FileNames, PlainStemCodesOnlyWhatSomeSystemRefuses)
{
    const NameCase cases[] = {
        {"Roughing 10mm", "Roughing 10mm"},
        {"TESSARON1", "TESSARON1"},
        {"a/b\\c", "a%2Fb%5Cc"},
        {"50% off", "50%25 off"},
        {"what?*:<>|\"", "what%3F%2A%3A%3C%3E%7C%22"},
        {"line\nbreak\ttab", "line%0Abreak%09tab"},
        {".", "%2E"},
        {"..", "%2E."},
        {".hidden.", "%2Ehidden."},
        {" blanks ", " blanks "},
        {"CON", "%43ON"},
        {"nul.tar.gz", "%6Eul.tar.gz"},
        {"com1", "%63om1"},
        {"COM10", "COM10"},
        {"LPT9 .x", "%4CPT9 .x"},
        {"com\xC2\xB9", "%63om\xC2\xB9"},
        {"conin$", "%63onin$"},
        {"Console", "Console"},
        {"Fr\xC3\xA4ser \xE2\x8C\x80 10", "Fr\xC3\xA4ser \xE2\x8C\x80 10"},
    };
    for (const NameCase& c : cases)
    {
        EXPECT_EQ(store::plainStem(c.name), c.stem);
        EXPECT_EQ(store::nameOfStem(c.stem), c.name);
    }
}

TEST(FileNames, EveryNameComesBackAndNoTwoShareAFile)
{
    std::mt19937 random(7);
    std::set<std::string> names;
    std::set<std::string> stems;
    // Short names out of troublesome characters meet each other often.
    const std::string alphabet("%25FfA./\\\0~ \x80\xC3\xA4", 15);
    for (int i = 0; i < 20000; ++i)
    {
        std::string name;
        for (std::size_t length = 1 + random() % 4; length > 0; --length)
            name += alphabet[random() % alphabet.size()];
        names.insert(name);
        const std::string stem = store::plainStem(name);
        stems.insert(stem);
        ASSERT_EQ(store::nameOfStem(stem), name);
        ASSERT_EQ(store::listedName(stem, name), name);
        ASSERT_EQ(store::listedName(store::markedStem(name), name), name);
    }
    EXPECT_EQ(names.size(), stems.size());
}

TEST(FileNames, LongNamesAreCutBetweenCharactersAndStayApart)
{
    const std::string extension = util::templateExtension;
    const std::string fits(store::longestFileName - extension.size(), 'x');
    EXPECT_EQ(store::fileStem(fits, extension), fits);

    const std::string tooLong = fits + "x";
    const std::string cut = store::fileStem(tooLong, extension);
    EXPECT_EQ(cut.size() + extension.size(), store::longestFileName);
    EXPECT_NE(cut, store::fileStem(tooLong + "x", extension));
    EXPECT_FALSE(store::nameOfStem(cut));
    EXPECT_EQ(store::listedName(cut, tooLong), tooLong);

    // Wherever the cut falls, no character and no code is torn.
    for (std::size_t shift = 0; shift < 6; ++shift)
    {
        std::string name(shift, 'x');
        for (int i = 0; i < 100; ++i)
            name += "\xE2\x8C\x80/";
        const std::string stem = store::markedStem(name);
        const std::string head = stem.substr(0, stem.find("%~"));
        EXPECT_EQ(store::plainStem(*store::nameOfStem(head)), head);
        const std::string tail = head.substr(head.size() - 3);
        EXPECT_TRUE(tail == "%2F" || tail == "\xE2\x8C\x80") << tail;
    }
}

TEST(FileNames, NamesThatDifferInCaseHaveDifferentMarkedStems)
{
    EXPECT_NE(store::markedStem("Rough"), store::markedStem("rough"));
    EXPECT_EQ(store::markedStem("Rough").substr(0, 7), "Rough%~");
}

TEST(FileNames, FileNameHoldsWhereItDisagreesWithTheFile)
{
    EXPECT_EQ(store::listedName("copy of a", "a"), "copy of a");
    EXPECT_EQ(store::listedName("50% off", "x"), "50% off");
    EXPECT_EQ(store::listedName("a", ""), "a");
}

TEST(FileNames, FirstFreeNameFillsTheFirstGap)
{
    EXPECT_EQ(store::firstFreeName("TESSARON", {}), "TESSARON1");
    EXPECT_EQ(store::firstFreeName("TESSARON", {"TESSARON1", "TESSARON2", "TESSARON4"}), "TESSARON3");
    EXPECT_EQ(store::firstFreeName("TESSARON", {"tessaron1", "Tessaron2"}), "TESSARON3");
    EXPECT_EQ(store::firstFreeName("T", {"T01", "T", "T1x", "T99999999999999999999999", "U1"}), "T1");
    EXPECT_EQ(store::firstFreeName("", {"1", "2"}), "3");
}

struct PathCase
{
    const char* path;
    const char* templateName;
    const char* folder;
    const char* name;
};

TEST(TemplatePath, SplitsWithTheHelpOfTheTemplateName)
{
    const PathCase cases[] = {
        {"dir/a", "a", "dir", "a"},
        {"dir\\a", "a", "dir", "a"},
        {"C:\\dir\\sub\\a b", "a b", "C:\\dir\\sub", "a b"},
        {"dir/1/2 in", "1/2 in", "dir", "1/2 in"},
        {"dir/\\x\\", "\\x\\", "dir", "\\x\\"},
        {"dir/a.vtmpl", "a", "dir", "a"},
        {"dir/a.vtmpl", "a.vtmpl", "dir", "a.vtmpl"},
        {"/a", "a", "/", "a"},
        {"a", "a", ".", "a"},
        {"dir/other", "a", "dir", "other"},
        {"dir/other.vtmpl", "", "dir", "other"},
        {"dir/xa", "a", "dir", "xa"},
        {"dir/", "", "dir", ""},
    };
    for (const PathCase& c : cases)
    {
        const util::TemplatePathParts parts = util::splitTemplatePath(c.path, c.templateName);
        EXPECT_EQ(parts.folder, c.folder) << c.path;
        EXPECT_EQ(parts.name, c.name) << c.path;
    }
}

TEST(TemplatePath, ComposedPathsSplitIntoTheirParts)
{
    for (const char* folder : {"dir", "/tmp/x", "dir\\sub", ".", "dir.vtmpl"})
        for (const char* name : {"a", "/", "\\", "a/b", ".vtmpl", "..", "a/", "dir/a"})
        {
            const util::TemplatePathParts parts = util::splitTemplatePath(util::templatePath(folder, name), name);
            EXPECT_EQ(parts.folder, folder);
            EXPECT_EQ(parts.name, name);
            EXPECT_FALSE(parts.isFileName);
        }
}

} // namespace
