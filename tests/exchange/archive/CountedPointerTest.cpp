// Shared pointers at class version 0: archives of the time when they were stored with the count of their owners. The
// files in tests/data/counted were written by the library's own classes for that layout; their names end in the library
// version.

#include "Damage.h"

#include <tessaron/exchange/PolymorphicArchives.h>
#include <tessaron/exchange/geom/CurveSerialization.h>

namespace testing_support
{
namespace
{

using exchange::ArchiveFormat;

std::string counted(const std::string& file)
{
    return fileBytes(TESSARON_TEST_DATA "/counted/" + file);
}

std::vector<std::filesystem::path> countedFiles()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TESSARON_TEST_DATA "/counted"))
        files.push_back(entry.path());
    return files;
}

TEST(CountedPointer, FilesReadAsWhatTheyAreInTheLayoutOfToday)
{
    int compared = 0;
    for (const auto& path : countedFiles())
    {
        SCOPED_TRACE(path);
        const std::string file = path.filename().string();
        const std::string today = file.substr(0, file.rfind("_v")) + path.extension().string();
        if (today.starts_with("t3dboundaries"))
            continue; // compared with one another below
        ++compared;
        EXPECT_EQ(recordOfGolden(file).rewrite(fileBytes(path), formatOf(path)), golden(today));
    }
    EXPECT_EQ(compared, 8);
}

TEST(CountedPointer, SharedObjectsComeBackShared)
{
    for (const char* file : {"t3dboundaries_v3.xml", "t3dboundaries_v3.bin"})
    {
        SCOPED_TRACE(file);
        const auto record = readFrom<exchange::Tessaron3dBoundaries>(counted(file));
        ASSERT_TRUE(record.pPartMesh);
        EXPECT_EQ(record.pCheckMesh, record.pPartMesh);
        EXPECT_EQ(record.pPartMesh.use_count(), 2);
        EXPECT_EQ(record.pPartMesh->vertices.size(), 4u);
        EXPECT_FALSE(record.pMaterialMesh);

        const exchange::CurveList& material = record.materialBoundaries;
        const exchange::Tessaron2dBoundaries& containment = record.containmentBoundaries;
        ASSERT_EQ(material.size(), 3u);
        ASSERT_EQ(containment.partBoundaries.size(), 2u);
        ASSERT_EQ(containment.materialBoundaries.size(), 2u);
        ASSERT_TRUE(material[0]);
        EXPECT_EQ(material[0]->stringOr("Type", ""), "pocket");
        EXPECT_FALSE(material[2]);
        EXPECT_EQ(containment.partBoundaries[0], material[0]);
        EXPECT_EQ(containment.materialBoundaries[0], containment.partBoundaries[1]);
        EXPECT_EQ(containment.materialBoundaries[1], material[1]);
        EXPECT_EQ(material[0].use_count(), 2);
    }
}

TEST(CountedPointer, EveryBinaryVersionHoldsTheSame)
{
    const AnyRecord& record = recordOfGolden("t3dboundaries");
    const std::string today = record.rewrite(counted("t3dboundaries_v3.xml"), ArchiveFormat::binary);
    for (const char* version : {"1", "3", "5", "6", "7"})
    {
        SCOPED_TRACE(version);
        const std::string old = counted("t3dboundaries_v" + std::string(version) + ".bin");
        EXPECT_EQ(record.rewrite(old, ArchiveFormat::binary), today);
    }
}

exchange::CurveList polymorphicList(const std::string& archive)
{
    std::istringstream stream(archive);
    exchange::PolymorphicReader reader(stream);
    exchange::CurveList curves;
    reader.archive() >> BOOST_SERIALIZATION_NVP(curves);
    reader.finish();
    return curves;
}

std::string polymorphicListError(const std::string& archive)
{
    try
    {
        polymorphicList(archive);
    }
    catch (const boost::archive::archive_exception& error)
    {
        return error.what();
    }
    return "";
}

TEST(CountedPointer, PolymorphicReadersTakeThemToo)
{
    for (const char* file : {"curvelist_shared_v3.xml", "curvelist_shared_v9.xml", "curvelist_shared_v9.bin"})
    {
        SCOPED_TRACE(file);
        const std::string whole = counted(file);
        const exchange::CurveList curves = polymorphicList(whole);
        ASSERT_EQ(curves.size(), 3u);
        ASSERT_TRUE(curves[0]);
        EXPECT_EQ(curves[1], curves[0]);
        EXPECT_EQ(curves[0].use_count(), 2);
        EXPECT_FALSE(curves[2]);
        std::ostringstream out;
        exchange::writeArchive(out, curves);
        EXPECT_EQ(out.str(), golden("curvelist_shared.xml"));

        expectTruncationRefused(whole, polymorphicListError);
        expectChangesHarmless(whole, polymorphicListError, 2000);
    }
}

class EditedCountedXml : public testing::TestWithParam<Edit>
{
};

TEST_P(EditedCountedXml, IsRefused)
{
    const Edit& edit = GetParam();
    const std::string archive = replaced(counted(edit.file), edit.from, edit.to);
    EXPECT_EQ(readError(recordOfGolden(edit.file), archive), edit.error);
    if (recordOfGolden(edit.file).read == recordOfGolden("curvelist").read)
    {
        EXPECT_NE(polymorphicListError(archive), "");
    }
}

const char list[] = "curvelist_shared_v3.xml";
const char boundaries[] = "t3dboundaries_v3.xml";
const char conflict[] = "pointer conflict";
const char unregistered[] = "unregistered class";

INSTANTIATE_TEST_SUITE_P(
    Hostile, EditedCountedXml,
    testing::Values(
        // Classes that are not the counting object of this pointer's kind: unknown, by name, a curve, that of meshes.
        Edit{list, "<pi class_id=\"2\"", "<pi class_id=\"10\"", unregistered},
        Edit{list, "<pi class_id=\"2\"", "<pi class_id=\"10\" class_name=\"__shared_ptr_GeomArc2Impl\"", unregistered},
        Edit{list, "<pi class_id=\"2\"", "<pi class_id=\"10\" class_name=\"GeomArc2Impl\"", unregistered},
        Edit{list, "<pi class_id=\"2\"", "<pi class_id=\"3\"", unregistered},
        Edit{list, "<pi class_id=\"2\"", "<pi class_id=\"9\"", unregistered},
        Edit{boundaries, "<pi class_id=\"11\"", "<pi class_id=\"2\"", unregistered},
        Edit{boundaries, "<pi class_id_reference=\"11\" object_id_reference=\"_3\"",
             "<pi class_id_reference=\"2\" object_id_reference=\"_1\"", unregistered},
        // The counting object where a curve has to be.
        Edit{list, "<px class_id_reference=\"3\" object_id_reference=\"_0\"",
             "<px class_id_reference=\"2\" object_id_reference=\"_1\"", unregistered},
        Edit{list, "<px class_id_reference=\"3\" object_id_reference=\"_0\"",
             "<px class_id_reference=\"3\" object_id_reference=\"_1\"", conflict},
        Edit{list, "<ptr class_id_reference=\"3\"", "<ptr class_id_reference=\"2\"", unregistered},
        Edit{list, "object_id_reference=\"_0\"></ptr>", "object_id_reference=\"_1\"></ptr>", conflict},
        // Objects that are not there, or not yet.
        Edit{list, "version=\"0\" object_id=\"_1\"", "version=\"0\" object_id=\"_0\"", conflict},
        Edit{list, "version=\"0\" object_id=\"_1\"", "version=\"0\" object_id=\"_2\"", conflict},
        Edit{list, "object_id_reference=\"_1\"></pi>", "object_id_reference=\"_9\"></pi>", conflict},
        // The pointer and its counting object must be about one object.
        Edit{list, "<ptr class_id_reference=\"3\" object_id_reference=\"_0\">", "<ptr class_id=\"-1\">", conflict},
        Edit{list, "<pi class_id_reference=\"2\" object_id_reference=\"_1\">", "<pi class_id=\"-1\">", conflict},
        Edit{list, "<pi class_id=\"-1\">", "<pi class_id_reference=\"2\" object_id_reference=\"_1\">", conflict},
        Edit{boundaries, "<pi class_id_reference=\"11\" object_id_reference=\"_5\">",
             "<pi class_id_reference=\"11\" object_id_reference=\"_3\">", conflict},
        // Versions
        Edit{list, "<pn class_id=\"9\" tracking_level=\"0\" version=\"0\"",
             "<pn class_id=\"9\" tracking_level=\"0\" version=\"1\"", "class version boost::detail::shared_count"},
        Edit{list, "<pi class_id=\"2\" tracking_level=\"1\" version=\"0\"",
             "<pi class_id=\"2\" tracking_level=\"1\" version=\"1\"",
             "class version boost::detail::sp_counted_base_impl"},
        Edit{list, "<item class_id=\"1\" tracking_level=\"0\" version=\"0\"",
             "<item class_id=\"1\" tracking_level=\"0\" version=\"1\"", unregistered},
        // Elements
        Edit{list, " class_id=\"9\" tracking_level=\"0\" version=\"0\"", "", "unrecognized XML syntax"},
        Edit{list, "<pn>", "", "XML start/end tag mismatch - pn"},
        Edit{list, "<ptr class_id_reference=\"3\" object_id_reference=\"_0\"></ptr>", "",
             "XML start/end tag mismatch - ptr"},
        Edit{list, "></ptr>", "><ptr class_id_reference=\"3\" object_id_reference=\"_0\"></ptr></ptr>",
             "XML start/end tag mismatch - ptr"}));

TEST(CountedPointer, CountsInNarrowBinaryAreNotBelieved)
{
    // The count of the list stands behind the head (39 bytes) and the class of the list (2).
    for (const char count : {'\x04', '\x7f', '\xff'})
    {
        std::string archive = counted("curvelist_shared_v3.bin");
        ASSERT_EQ(archive[41], '\x03');
        archive.replace(41, 4, 4, count);
        EXPECT_EQ(readError(recordOfGolden("curvelist"), archive), "input stream error");
    }
}

TEST(CountedPointer, TruncationAndRandomChangesNeverDoMoreThanThrow)
{
    for (const auto& path : countedFiles())
    {
        SCOPED_TRACE(path);
        const auto read = std::bind_front(readError, recordOfGolden(path.stem().string()));
        expectTruncationRefused(fileBytes(path), read);
        expectChangesHarmless(fileBytes(path), read, 300);
    }
}

} // namespace
} // namespace testing_support
