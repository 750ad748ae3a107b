// The calls of exchange/Archives.h: what they promise about records, streams and files.

#include "ArchiveText.h"

#include "tests/support/TemporaryFolder.h"
#include <tessaron/exchange/geom/Curves.h>

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <limits>
#include <string_view>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace testing_support
{
namespace
{

using boost::archive::archive_exception;
using exchange::ArchiveFormat;

/// Gives out a text in small pieces and cannot seek, as a pipe.
class PipeBuffer : public std::streambuf
{
public:
    explicit PipeBuffer(std::string text, std::size_t piece) : m_text(std::move(text)), m_piece(piece) {}

protected:
    int_type underflow() override
    {
        const std::size_t size = std::min(m_piece, m_text.size() - m_next);
        if (size == 0)
            return traits_type::eof();
        setg(m_text.data() + m_next, m_text.data() + m_next, m_text.data() + m_next + size);
        m_next += size;
        return traits_type::to_int_type(*gptr());
    }

private:
    std::string m_text;
    std::size_t m_piece;
    std::size_t m_next = 0;
};

/// Takes so many bytes and no more, as a full disk.
class FullBuffer : public std::streambuf
{
public:
    explicit FullBuffer(std::streamsize room) : m_room(room) {}

protected:
    int_type overflow(int_type) override { return m_room-- > 0 ? 0 : traits_type::eof(); }
    std::streamsize xsputn(const char*, std::streamsize size) override
    {
        const std::streamsize taken = std::min(size, m_room);
        m_room -= taken;
        return taken;
    }

private:
    std::streamsize m_room;
};

std::ptrdiff_t fileCount(const TemporaryFolder& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder.path()), {});
}

template <class Record>
std::string written(const Record& record, ArchiveFormat format)
{
    std::ostringstream stream;
    exchange::writeArchive(stream, record, format);
    return stream.str();
}

const std::string& errorText(const archive_exception& error)
{
    static std::string text;
    return text = error.what();
}

TEST(ArchiveApi, FailedReadLeavesTheRecordAsItWas)
{
    auto record = readFrom<exchange::Tessaron3dInput>(golden("t3dinput.xml"));
    const std::string before = written(record, ArchiveFormat::xml);
    for (const char* file : {"t3dinput.xml", "t3dinput.bin"})
    {
        const std::string whole = golden(file);
        std::istringstream stream(whole.substr(0, whole.size() * 9 / 10));
        EXPECT_THROW(exchange::readArchive(stream, record), archive_exception);
        EXPECT_EQ(written(record, ArchiveFormat::xml), before);
    }
}

TEST(ArchiveApi, ReadReplacesEverythingThatTheRecordHeld)
{
    auto record = readFrom<exchange::Tessaron2dInput>(golden("t2dinput.xml"));
    std::istringstream stream(golden("t2dinput_oneline.xml"));
    exchange::readArchive(stream, record);
    EXPECT_EQ(written(record, ArchiveFormat::xml), golden("t2dinput_oneline.xml"));
}

TEST(ArchiveApi, MemoryIsReadToItsEndAndNotBeyond)
{
    for (const char* file : {"t3dinput.xml", "t3dinput.bin"})
    {
        const std::string whole = golden(file);
        exchange::Tessaron3dInput record;
        exchange::readArchive(std::string_view(whole), record);
        const ArchiveFormat format =
            std::string_view(file).ends_with(".xml") ? ArchiveFormat::xml : ArchiveFormat::binary;
        EXPECT_EQ(written(record, format), whole);
        EXPECT_THROW(exchange::readArchive(std::string_view(whole).substr(0, whole.size() / 2), record),
                     archive_exception);
    }
    exchange::Tessaron3dInput record;
    EXPECT_THROW(exchange::readArchive(std::string_view(), record), archive_exception);
}

TEST(ArchiveApi, SharedObjectsComeBackShared)
{
    exchange::Tessaron3dInput input;
    const auto mesh = boost::make_shared<topo::mesh::TriMesh>();
    mesh->vertices.emplace_back(1, 2, 3);
    input.boundaries.pPartMesh = mesh;
    input.boundaries.pCheckMesh = mesh;
    const auto line = boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 0), geom::PointNd<2>(1, 1));
    input.boundaries.materialBoundaries = {line, nullptr, line};
    input.boundaries.containmentBoundaries.partBoundaries = {line};
    for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
    {
        const auto read = readFrom<exchange::Tessaron3dInput>(written(input, format)).boundaries;
        ASSERT_TRUE(read.pPartMesh);
        EXPECT_EQ(read.pPartMesh, read.pCheckMesh);
        EXPECT_FALSE(read.pMaterialMesh);
        ASSERT_TRUE(read.materialBoundaries[0]);
        EXPECT_FALSE(read.materialBoundaries[1]);
        EXPECT_EQ(read.materialBoundaries[0], read.materialBoundaries[2]);
        EXPECT_EQ(read.materialBoundaries[0], read.containmentBoundaries.partBoundaries[0]);
        EXPECT_EQ(read.pPartMesh.use_count(), 2);
    }
}

TEST(ArchiveApi, CurveOfAForeignClassIsRefused)
{
    class Foreign : public geom::LineImpl<2>
    {
    };
    const boost::shared_ptr<geom::ParametricCurve<2>> curve = boost::make_shared<Foreign>();
    try
    {
        written(curve, ArchiveFormat::xml);
        FAIL();
    }
    catch (const archive_exception& error)
    {
        EXPECT_EQ(error.code, archive_exception::unregistered_class);
        EXPECT_NE(errorText(error).find("derived class not registered or exported"), std::string::npos);
    }
}

TEST(ArchiveApi, ParameterSetListsHaveTheLayoutOfAVector)
{
    exchange::ParameterizedList list(2);
    list[1].set("Type", std::string("pocket"));
    const std::string xml = written(list, ArchiveFormat::xml);
    EXPECT_NE(xml.find("<ParameterizedList class_id=\"0\" tracking_level=\"0\" version=\"0\">\n"
                       "\t<count>2</count>\n\t<item_version>0</item_version>\n"
                       "\t<item class_id=\"1\" tracking_level=\"0\" version=\"0\">\n"
                       "\t\t<params class_id=\"2\" tracking_level=\"0\" version=\"0\">\n"),
              std::string::npos)
        << xml;
    for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
        EXPECT_EQ(readFrom<exchange::ParameterizedList>(written(list, format)), list);
}

TEST(ArchiveApi, TrackedMeshByValueHasAnObjectId)
{
    topo::mesh::TriMesh mesh;
    mesh.vertices.emplace_back(1, 2, 3);
    mesh.faces.emplace_back(0, 0, 0);
    const std::string xml = written(mesh, ArchiveFormat::xml);
    EXPECT_NE(xml.find("<TriMeshFacets class_id=\"0\" tracking_level=\"1\" version=\"0\" object_id=\"_0\">"),
              std::string::npos);
    EXPECT_EQ(written(readFrom<topo::mesh::TriMesh>(xml), ArchiveFormat::xml), xml);
}

TEST(ArchiveApi, NonFiniteNumbersTravelInBinaryOnly)
{
    const double inf = std::numeric_limits<double>::infinity();
    const geom::PointNd<3> point(std::numeric_limits<double>::quiet_NaN(), inf, -inf);
    const std::string xml = written(point, ArchiveFormat::xml);
    EXPECT_NE(xml.find("<item>nan</item>\n\t\t<item>inf</item>\n\t\t<item>-inf</item>"), std::string::npos);
    EXPECT_EQ(readError(anyRecord<geom::PointNd<3>>, xml), "input stream error");
    const auto read = readFrom<geom::PointNd<3>>(written(point, ArchiveFormat::binary));
    EXPECT_TRUE(std::isnan(read[0]));
    EXPECT_EQ(read[1], inf);
    EXPECT_EQ(read[2], -inf);
}

TEST(ArchiveApi, StreamFlagsAndLocaleOfTheCallerPlayNoPart)
{
    struct Comma : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const auto record = readFrom<exchange::Tessaron3dInput>(golden("t3dinput.xml"));
    std::stringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new Comma));
    stream << std::boolalpha << std::showpoint << std::uppercase << std::hex << std::showpos << std::setw(20)
           << std::setprecision(2);
    const auto flags = stream.flags();
    exchange::writeArchive(stream, record);
    EXPECT_EQ(stream.str(), golden("t3dinput.xml"));
    exchange::Tessaron3dInput read;
    exchange::readArchive(stream, read);
    EXPECT_EQ(written(read, ArchiveFormat::xml), golden("t3dinput.xml"));
    EXPECT_EQ(stream.flags(), flags);
}

TEST(ArchiveApi, ArchivesFollowEachOtherInOneStream)
{
    using enum ArchiveFormat;
    const ArchiveFormat formats[] = {xml, binary, binary, xml, xml, binary};
    std::stringstream stream;
    double x = 0;
    for (const ArchiveFormat format : formats)
        exchange::writeArchive(stream, geom::PointNd<2>(++x, 2), format);
    for (double expected = 1; expected <= x; ++expected)
    {
        geom::PointNd<2> point;
        exchange::readArchive(stream, point);
        EXPECT_EQ(point, geom::PointNd<2>(expected, 2));
    }
    geom::PointNd<2> nothing;
    EXPECT_THROW(exchange::readArchive(stream, nothing), archive_exception) << "only line ends are left";
}

/// Fails a read that asks for a byte behind the text: on an open pipe it would wait for ever.
class OpenPipeBuffer : public PipeBuffer
{
public:
    using PipeBuffer::PipeBuffer;

    bool waited() const { return m_waited; }

protected:
    int_type underflow() override
    {
        const int_type next = PipeBuffer::underflow();
        m_waited = m_waited || traits_type::eq_int_type(next, traits_type::eof());
        return next;
    }

private:
    bool m_waited = false;
};

TEST(ArchiveApi, NoByteIsWaitedForThatIsNotNeeded)
{
    for (const std::size_t piece : {1u, 5u, 64u, 100'000u})
        for (const std::filesystem::path& file : goldenFiles())
        {
            SCOPED_TRACE(file.filename().string() + " in pieces of " + std::to_string(piece));
            std::string archive = fileBytes(file);
            // A writer may keep the line ends behind an archive to itself.
            if (formatOf(file) == ArchiveFormat::xml)
                archive.erase(archive.find_last_not_of('\n') + 1);
            OpenPipeBuffer pipe(archive, piece);
            std::istream stream(&pipe);
            recordOfGolden(file.filename().string()).read(stream);
            EXPECT_FALSE(pipe.waited());
        }
}

TEST(ArchiveApi, StreamsThatCannotSeekReadInPiecesOfAnySize)
{
    for (const std::size_t piece : {1u, 7u, 4096u})
        for (const char* file : {"t3dinput.xml", "t3dinput.bin"})
        {
            PipeBuffer pipe(golden(file), piece);
            std::istream stream(&pipe);
            exchange::Tessaron3dInput record;
            exchange::readArchive(stream, record);
            EXPECT_EQ(written(record, ArchiveFormat::xml), golden("t3dinput.xml"));
        }
}

TEST(ArchiveApi, HugeCountsOnAPipeEndWithTheData)
{
    std::string archive = golden("curve_bspline2.bin");
    archive.replace(archive.size() - std::size_t{8} * 9, 8, std::string("\0\0\0\0\1\0\0\0", 8));
    PipeBuffer pipe(archive, 100);
    std::istream stream(&pipe);
    boost::shared_ptr<geom::ParametricCurve<2>> curve;
    EXPECT_THROW(exchange::readArchive(stream, curve), archive_exception);
}

TEST(ArchiveApi, LargeRecordsCrossEveryBufferBoundary)
{
    exchange::ToolpathRecords path;
    for (int i = 0; i < 20'000; ++i)
    {
        path.records.push_back(exchange::LinearMove{{i / 3.0, -i * 1e-7, 1e20 / (i + 1)}});
        path.records.push_back(exchange::CustomRecord{std::string(static_cast<std::size_t>(i % 97), '<')});
    }
    std::stringstream stream;
    exchange::writeArchive(stream, path);
    exchange::ToolpathRecords read;
    exchange::readArchive(stream, read);
    ASSERT_EQ(read.records.size(), path.records.size());
    for (std::size_t i = 0; i < path.records.size(); i += 2)
    {
        EXPECT_EQ(boost::get<exchange::LinearMove>(read.records[i]).endPt,
                  boost::get<exchange::LinearMove>(path.records[i]).endPt);
        EXPECT_EQ(boost::get<exchange::CustomRecord>(read.records[i + 1]).string,
                  boost::get<exchange::CustomRecord>(path.records[i + 1]).string);
    }
}

TEST(ArchiveApi, LargeMeshesCrossEveryBufferBoundary)
{
    const auto mesh = boost::make_shared<topo::mesh::TriMesh>();
    for (int i = 0; i < 20'000; ++i)
    {
        mesh->vertices.emplace_back(i / 3.0, -i, 1e20 / (i + 1));
        mesh->faces.emplace_back(i, i / 2, i / 3);
    }
    const std::string archive = written(mesh, ArchiveFormat::binary);
    for (const std::size_t piece : {archive.size(), std::size_t{997}})
    {
        PipeBuffer pipe(archive, piece);
        std::istream stream(&pipe);
        topo::mesh::TriMeshPtr read;
        exchange::readArchive(stream, read);
        EXPECT_EQ(read->vertices, mesh->vertices);
        EXPECT_EQ(read->faces, mesh->faces);
    }
}

TEST(ArchiveApi, OutputThatStopsIsAnError)
{
    const auto record = readFrom<exchange::Tessaron3dInput>(golden("t3dinput.xml"));
    for (const std::streamsize room : {0, 10, 1000})
    {
        FullBuffer full(room);
        std::ostream stream(&full);
        stream.exceptions(std::ios_base::badbit);
        try
        {
            exchange::writeArchive(stream, record);
            FAIL();
        }
        catch (const archive_exception& error)
        {
            EXPECT_EQ(error.code, archive_exception::output_stream_error);
        }
    }
}

TEST(ArchiveFile, IsWrittenAndReadUnderItsName)
{
    const TemporaryFolder folder;
    const auto record = readFrom<exchange::Tessaron2dInput>(golden("t2dinput.xml"));
    exchange::writeArchiveFile(folder / "Größe 1.xml", record);
    exchange::writeArchiveFile(folder / "b.bin", record, ArchiveFormat::binary);
    EXPECT_EQ(fileBytes(folder / "Größe 1.xml"), golden("t2dinput.xml"));
    EXPECT_EQ(fileBytes(folder / "b.bin"), golden("t2dinput.bin"));
    EXPECT_EQ(fileCount(folder), 2);
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
    EXPECT_EQ(fileCount(folder), 1);
}

} // namespace
} // namespace testing_support
