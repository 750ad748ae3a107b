#ifndef TESTS_EXCHANGE_ARCHIVE_ANYRECORD_H
#define TESTS_EXCHANGE_ARCHIVE_ANYRECORD_H

#include <tessaron/exchange/Archives.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace testing_support
{

inline std::string fileBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios_base::binary);
    if (!file)
        throw std::runtime_error("no test file " + path.string());
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// What tests do with an archive whatever its record: read it, and read and write it again.
struct AnyRecord
{
    void (*read)(std::istream& stream);
    std::string (*rewrite)(const std::string& archive, exchange::ArchiveFormat format);
};

template <class Record>
std::string rewritten(const std::string& archive, exchange::ArchiveFormat format)
{
    std::istringstream in(archive);
    Record record{};
    exchange::readArchive(in, record);
    std::ostringstream out;
    if constexpr (!exchange::archive::hasBinary<Record>)
        exchange::writeArchive(out, record);
    else
        exchange::writeArchive(out, record, format);
    return out.str();
}

template <class Record>
constexpr AnyRecord anyRecord{[](std::istream& stream)
                              {
                                  Record record{};
                                  exchange::readArchive(stream, record);
                              },
                              &rewritten<Record>};

/// The record that a golden file holds, by the first part of its name.
inline const AnyRecord& recordOfGolden(std::string_view name)
{
    using namespace exchange;
    struct Row
    {
        const char* start;
        const AnyRecord& record;
    };
    using PlaneCurve = boost::shared_ptr<geom::ParametricCurve<2>>;
    using SpaceCurve = boost::shared_ptr<geom::ParametricCurve<3>>;
    static const Row rows[] = {
        {"parameterized", anyRecord<util::Parameterized>},
        {"pointnd2", anyRecord<geom::PointNd<2>>},
        {"pointnd3", anyRecord<geom::PointNd<3>>},
        {"vecnd3", anyRecord<geom::VecNd<3>>},
        {"transform", anyRecord<geom::Transform>},
        {"curvelist", anyRecord<CurveList>},
        {"curve_planecurve3d", anyRecord<SpaceCurve>},
        {"curve_line3", anyRecord<SpaceCurve>},
        {"curve_polyline3", anyRecord<SpaceCurve>},
        {"curve_bspline3", anyRecord<SpaceCurve>},
        {"curve_rational3", anyRecord<SpaceCurve>},
        {"curve_", anyRecord<PlaneCurve>},
        {"mesh", anyRecord<topo::mesh::TriMeshPtr>},
        {"drillholes", anyRecord<TessaronDrillHoles>},
        {"drillhole", anyRecord<TessaronDrillHole>},
        {"t2dinput", anyRecord<Tessaron2dInput>},
        {"t3dboundaries", anyRecord<Tessaron3dBoundaries>},
        {"t3dinput", anyRecord<Tessaron3dInput>},
        {"t5xinput", anyRecord<Tessaron5xInput>},
        {"orrimant", anyRecord<OrrimantInput>},
        {"toolpath", anyRecord<ToolpathRecords>},
        {"rec_feedrate", anyRecord<FeedRate>},
        {"rec_spindlespeed", anyRecord<SpindleSpeed>},
        {"rec_customrecord", anyRecord<CustomRecord>},
        {"rec_toolaxis", anyRecord<ToolAxis>},
    };
    for (const Row& row : rows)
        if (name.rfind(row.start, 0) == 0)
            return row.record;
    throw std::runtime_error("no record known for " + std::string(name));
}

inline std::vector<std::filesystem::path> goldenFiles()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TESSARON_TEST_DATA "/golden"))
        if (entry.path().extension() == ".xml" || entry.path().extension() == ".bin")
            files.push_back(entry.path());
    return files;
}

inline exchange::ArchiveFormat formatOf(const std::filesystem::path& path)
{
    return path.extension() == ".xml" ? exchange::ArchiveFormat::xml : exchange::ArchiveFormat::binary;
}

} // namespace testing_support

#endif
