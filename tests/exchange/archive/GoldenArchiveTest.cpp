#include "AnyRecord.h"

#include <gtest/gtest.h>

#include <set>

namespace testing_support
{
namespace
{

TEST(GoldenArchive, EachFileReadsAndIsWrittenAgainWithTheSameBytes)
{
    const auto files = goldenFiles();
    ASSERT_GE(files.size(), 41u);
    for (const auto& file : files)
    {
        SCOPED_TRACE(file.filename().string());
        const std::string bytes = fileBytes(file);
        EXPECT_EQ(recordOfGolden(file.stem().string()).rewrite(bytes, formatOf(file)), bytes);
    }
}

TEST(GoldenArchive, BothFormatsOfARecordHoldTheSame)
{
    std::set<std::string> compared;
    for (const auto& file : goldenFiles())
    {
        if (formatOf(file) != exchange::ArchiveFormat::binary)
            continue;
        SCOPED_TRACE(file.filename().string());
        const std::string xml = fileBytes(std::filesystem::path(file).replace_extension(".xml"));
        const AnyRecord& record = recordOfGolden(file.stem().string());
        EXPECT_EQ(record.rewrite(fileBytes(file), exchange::ArchiveFormat::xml), xml);
        EXPECT_EQ(record.rewrite(xml, exchange::ArchiveFormat::binary), fileBytes(file));
        compared.insert(file.stem().string());
    }
    EXPECT_GE(compared.size(), 19u);
}

} // namespace
} // namespace testing_support
