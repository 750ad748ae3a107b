// Archives that no writer of ours makes, and that are sound: of older library versions, of older class versions, laid
// out in other ways.

#include "ArchiveText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace testing_support
{
namespace
{

using exchange::ArchiveFormat;

struct Layout
{
    const char* name;
    std::function<std::string(std::string)> change;
};

std::string withoutIndentation(const std::string& text)
{
    // Line ends and tabs between tags only; those inside strings are content.
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == '\n' && !result.empty() && result.back() == '>')
        {
            const std::size_t next = text.find_first_not_of("\n\t", i);
            if (next == std::string::npos || text[next] == '<')
            {
                i = next == std::string::npos ? text.size() : next - 1;
                continue;
            }
        }
        result += text[i];
    }
    return result;
}

/// With CR LF behind every tag.
std::string withWindowsLineEnds(const std::string& text)
{
    return replacedAll(text, ">\n", ">\r\n");
}

std::string withOtherAttributeOrder(const std::string& text)
{
    const std::string ordered = replacedAll(text, " tracking_level=\"0\" version=\"0\">",
                                            "  version = \"0\"\n tracking_level='0' unknown=\"x\">");
    return replaced(ordered, "signature=\"serialization::archive\" version=\"10\"",
                    "version=\"10\" signature=\"serialization::archive\" ");
}

TEST(OddArchive, LayoutDoesNotMatter)
{
    const Layout layouts[] = {
        {"no indentation", withoutIndentation},
        {"CR LF", withWindowsLineEnds},
        {"attributes", withOtherAttributeOrder},
        {"byte order mark", [](const std::string& text) { return "\xEF\xBB\xBF" + text; }},
        {"blanks in front", [](const std::string& text) { return "\r\n" + text; }},
        {"bytes behind", [](const std::string& text) { return text + std::string("<more>\0&", 8); }},
        {"nothing behind", [](const std::string& text) { return text.substr(0, text.size() - 2); }},
    };
    for (const char* name : {"orrimant", "t3dinput", "toolpath", "parameterized_full", "mesh"})
        for (const Layout& layout : layouts)
        {
            SCOPED_TRACE(std::string(name) + ": " + layout.name);
            const std::string plain = golden(std::string(name) + ".xml");
            const std::string changed = layout.change(plain);
            ASSERT_NE(changed, plain);
            EXPECT_EQ(recordOfGolden(name).rewrite(changed, ArchiveFormat::xml), plain);
        }
}

TEST(OddArchive, NumbersMayBeWrittenInManyWays)
{
    struct Row
    {
        const char* text;
        double value;
    };
    const Row rows[] = {{"+15", 15},
                        {".5", 0.5},
                        {"5.", 5},
                        {"0015", 15},
                        {"1.5E3", 1500},
                        {"1.5e+003", 1500},
                        {"1.0000000000000001e-005", 1.0000000000000001e-005},
                        {"  \n\t15", 15},
                        {"15  \n", 15},
                        {"0.1000000000000000055511151231257827021181583404541015625", 0.1},
                        {"-0", -0.0},
                        {"1e-400", 0},
                        {"-0.00000000001e-390", -0.0},
                        {"4.9406564584124654e-324", 4.9406564584124654e-324}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.text);
        const auto record = readFrom<exchange::FeedRate>(feedRateArchive(row.text));
        EXPECT_EQ(record.feedrate, row.value);
        EXPECT_EQ(std::signbit(record.feedrate), std::signbit(row.value));
    }
}

TEST(OddArchive, NumbersHaveOneSign)
{
    for (const char* const text : {"+-5", "-+5", "++5", "--5", "+", "-", "+-.5"})
        EXPECT_NE(readError(anyRecord<exchange::FeedRate>, feedRateArchive(text)), "") << text;
}

TEST(OddArchive, StringsKeepEveryByteAndTakeEveryReference)
{
    const auto read = [](const std::string& content)
    {
        return readFrom<exchange::CustomRecord>(
                   replaced(golden("rec_customrecord.xml"), "a&lt;b &amp; c&gt;d", content))
            .string;
    };
    EXPECT_EQ(read("  \r\n\t \x01\x7f>'\"]]> "), "  \r\n\t \x01\x7f>'\"]]> ");
    EXPECT_EQ(read("&#65;&#x42;&#xE4;&#x20AC;&#x1F527;"), "AB\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7");
    const std::string large(3'000'000, 'x');
    EXPECT_EQ(read(large + "&amp;" + large), large + "&" + large);
}

TEST(OddArchive, MapEntriesMayComeInAnyOrderAndTheFirstOfAKeyCounts)
{
    const auto entry = [](const std::string& key, int value, bool first)
    {
        const std::string info = first ? " class_id=\"2\" tracking_level=\"0\" version=\"0\"" : "";
        const std::string value_info = first ? " class_id=\"3\" tracking_level=\"0\" version=\"0\"" : "";
        return "<item" + info + "><first>" + key + "</first><second" + value_info + "><which>0</which><value>" +
               std::to_string(value) + "</value></second></item>";
    };
    const std::string full = golden("parameterized_full.xml");
    const std::size_t start = full.find("<item ");
    const std::string archive = replaced(full.substr(0, start), "<count>21", "<count>4") + entry("b", 1, true) +
                                entry("c", 2, false) + entry("a", 3, false) + entry("b", 4, false) +
                                full.substr(full.find("</params>"));
    const auto set = readFrom<util::Parameterized>(archive);
    ASSERT_EQ(set.size(), 3u);
    EXPECT_EQ(set.intOr("a", 0), 3);
    EXPECT_EQ(set.intOr("b", 0), 1);
    EXPECT_EQ(set.intOr("c", 0), 2);
}

TEST(OddArchive, OlderLibraryVersionsRead)
{
    for (const char* version : {"9", "8", "7", "6"})
    {
        SCOPED_TRACE(version);
        const std::string xml = golden("t3dinput.xml");
        const std::string old = replaced(xml, "version=\"10\"", std::string("version=\"") + version + "\"");
        EXPECT_EQ(recordOfGolden("t3dinput").rewrite(old, ArchiveFormat::xml), xml);
    }
    for (const char version : {'\x09', '\x08'})
    {
        const std::string binary = golden("t3dinput.bin");
        std::string old = binary;
        old[30] = version;
        EXPECT_EQ(recordOfGolden("t3dinput").rewrite(old, ArchiveFormat::binary), binary);
    }
}

TEST(OddArchive, BinaryVersion7HasNarrowClassVersionsAndMayHaveANarrowHeader)
{
    // pointnd3.bin: 40 bytes of head, tracking, a class version of 4 bytes, the fields.
    const std::string binary = golden("pointnd3.bin");
    for (const bool narrowHeader : {false, true})
    {
        std::string old = binary;
        old.erase(42, 3);
        old[30] = '\x07';
        if (narrowHeader)
            old.erase(31, 1);
        EXPECT_EQ(recordOfGolden("pointnd3").rewrite(old, ArchiveFormat::binary), binary);
    }
}

TEST(OddArchive, BinaryVersion6WithNarrowClassVersionsIsRefused)
{
    // Its later writers stored class versions in 1 byte and did not tell.
    std::string old = golden("pointnd3.bin");
    old[30] = '\x06';
    std::string narrow = old;
    old.erase(43, 2);
    EXPECT_EQ(recordOfGolden("pointnd3").rewrite(old, ArchiveFormat::binary), golden("pointnd3.bin"));
    narrow.erase(42, 3);
    EXPECT_EQ(readError(anyRecord<geom::PointNd<3>>, narrow), "class version geom::PointNd<3>");
}

TEST(OddArchive, ShortArraysFillTheLeadingEntries)
{
    const std::string archive = replaced(replaced(golden("pointnd3.xml"), "<count>3", "<count>1"),
                                         "\t\t<item>1e-300</item>\n\t\t<item>4</item>\n", "");
    const auto point = readFrom<geom::PointNd<3>>(archive);
    EXPECT_EQ(point, geom::PointNd<3>(1.0 / 3, 0, 0));

    // Among full ones, which are read in one go: the third of four vertices, with the count at byte 142.
    std::string mesh = golden("mesh.bin");
    ASSERT_EQ(mesh.substr(142, 8), std::string("\3\0\0\0\0\0\0\0", 8));
    mesh[142] = '\2';
    mesh.erase(142 + 8 + 16, 8);
    const auto whole = readFrom<topo::mesh::TriMeshPtr>(golden("mesh.bin"));
    const auto read = readFrom<topo::mesh::TriMeshPtr>(mesh);
    whole->vertices[2][2] = 0;
    EXPECT_EQ(read->vertices, whole->vertices);
    EXPECT_EQ(read->faces, whole->faces);
}

TEST(OddArchive, OutermostElementMayHaveAnyName)
{
    const std::string plain = golden("t2dinput.xml");
    EXPECT_EQ(recordOfGolden("t2dinput").rewrite(replacedAll(plain, "Tessaron2dInput", "job"), ArchiveFormat::xml),
              plain);
}

TEST(OddArchive, TrackedValuesOfOtherProgramsRead)
{
    // A program that keeps points behind pointers elsewhere tracks them everywhere.
    std::string archive = replaced(golden("pointnd3.xml"), "tracking_level=\"0\" version=\"0\"",
                                   "tracking_level=\"1\" version=\"0\" object_id=\"_0\"");
    EXPECT_EQ(recordOfGolden("pointnd3").rewrite(archive, ArchiveFormat::xml), golden("pointnd3.xml"));
    EXPECT_EQ(readError(anyRecord<geom::PointNd<3>>, replaced(archive, "\"_0\"", "\"_1\"")), "pointer conflict");
}

} // namespace
} // namespace testing_support
