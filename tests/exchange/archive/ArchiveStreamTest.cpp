// The calls of exchange/Archives.h: what they promise about streams.

#include "ArchiveText.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <chrono>
#include <ext/stdio_filebuf.h>
#include <future>
#include <iomanip>

#include <sys/socket.h>
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

TEST(ArchiveStream, StreamFlagsAndLocaleOfTheCallerPlayNoPart)
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

TEST(ArchiveStream, ArchivesFollowEachOtherInOneStream)
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

TEST(ArchiveStream, NoByteIsWaitedForThatIsNotNeeded)
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

// The writer keeps its end open, as a program does that has more to say later.
TEST(ArchiveStream, OpenPipesAndSocketsAreReadWithoutWaitingForMore)
{
    using enum ArchiveFormat;
    const auto record = readFrom<exchange::Tessaron2dInput>(golden("t2dinput.xml"));
    for (const ArchiveFormat format : {xml, binary})
        for (const bool socket : {false, true})
        {
            int ends[2] = {-1, -1};
            ASSERT_EQ(socket ? socketpair(AF_UNIX, SOCK_STREAM, 0, ends) : pipe(ends), 0);
            const std::string archive = written(record, format);
            ASSERT_EQ(write(ends[1], archive.data(), archive.size()), static_cast<ssize_t>(archive.size()));
            std::future<std::string> read = std::async(std::launch::async,
                                                       [&]
                                                       {
                                                           __gnu_cxx::stdio_filebuf<char> buffer(ends[0], std::ios::in);
                                                           std::istream stream(&buffer);
                                                           exchange::Tessaron2dInput back;
                                                           exchange::readArchive(stream, back);
                                                           return written(back, format);
                                                       });
            EXPECT_EQ(read.wait_for(std::chrono::seconds(10)), std::future_status::ready)
                << (socket ? "socket" : "pipe") << ", format " << static_cast<int>(format);
            close(ends[1]); // and lets a reader go that waits
            EXPECT_EQ(read.get(), archive);
        }
}

TEST(ArchiveStream, ALongNumberIsReadWholeWhereverAPieceEnds)
{
    const std::string digits = "3." + std::string(300, '1');
    const std::string archive = feedRateArchive(digits);
    for (std::size_t piece = 1; piece <= archive.size(); ++piece)
    {
        PipeBuffer pipe(archive, piece);
        std::istream stream(&pipe);
        exchange::FeedRate record;
        exchange::readArchive(stream, record);
        EXPECT_EQ(record.feedrate, std::stod(digits)) << piece;
    }
}

TEST(ArchiveStream, HugeCountsOnAPipeEndWithTheData)
{
    std::string archive = golden("curve_bspline2.bin");
    archive.replace(archive.size() - std::size_t{8} * 9, 8, std::string("\0\0\0\0\1\0\0\0", 8));
    PipeBuffer pipe(archive, 100);
    std::istream stream(&pipe);
    boost::shared_ptr<geom::ParametricCurve<2>> curve;
    EXPECT_THROW(exchange::readArchive(stream, curve), archive_exception);
}

TEST(ArchiveStream, LargeRecordsCrossEveryBufferBoundary)
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

TEST(ArchiveStream, LargeMeshesCrossEveryBufferBoundary)
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

TEST(ArchiveStream, OutputThatStopsIsAnError)
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

} // namespace
} // namespace testing_support
