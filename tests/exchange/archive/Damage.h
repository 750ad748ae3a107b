#ifndef TESTS_EXCHANGE_ARCHIVE_DAMAGE_H
#define TESTS_EXCHANGE_ARCHIVE_DAMAGE_H

// What is done to sound archives to see that a reader refuses what they become.

#include "ArchiveText.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <random>

namespace testing_support
{

/// A text in a file, what to put in its place, and the text of the exception that reading ends with then.
struct Edit
{
    const char* file;
    const char* from;
    const char* to;
    const char* error;
};

inline void PrintTo(const Edit& edit, std::ostream* stream)
{
    *stream << edit.file << ": " << edit.from << " -> " << edit.to;
}

/// Reads an archive. \returns the text of the archive exception, or "" when it was read
using ReadError = std::function<std::string(const std::string& archive)>;

/// Checks that no beginning of an archive is taken for the whole.
inline void expectTruncationRefused(const std::string& whole, const ReadError& read)
{
    // The line ends behind an XML document are not part of it.
    const std::size_t end = whole.back() == '\n' ? whole.size() - 2 : whole.size();
    for (std::size_t size = 0; size < end; ++size)
        ASSERT_NE(read(whole.substr(0, size)), "") << "cut at " << size;
    EXPECT_EQ(read(whole.substr(0, end)), "");
}

/// Checks that changes of a few bytes, some of them to bits only, end in archive exceptions if in any.
inline void expectChangesHarmless(const std::string& whole, const ReadError& read, int rounds)
{
    std::mt19937 random(20240229);
    for (int round = 0; round < rounds; ++round)
    {
        std::string archive = whole;
        for (unsigned changes = 1 + random() % 4; changes != 0; --changes)
        {
            const std::size_t at = random() % archive.size();
            switch (random() % 4)
            {
            case 0:
                archive[at] = static_cast<char>(random());
                break;
            case 1:
                archive[at] = static_cast<char>(archive[at] ^ (1 << random() % 8));
                break;
            case 2:
                archive.erase(at, random() % 16);
                break;
            default:
                archive.insert(at, whole, random() % whole.size(), random() % 64);
            }
        }
        ASSERT_NO_THROW(read(archive)) << "round " << round;
    }
}

} // namespace testing_support

#endif
