#include "host/Document.h"

#include "host/ToolpathFiles.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

namespace host
{

namespace
{

using namespace testing_support;

/// A document with a part and its toolpath.
class DocumentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_document.openPart(TESSARON_SAMPLES "/square-pocket.xml");
        m_document.changeParameters(
            [](util::Parameterized& parameters)
            {
                parameters.set("Holder Clearance", 1.5);
                return true;
            });
        JobRunner runner;
        m_document.take(runner.run(m_document.part()->input,
                                   [](int jobId)
                                   {
                                       exchange::waitForJob(jobId, -1);
                                       return 1;
                                   }));
        ASSERT_TRUE(m_document.toolpath());
    }

    const TemporaryFolder m_folder;
    Document m_document;
};

TEST_F(DocumentTest, SavesAsTheNameSays)
{
    for (const char* const name : {"a.ngc", "a.nc", "a.TAP", "a"})
    {
        m_document.saveToolpath(m_folder / name);
        const std::string program = readBytes(m_folder / name);
        EXPECT_EQ(program.substr(0, 28), "%\n(Toolpath: Square pocket)\n") << name;
        EXPECT_NE(program.find("\nT1 M6\n"), std::string::npos) << name;
    }
    m_document.saveToolpath(m_folder / "a.xml");
    exchange::ToolpathRecords records;
    exchange::readArchiveFile(m_folder / "a.xml", records);
    EXPECT_EQ(records.records.size(), m_document.toolpath()->statistics().records);
}

TEST_F(DocumentTest, NamesTheFileThatCannotBeSaved)
{
    for (const char* const name : {"missing/a.ngc", "missing/a.xml"})
        try
        {
            m_document.saveToolpath(m_folder / name);
            ADD_FAILURE() << name;
        }
        catch (const std::exception& error)
        {
            EXPECT_NE(std::string(error.what()).find(m_folder / name), std::string::npos) << error.what();
        }
}

TEST_F(DocumentTest, KeepsTheFindingsWithTheirToolpath)
{
    ASSERT_EQ(m_document.findings().size(), 1u);
    EXPECT_EQ(m_document.findings()[0].field, "Holder Clearance");
    EXPECT_FALSE(m_document.outdated());
    const auto before = m_document.part();
    m_document.changeParameters([](util::Parameterized& parameters) { return parameters.set("Stepover", 1.0), true; });
    EXPECT_TRUE(m_document.outdated());
    EXPECT_EQ(m_document.findings().size(), 1u);
    EXPECT_NE(before->number(util::keys::stepover), 1.0) << "who still draws the part sees it change";
    // What does not open leaves everything as it is.
    EXPECT_THROW(m_document.openPart(m_folder / "missing.xml"), PartError);
    EXPECT_THROW(m_document.openToolpath(m_folder / "missing.xml"), exchange::ArchiveFileError);
    EXPECT_TRUE(m_document.toolpath());
    EXPECT_EQ(m_document.findings().size(), 1u);
    // Another toolpath was made by another job.
    m_document.saveToolpath(m_folder / "a.xml");
    m_document.openToolpath(m_folder / "a.xml");
    EXPECT_TRUE(m_document.findings().empty());
    EXPECT_FALSE(m_document.outdated());
    m_document.openPart(TESSARON_SAMPLES "/square-pocket.xml");
    EXPECT_FALSE(m_document.toolpath());
}

TEST(ToolpathFiles, GetTheEndingOfTheKindThatIsPicked)
{
    const struct
    {
        const char* typed;
        int filter;
        const char* path;
    } cases[] = {{"/a/part", 0, "/a/part.ngc"},   {"/a/part", 1, "/a/part.xml"},     {"/a/part", 2, "/a/part"},
                 {"/a/part.nc", 1, "/a/part.nc"}, {"/a/part.xml", 0, "/a/part.xml"}, {"/a.b/part", 0, "/a.b/part.ngc"},
                 {"/a/part", -1, "/a/part"}};
    for (const auto& one : cases)
        EXPECT_EQ(withEnding(one.typed, one.filter), one.path);
}

} // namespace

} // namespace host
