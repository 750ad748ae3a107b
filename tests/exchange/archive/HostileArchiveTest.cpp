// Archives that someone broke, on purpose or not: each ends in the right archive exception, and none takes memory or
// time beyond its size.

#include "Damage.h"

#include <algorithm>
#include <regex>
#include <set>

namespace testing_support
{
namespace
{

using exchange::ArchiveFormat;

const char inputError[] = "input stream error";
const char syntaxError[] = "unrecognized XML syntax";
const std::string longName(128, 'G');

class EditedXml : public testing::TestWithParam<Edit>
{
};

TEST_P(EditedXml, IsRefused)
{
    const Edit& edit = GetParam();
    const std::string archive = replaced(golden(edit.file), edit.from, edit.to);
    EXPECT_EQ(readError(recordOfGolden(edit.file), archive), edit.error);
}

INSTANTIATE_TEST_SUITE_P(
    Header, EditedXml,
    testing::Values(Edit{"t2dinput.xml", "serialization::archive", "serialization::archiv", "invalid signature"},
                    Edit{"t2dinput.xml", "signature=\"serialization::archive\" ", "", "invalid signature"},
                    Edit{"t2dinput.xml", "version=\"10\"", "version=\"11\"", "unsupported version"},
                    Edit{"t2dinput.xml", "version=\"10\"", "version=\"4294967306\"", syntaxError},
                    Edit{"t2dinput.xml", "version=\"10\"", "version=\"ten\"", syntaxError},
                    Edit{"t2dinput.xml", " version=\"10\"", "", "unsupported version"},
                    Edit{"t2dinput.xml", "<!DOCTYPE boost_serialization>", "<!DOCTYPE html>", syntaxError},
                    Edit{"t2dinput.xml", "<?xml", "<xml", syntaxError},
                    Edit{"t2dinput.xml", "<boost_serialization ", "<boost ",
                         "XML start/end tag mismatch - boost_serialization"}));

INSTANTIATE_TEST_SUITE_P(
    Tags, EditedXml,
    testing::Values(
        Edit{"t2dinput.xml", "<boundaries ", "<boundary ", "XML start/end tag mismatch - boundaries"},
        Edit{"t2dinput.xml", "</boundaries>", "</boundariesAndMore>", "XML start/end tag mismatch - boundaries"},
        Edit{"t2dinput.xml", "</boundaries>", "</boundary>", "XML start/end tag mismatch - boundaries"},
        Edit{"t2dinput.xml", "</boundaries>", "", "XML start/end tag mismatch - boundaries"},
        Edit{"t2dinput.xml", "<usableDepth>", "<depth>", "XML start/end tag mismatch - usableDepth"},
        Edit{"t2dinput.xml", "</Tessaron2dInput>", "</Tessaron3dInput>",
             "XML start/end tag mismatch - Tessaron2dInput"},
        Edit{"t2dinput.xml", "</boost_serialization>", "", inputError},
        Edit{"t2dinput.xml", "</boost_serialization>", "</boost>", "XML start/end tag mismatch - boost_serialization"},
        Edit{"toolpath.xml", "<speed>", "<speed", "XML start/end tag mismatch - speed"},
        Edit{"toolpath.xml", "<axis class_id=\"6\"", "<axis class_id=6", syntaxError},
        Edit{"toolpath.xml", "<axis class_id=\"6\"", "<axis class_id=\"6", syntaxError},
        Edit{"toolpath.xml", "<axis class_id=\"6\" tracking_level=\"0\" version=\"0\">", "<axis>", syntaxError},
        Edit{"toolpath.xml", "&lt;", "&less;", syntaxError}, Edit{"toolpath.xml", "&lt;", "&#x110000;", syntaxError},
        Edit{"toolpath.xml", "&lt;", "&#xD800;", syntaxError}, Edit{"toolpath.xml", "&lt;", "&lt", syntaxError}));

INSTANTIATE_TEST_SUITE_P(
    Values, EditedXml,
    testing::Values(Edit{"toolpath.xml", "18000", "", inputError}, Edit{"toolpath.xml", "18000", "fast", inputError},
                    Edit{"toolpath.xml", "18000", "nan", inputError}, Edit{"toolpath.xml", "18000", "-inf", inputError},
                    Edit{"toolpath.xml", "18000", "1e400", inputError}, Edit{"toolpath.xml", "18000", "-", inputError},
                    Edit{"toolpath.xml", "18000", "18000 rpm", syntaxError},
                    Edit{"toolpath.xml", "18000", "0x10", syntaxError},
                    Edit{"drillholes.xml", "<through>1", "<through>2", inputError},
                    Edit{"drillholes.xml", "<through>1", "<through>true", inputError},
                    Edit{"mesh.xml", "2147483647", "2147483648", inputError},
                    Edit{"toolpath.xml", "<which>5", "<which>8", "unsupported version"},
                    Edit{"toolpath.xml", "<which>5", "<which>-1", "unsupported version"},
                    Edit{"toolpath.xml", "<which>5", "<which>4", "XML start/end tag mismatch - feedrate"},
                    Edit{"parameterized_full.xml", "<which>1", "<which>3", "unsupported version"}));

INSTANTIATE_TEST_SUITE_P(
    Counts, EditedXml,
    testing::Values(
        Edit{"toolpath.xml", "<count>3", "<count>4", "array size too short"},
        Edit{"toolpath.xml", "<count>3", "<count>2", "XML start/end tag mismatch - coord"},
        Edit{"toolpath.xml", "<count>14", "<count>15", "XML start/end tag mismatch - item"},
        Edit{"toolpath.xml", "<count>14", "<count>13", "XML start/end tag mismatch - Records"},
        Edit{"toolpath.xml", "<count>14", "<count>18446744073709551615", "XML start/end tag mismatch - item"},
        Edit{"toolpath.xml", "<count>14", "<count>18446744073709551616", inputError},
        Edit{"toolpath.xml", "<count>14", "<count>-1", inputError},
        Edit{"curve_polyline3.xml", "<count>5", "<count>4000000000000", "XML start/end tag mismatch - item"},
        Edit{"curve_rational3.xml", "<count>6", "<count>9223372036854775807", "XML start/end tag mismatch - item"},
        Edit{"curve_line2.xml", "<pts>\n\t\t\t<count>2", "<pts>\n\t\t\t<count>3", "array size too short"}));

INSTANTIATE_TEST_SUITE_P(
    ClassesAndObjects, EditedXml,
    testing::Values(Edit{"curve_line2.xml", "GeomLineImpl2", "GeomLineImpl4", "unregistered class - GeomLineImpl4"},
                    // A class that exists, but not behind this kind of pointer.
                    Edit{"curve_line2.xml", "GeomLineImpl2", "GeomLineImpl3", "unregistered class - GeomLineImpl3"},
                    Edit{"curve_line2.xml", "GeomLineImpl2", longName.c_str(), "class name too long"},
                    Edit{"curve_line2.xml", "class_name=\"GeomLineImpl2\" ", "", syntaxError},
                    Edit{"curve_line2.xml", "object_id=\"_0\"", "", syntaxError},
                    Edit{"curve_line2.xml", "object_id=\"_0\"", "object_id=\"0\"", syntaxError},
                    Edit{"curve_line2.xml", "object_id=\"_0\"", "object_id=\"_1\"", "pointer conflict"},
                    Edit{"curve_line2.xml", "px class_id=\"1\"", "px class_id=\"2\"", "unregistered class"},
                    Edit{"curve_line2.xml", "px class_id=\"1\"", "px class_id=\"-2\"", "unregistered class"},
                    // The pointer's own class is that of the smart pointer.
                    Edit{"curve_line2.xml", "px class_id=\"1\"", "px class_id=\"0\"", "unregistered class"},
                    Edit{"curve_line2.xml", "tracking_level=\"1\"", "tracking_level=\"2\"", syntaxError},
                    // A second id for a class that has one.
                    Edit{"t2dinput.xml", "px class_id=\"11\" class_name=\"GeomPolylineImpl2\"",
                         "px class_id=\"11\" class_name=\"GeomLineImpl2\"", "unregistered class - GeomLineImpl2"},
                    // Object 1 is a polyline.
                    Edit{"t2dinput.xml", "class_id_reference=\"4\" object_id_reference=\"_0\"",
                         "class_id_reference=\"4\" object_id_reference=\"_1\"", "pointer conflict"},
                    Edit{"t2dinput.xml", "class_id_reference=\"4\" object_id_reference=\"_0\"",
                         "class_id_reference=\"4\" object_id_reference=\"_4294967295\"", "pointer conflict"}));

TEST(HostileArchive, NewerClassVersionsAreRefusedWhereverAClassIsDescribed)
{
    const std::regex description("tracking_level=\"[01]\" version=\"([0-9]+)\"");
    std::set<std::string> refused;
    for (const auto& path : goldenFiles())
    {
        const std::string whole = fileBytes(path);
        for (std::sregex_iterator found(whole.begin(), whole.end(), description), end; found != end; ++found)
        {
            std::string newer = whole;
            newer.replace(static_cast<std::size_t>(found->position(1)), static_cast<std::size_t>(found->length(1)),
                          std::to_string(std::stoi((*found)[1]) + 1));
            refused.insert(readError(recordOfGolden(path.stem().string()), newer));
        }
    }
    const std::string start = "class version ";
    std::string names;
    for (const std::string& error : refused)
    {
        EXPECT_EQ(error.substr(0, start.size()), start);
        names += error.substr(std::min(start.size(), error.size())) + " ";
    }
    EXPECT_EQ(names,
              "boost::shared_ptr boost::variant exchange::Arc<0> exchange::Arc<1> exchange::CustomRecord "
              "exchange::FeedRate exchange::LinearMove exchange::OrrimantInput exchange::RapidMove "
              "exchange::SpindleSpeed exchange::Tessaron2dBoundaries exchange::Tessaron2dInput "
              "exchange::Tessaron3dBoundaries exchange::Tessaron3dInput exchange::Tessaron5xBoundaries "
              "exchange::Tessaron5xFlankConstraint exchange::Tessaron5xInput exchange::TessaronDrillHole "
              "exchange::TessaronDrillHoles exchange::ToolAxis exchange::ToolpathRecords geom::Arc2Impl "
              "geom::BSplineCurveImpl<2> geom::LineImpl<2> geom::ParametricCurve<2> geom::ParametricCurve<3> "
              "geom::PlaneCurve3dImpl geom::PointNd<2> geom::PointNd<3> geom::PolylineImpl<2> geom::PolylineImpl<3> "
              "geom::RationalBSplineCurveImpl<2> geom::RationalBSplineCurveImpl<3> geom::Transform geom::VecNd<3> "
              "std::deque std::map std::pair std::vector topo::mesh::TriMeshFacet topo::mesh::TriMeshFacets "
              "util::Parameterized ");
}

/// A place in a binary golden file and what to put there.
struct Patch
{
    const char* file;
    std::size_t offset;
    std::string bytes;
    const char* error;
};

void PrintTo(const Patch& patch, std::ostream* stream)
{
    *stream << patch.file << " at " << patch.offset;
}

class PatchedBinary : public testing::TestWithParam<Patch>
{
};

TEST_P(PatchedBinary, IsRefused)
{
    const Patch& patch = GetParam();
    std::string archive = golden(patch.file);
    archive.replace(patch.offset, patch.bytes.size(), patch.bytes);
    EXPECT_EQ(readError(recordOfGolden(patch.file), archive), patch.error);
}

const std::string eightFF(8, '\xff');
const std::string twoToThe30 = std::string("\0\0\0\x40\0\0\0\0", 8);

// The head is 40 bytes; in curve_line2 follow the shared pointer's class (5), the class id (2), the key (8 + 13).
INSTANTIATE_TEST_SUITE_P(Hostile, PatchedBinary,
                         testing::Values(Patch{"curve_line2.bin", 0, "\x15", "invalid signature"},
                                         Patch{"curve_line2.bin", 0, eightFF, "invalid signature"},
                                         Patch{"curve_line2.bin", 8, "S", "invalid signature"},
                                         Patch{"curve_line2.bin", 30, "\x0b", "unsupported version"},
                                         Patch{"curve_line2.bin", 30, "\x13", "unsupported version"},
                                         Patch{"curve_line2.bin", 31, "\x01", "unsupported version"},
                                         Patch{"curve_line2.bin", 33, "\x04",
                                               "incompatible native format - size of long"},
                                         Patch{"curve_line2.bin", 36, std::string("\0\0\0\1", 4),
                                               "incompatible native format - endian setting"},
                                         Patch{"curve_line2.bin", 40, "\x02", inputError},
                                         Patch{"curve_line2.bin", 41, "\x02", "class version boost::shared_ptr"},
                                         Patch{"curve_line2.bin", 45, "\x05", "unregistered class"},
                                         Patch{"curve_line2.bin", 45, "\xff\x7f", "unregistered class"},
                                         Patch{"curve_line2.bin", 47, eightFF, "class name too long"},
                                         Patch{"curve_line2.bin", 47, "\x0c", "unregistered class - GeomLineImpl"},
                                         Patch{"drillholes.bin", 137, "\x02", inputError},
                                         Patch{"parameterized_full.bin", 50, eightFF, "input stream error"},
                                         Patch{"parameterized_full.bin", 67, twoToThe30, inputError},
                                         Patch{"curve_bspline2.bin", 346 - 8 * 9, eightFF, inputError},
                                         Patch{"curve_bspline2.bin", 346 - 8 * 9, twoToThe30, inputError},
                                         Patch{"mesh.bin", 61, eightFF, "array size too short"}));

TEST(HostileArchive, NarrowBinaryIsRefusedAsForeign)
{
    std::string archive = golden("pointnd3.bin");
    archive.erase(4, 4);
    EXPECT_EQ(readError(anyRecord<geom::PointNd<3>>, archive), "incompatible native format - size of size_t");
}

TEST(HostileArchive, BinaryIsRefusedWhereOnlyXmlExists)
{
    EXPECT_EQ(readError(anyRecord<exchange::ToolpathRecords>, golden("mesh.bin")), syntaxError);
    EXPECT_EQ(readError(anyRecord<exchange::ToolpathRecords>, ""), inputError);
}

TEST(HostileArchive, DeepNestingEndsAtTheFirstUnexpectedTag)
{
    std::string deep;
    for (int i = 0; i < 200'000; ++i)
        deep += "<item>";
    const std::string archive = replaced(golden("toolpath.xml"), "<item class_id", deep + "<item class_id");
    EXPECT_EQ(readError(anyRecord<exchange::ToolpathRecords>, archive), syntaxError);
}

TEST(HostileArchive, TruncationAtEveryByteIsRefused)
{
    for (const char* file : {"t3dinput.xml", "orrimant.xml", "toolpath.xml", "curve_planecurve3d.xml", "t2dinput.bin",
                             "t3dinput.bin", "t5xinput.bin", "curve_rational3.bin", "mesh.bin"})
    {
        SCOPED_TRACE(file);
        const AnyRecord& record = recordOfGolden(file);
        expectTruncationRefused(golden(file), std::bind_front(readError, record));
    }
}

TEST(HostileArchive, RandomChangesNeverDoMoreThanThrow)
{
    for (const auto& path : goldenFiles())
    {
        SCOPED_TRACE(path);
        const AnyRecord& record = recordOfGolden(path.stem().string());
        expectChangesHarmless(fileBytes(path), std::bind_front(readError, record), 150);
    }
}

TEST(HostileArchive, WhatFuzzingFoundStaysHarmless)
{
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TESSARON_TEST_DATA "/fuzz"))
    {
        if (entry.path().filename().string().front() == '.')
            continue;
        ++files;
        const std::string bytes = fileBytes(entry.path());
        for (const AnyRecord* record : {&anyRecord<exchange::Tessaron2dInput>, &anyRecord<exchange::Tessaron3dInput>,
                                        &anyRecord<exchange::Tessaron5xInput>, &anyRecord<exchange::OrrimantInput>,
                                        &anyRecord<exchange::ToolpathRecords>, &anyRecord<topo::mesh::TriMeshPtr>,
                                        &anyRecord<boost::shared_ptr<geom::ParametricCurve<3>>>})
            for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
                if (readError(*record, bytes).empty())
                {
                    EXPECT_NO_THROW(record->rewrite(bytes, format)) << entry.path();
                }
    }
    EXPECT_GE(files, 1u);
}

} // namespace
} // namespace testing_support
