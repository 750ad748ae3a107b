#include "Damage.h"

#include <tessaron/exchange/PolymorphicArchives.h>
#include <tessaron/exchange/geom/CurveSerialization.h>

namespace testing_support
{
namespace
{

using exchange::ArchiveFormat;
using PlaneCurve = boost::shared_ptr<geom::ParametricCurve<2>>;
using SpaceCurve = boost::shared_ptr<geom::ParametricCurve<3>>;

template <class Record>
std::string polymorphicRewritten(const std::string& archive, ArchiveFormat format)
{
    std::istringstream in(archive);
    Record record{};
    exchange::readPolymorphicArchive(in, record);
    std::ostringstream out;
    exchange::writePolymorphicArchive(out, record, format);
    return out.str();
}

struct Row
{
    const char* name;
    std::string (*rewrite)(const std::string& archive, ArchiveFormat format);
    /// Whether the binary form is that of the plain archives, which store sequences of numbers as one block.
    bool sameBinary;
};

const Row rows[] = {
    {"pointnd3", &polymorphicRewritten<geom::PointNd<3>>, true},
    {"transform", &polymorphicRewritten<geom::Transform>, true},
    {"parameterized_full", &polymorphicRewritten<util::Parameterized>, true},
    {"curve_line2", &polymorphicRewritten<PlaneCurve>, true},
    {"curve_arc2", &polymorphicRewritten<PlaneCurve>, true},
    {"curve_bspline2", &polymorphicRewritten<PlaneCurve>, false},
    {"curve_polyline3", &polymorphicRewritten<SpaceCurve>, true},
    {"curve_rational3", &polymorphicRewritten<SpaceCurve>, false},
    {"curve_planecurve3d", &polymorphicRewritten<SpaceCurve>, true},
};

TEST(PolymorphicArchive, WritesTheGoldenBytes)
{
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.name);
        const std::string xml = golden(std::string(row.name) + ".xml");
        const std::string binary = golden(std::string(row.name) + ".bin");
        EXPECT_EQ(row.rewrite(xml, ArchiveFormat::xml), xml);
        if (row.sameBinary)
        {
            EXPECT_EQ(row.rewrite(binary, ArchiveFormat::binary), binary);
        }
        const std::string own = row.rewrite(xml, ArchiveFormat::binary);
        EXPECT_EQ(own.size(), binary.size() + (row.sameBinary ? 0 : row.name == std::string("curve_bspline2") ? 4 : 8));
        EXPECT_EQ(row.rewrite(own, ArchiveFormat::xml), xml);
    }
}

TEST(PolymorphicArchive, HoldsSeveralRecordsAndSharedCurves)
{
    std::stringstream stream;
    const auto line = boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 0), geom::PointNd<2>(1, 1));
    const geom::PointNd<2> written(5, 6);
    const PlaneCurve curves[] = {line, nullptr, line};
    {
        exchange::PolymorphicWriter writer(stream);
        writer.archive() << boost::serialization::make_nvp("curves", curves)
                         << boost::serialization::make_nvp("point", written);
        writer.finish();
    }
    PlaneCurve read[3];
    geom::PointNd<2> point;
    exchange::PolymorphicReader reader(stream);
    reader.archive() >> boost::serialization::make_nvp("curves", read) >>
        boost::serialization::make_nvp("point", point);
    reader.finish();
    ASSERT_TRUE(read[0]);
    EXPECT_FALSE(read[1]);
    EXPECT_EQ(read[0], read[2]);
    EXPECT_EQ(point, written);
}

std::string errorOf(std::string (*rewrite)(const std::string&, ArchiveFormat), const std::string& archive)
{
    try
    {
        rewrite(archive, ArchiveFormat::xml);
    }
    catch (const boost::archive::archive_exception& error)
    {
        return error.what();
    }
    return "";
}

TEST(PolymorphicArchive, HostileInputIsRefused)
{
    const char* const file = "curve_planecurve3d.xml";
    const Edit cases[] = {
        {file, "version=\"10\"", "version=\"11\"", "unsupported version"},
        {file, "GeomPlaneCurve3dImpl", "GeomArc2Impl", "XML start/end tag mismatch - center"},
        {file, "class_name=\"GeomArc2Impl\"", "class_name=\"GeomLineImpl3\"", "XML start/end tag mismatch - pts"},
        {file, "class_name=\"GeomArc2Impl\"", "class_name=\"GeomPlaneCurve3dImpl\"",
         "unregistered class - GeomPlaneCurve3dImpl"},
        {file, "class_name=\"GeomArc2Impl\"", "class_name=\"nothing\"", "unregistered class - nothing"},
        {file, "object_id=\"_1\"", "object_id=\"_0\"", "pointer conflict"},
        {file, "object_id=\"_1\"", "object_id=\"_2\"", "pointer conflict"},
        {file, "px class_id=\"6\"", "px class_id=\"1\"", "XML start/end tag mismatch - pPlaneCurve"},
        {file, "px class_id=\"6\"", "px class_id=\"3\"", "unregistered class"},
        {file, "px class_id=\"6\"", "px class_id=\"77\"", "unregistered class"},
        {file, "trf class_id=\"10\" tracking_level=\"0\" version=\"0\"",
         "trf class_id=\"10\" tracking_level=\"0\" version=\"1\"", "class version geom::Transform"},
        {file, "</px>", "</qx>", "XML start/end tag mismatch - px"},
        {file, "</pPlaneCurve>", "</p>", "XML start/end tag mismatch - pPlaneCurve"},
    };
    for (const Edit& row : cases)
    {
        SCOPED_TRACE(std::string(row.from) + " -> " + row.to);
        std::string archive = replaced(golden(row.file), row.from, row.to);
        EXPECT_EQ(errorOf(&polymorphicRewritten<SpaceCurve>, archive), row.error);
    }
    // A curve of space behind a pointer to a curve of the plane.
    EXPECT_EQ(errorOf(&polymorphicRewritten<PlaneCurve>, golden("curve_polyline3.xml")), "unregistered class");
}

TEST(PolymorphicArchive, CurvesNestedWithoutEndAreRefused)
{
    const std::string whole = golden("curve_planecurve3d.xml");
    const std::size_t start = whole.find("<px class_id=\"6\"");
    std::string nested;
    for (int i = 1; i < 100'000; ++i)
        nested += "<px class_id=\"1\" object_id=\"_" + std::to_string(i) +
                  "\"><ParametricCurveN><utilParameterized><params><count>0</count><item_version>0</item_version>"
                  "</params></utilParameterized></ParametricCurveN><pPlaneCurve>";
    EXPECT_EQ(errorOf(&polymorphicRewritten<SpaceCurve>, whole.substr(0, start) + nested), "input stream error");
}

TEST(PolymorphicArchive, TruncationAndRandomChangesNeverDoMoreThanThrow)
{
    for (const Row& row : rows)
        for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
        {
            SCOPED_TRACE(row.name);
            const std::string whole = row.rewrite(golden(std::string(row.name) + ".xml"), format);
            const auto read = [&row](const std::string& archive) { return errorOf(row.rewrite, archive); };
            expectTruncationRefused(whole, read);
            expectChangesHarmless(whole, read, 300);
        }
}

} // namespace
} // namespace testing_support
