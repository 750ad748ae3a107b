#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"
#include "util/text/ReadDouble.h"
#include "util/text/ReadableText.h"
#include "util/text/Utf8.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <future>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace
{

TEST(Trimmed, TakesBlanksOffBothEndsOnly)
{
    EXPECT_EQ(util::trimmed(" \t a  b\v\f\r\n"), "a  b");
    EXPECT_EQ(util::trimmed(" \n "), "");
    EXPECT_EQ(util::trimmed("\v a ", util::xmlBlanks), "\v a");
    EXPECT_EQ(util::trimmed("\xC2\xA0"), "\xC2\xA0");
}

TEST(EqualIgnoringAsciiCase, FoldsNothingButLetters)
{
    EXPECT_TRUE(util::equalIgnoringAsciiCase("Az09_", "aZ09_"));
    EXPECT_FALSE(util::equalIgnoringAsciiCase("a", "ab"));
    EXPECT_FALSE(util::equalIgnoringAsciiCase("@[", "`{"));
    EXPECT_FALSE(util::equalIgnoringAsciiCase("\xC3\x84", "\xC3\xA4"));
}

TEST(FoldCase, MakesTextsAlikeThatDifferInCase)
{
    const struct
    {
        std::string_view alphabet;
        std::string_view one;
        std::string_view other;
    } pairs[] = {
        {"ASCII", "Abc Z09_", "aBC z09_"},
        {"Latin", "ÄÖÜ × Øystein ŽŁ", "äöü × øYSTEIN žł"},
        {"Latin, a letter to two", "STRASSE", "Straße"},
        {"Latin beyond U+0480", "ƁǼ Ḟoo Ộ", "ɓǽ ḟOO ộ"},
        {"Greek", "Ά ΣΟΦΌΣ Ω", "ά σοφός ω"},
        {"Cyrillic", "ЖЁ Ѣ ҐҔ", "жё ѣ ґҕ"},
        {"Armenian and Georgian", "ԱՖ ᲐᲑ", "աֆ აბ"},
        {"beyond 16 bits", "𐐀", "𐐨"},
    };
    for (const auto& [alphabet, one, other] : pairs)
        EXPECT_EQ(util::foldCase(one), util::foldCase(other)) << alphabet;
    EXPECT_NE(util::foldCase("ä"), util::foldCase("a"));
}

TEST(FoldCase, LeavesBytesThatAreNoUtf8)
{
    const std::string_view broken[] = {"\xC3",
                                       "\xC3"
                                       "a\x80\xFF",
                                       "\xC3\xA4\xF0\x9F", std::string_view("a\0b\xE2\x82", 5)};
    for (const std::string_view text : broken)
        EXPECT_EQ(util::foldCase(text), text);
    EXPECT_EQ(util::foldCase("\xFF\xC3\x84\xC3"), "\xFF\xC3\xA4\xC3");
}

TEST(ReadableText, TakesWhatIsNoUtf8InTheCodePageOrAsLatin)
{
    const struct
    {
        const char* codePage;
        std::string_view text;
        std::string_view readable;
    } texts[] = {
        {"UTF-8", "", ""},
        {"UTF-8", "Fräsen €", "Fräsen €"},
        {"UTF-8", std::string_view("a\0ä", 4), std::string_view("a\0ä", 4)},
        {"UTF-8", "Fr\xE4sen", "Fräsen"},
        {"UTF-8", "\xDF", "ß"},
        {"UTF-8", "5 \x80 \x96 \xD8", "5 € – Ø"},
        {"UTF-8", "\x81\xE4", "\xC2\x81ä"},
        {"UTF-8", std::string_view("\xE4\0b", 3), std::string_view("ä\0b", 4)},
        {"US-ASCII", "Fr\xE4sen", "Fräsen"},
        {"ISO-8859-5", "\xB6\xD8", "Жи"},
        {"ISO-8859-5", "Жи", "Жи"},
    };
    for (const auto& [codePage, text, readable] : texts)
    {
        ASSERT_EQ(::setenv("CHARSET", codePage, 1), 0); // NOLINT(concurrency-mt-unsafe)
        // A thread asks once what the code page is.
        EXPECT_EQ(std::async(std::launch::async, util::readableText, text).get(), readable) << codePage;
    }
    ::unsetenv("CHARSET"); // NOLINT(concurrency-mt-unsafe)
}

TEST(Utf8, CutsBeforeTheFirstByteOfACharacter)
{
    const std::string text = "aä€𐐀";
    const std::size_t lengths[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
    for (std::size_t limit = 0; limit < std::size(lengths); ++limit)
        EXPECT_EQ(util::utf8CutLength(text, limit), lengths[limit]) << limit;
    EXPECT_EQ(util::utf8CutLength("\x80\x80\x80", 2), 0U);
}

TEST(Utf8, AppendsCharactersOfEveryLength)
{
    std::string text;
    for (const char32_t codePoint :
         {U'a', U'\x7F', U'\x80', U'ä', U'\x7FF', U'\x800', U'€', U'\xFFFF', U'\x10000', U'\x10FFFF'})
        util::appendUtf8(text, codePoint);
    EXPECT_EQ(text, "a\x7F\xC2\x80ä\xDF\xBF\xE0\xA0\x80€\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(ReadDouble, TellsTooSmallFromTooLarge)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::string zeros(400, '0');
    const struct
    {
        std::string text;
        double value;
    } cases[] = {
        {"1e999", infinity},
        {"-1e999", -infinity},
        {"1e-999", 0.0},
        {"-1e-999", -0.0},
        {"1" + zeros, infinity},
        {"0." + zeros + "1", 0.0},
        {"-." + zeros + "1", -0.0},
        {"0." + zeros + "1e+1000", infinity},
        {"1" + zeros + "e-1000", 0.0},
        {"1e99999999999999999999", infinity},
        {"1e-99999999999999999999", 0.0},
    };
    for (const auto& [text, expected] : cases)
    {
        double value = 1;
        const std::string tail = text + " mm";
        const auto [stop, error] = util::readDouble(tail.data(), tail.data() + tail.size(), value);
        EXPECT_EQ(value, expected) << text;
        EXPECT_EQ(std::signbit(value), std::signbit(expected)) << text;
        EXPECT_EQ(error, std::errc::result_out_of_range) << text;
        EXPECT_EQ(stop - tail.data(), static_cast<std::ptrdiff_t>(text.size()));
    }
}

} // namespace
