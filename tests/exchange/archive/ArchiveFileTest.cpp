// The calls of exchange/Archives.h: what they promise about files.

#include "ArchiveText.h"

#include "tests/support/TemporaryFolder.h"
#include <tessaron/exchange/geom/Curves.h>

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <thread>

#include <sys/stat.h>

namespace testing_support
{
namespace
{

using boost::archive::archive_exception;
using exchange::ArchiveFormat;

TEST(ArchiveFile, IsWrittenAndReadUnderItsName)
{
    const TemporaryFolder folder;
    const auto record = readFrom<exchange::Tessaron2dInput>(golden("t2dinput.xml"));
    exchange::writeArchiveFile(folder / "Größe 1.xml", record);
    exchange::writeArchiveFile(folder / "b.bin", record, ArchiveFormat::binary);
    EXPECT_EQ(fileBytes(folder / "Größe 1.xml"), golden("t2dinput.xml"));
    EXPECT_EQ(fileBytes(folder / "b.bin"), golden("t2dinput.bin"));
    EXPECT_EQ(folder.entryCount(), 2);
    exchange::Tessaron2dInput read;
    exchange::readArchiveFile(folder / "b.bin", read);
    EXPECT_EQ(written(read, ArchiveFormat::xml), golden("t2dinput.xml"));
}

TEST(ArchiveFile, APipeIsWrittenInto)
{
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const auto record = readFrom<exchange::Tessaron2dInput>(golden("t2dinput.xml"));
    std::string received;
    std::thread reader([&] { received = fileBytes(path); });
    exchange::writeArchiveFile(path, record);
    EXPECT_TRUE(std::filesystem::is_fifo(path));
    if (!std::filesystem::is_fifo(path)) // let the reader go
        std::ofstream(path).close();
    reader.join();
    EXPECT_EQ(received, golden("t2dinput.xml"));

    // A reader that goes away is an error, and not the end of the process.
    std::thread impatient([&] { std::ifstream(path).get(); });
    const std::vector<geom::PointNd<2>> many(100'000, geom::PointNd<2>(1, 2));
    const boost::shared_ptr<geom::ParametricCurve<2>> curve = boost::make_shared<geom::PolylineImpl<2>>(many);
    EXPECT_THROW(exchange::writeArchiveFile(path, curve), exchange::ArchiveFileError);
    impatient.join();
}

TEST(ArchiveFile, ErrorsNameTheFileAndTheReason)
{
    const TemporaryFolder folder;
    const std::string longName = folder / (std::string(200, 'n') + ".xml");
    const auto message = [](const auto& operation) -> std::string
    {
        try
        {
            operation();
        }
        catch (const exchange::ArchiveFileError& error)
        {
            return error.what();
        }
        return "";
    };
    geom::PointNd<2> point;
    EXPECT_EQ(message([&] { exchange::readArchiveFile(longName, point); }),
              "Cannot read '" + longName + "': No such file or directory");
    std::ofstream(longName) << "<html>";
    EXPECT_EQ(message([&] { exchange::readArchiveFile(longName, point); }),
              "Cannot read '" + longName + "': unrecognized XML syntax");
    const std::string missing = folder / "missing/a.xml";
    EXPECT_EQ(message([&] { exchange::writeArchiveFile(missing, point); }),
              "Cannot write '" + missing + "': creating a temporary file beside it: No such file or directory");
    EXPECT_EQ(message([&] { exchange::readArchiveFile(folder / "", point); }),
              "Cannot read '" + (folder / "") + "': input stream error");
}

TEST(ArchiveFile, FailedWriteLeavesTheOldFileAndNothingElse)
{
    class Foreign : public geom::LineImpl<2>
    {
    };
    const TemporaryFolder folder;
    const std::string path = folder / "a.xml";
    exchange::CurveList curves = {boost::make_shared<geom::LineImpl<2>>()};
    exchange::writeArchiveFile(path, curves);
    const std::string before = fileBytes(path);
    curves.push_back(boost::make_shared<Foreign>());
    EXPECT_THROW(exchange::writeArchiveFile(path, curves), exchange::ArchiveFileError);
    EXPECT_EQ(fileBytes(path), before);
    EXPECT_EQ(folder.entryCount(), 1);
}

} // namespace
} // namespace testing_support
