// Classes of a host that nest as deep as they like, in the archives that take classes of a host.

#include "exchange/archive/RecordTable.h"
#include <tessaron/exchange/PolymorphicArchives.h>

#include <boost/archive/archive_exception.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/vector.hpp>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <pthread.h>

namespace testing_support
{

struct Nested
{
    int value = 0;
    std::vector<Nested> inner;

    template <class Archive>
    void serialize(Archive& archive, unsigned /*version*/)
    {
        archive& boost::serialization::make_nvp("value", value);
        archive& boost::serialization::make_nvp("inner", inner);
    }
};

namespace
{

using exchange::ArchiveFormat;

Nested nested(int levels)
{
    Nested outermost{levels, {}};
    for (int level = 1; level < levels; ++level)
    {
        Nested around{levels - level, {}};
        around.inner.push_back(std::move(outermost));
        outermost = std::move(around);
    }
    return outermost;
}

int levelsOf(const Nested& outermost)
{
    int levels = 1;
    for (const Nested* at = &outermost; !at->inner.empty(); at = &at->inner.front())
        ++levels;
    return levels;
}

std::string written(const Nested& record, ArchiveFormat format)
{
    std::ostringstream stream;
    exchange::PolymorphicWriter writer(stream, format);
    writer.archive() << boost::serialization::make_nvp("Nested", record);
    writer.finish();
    return std::move(stream).str();
}

Nested readFrom(const std::string& archive)
{
    std::istringstream stream(archive);
    exchange::PolymorphicReader reader(stream);
    Nested record;
    reader.archive() >> boost::serialization::make_nvp("Nested", record);
    reader.finish();
    return record;
}

/// Each line of the text starts with as many tabs as elements are open around it.
void expectIndented(const std::string& xml)
{
    std::istringstream lines(xml.substr(xml.find("<Nested")));
    int depth = 0;
    for (std::string line; std::getline(lines, line) && line.find("</boost_serialization>") != 0;)
    {
        const bool closes = line.find("</") == line.find('<');
        depth -= closes ? 1 : 0;
        const std::size_t tabs = line.find_first_not_of('\t');
        ASSERT_EQ(tabs == std::string::npos ? line.size() : tabs, line.empty() ? 0U : static_cast<std::size_t>(depth))
            << line;
        depth += !closes && line.find("</") == std::string::npos && !line.empty() ? 1 : 0;
    }
    EXPECT_EQ(depth, 0);
}

/// A stack as small as hosts have them; instrumented code needs more of it.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t smallStack = std::size_t(16) << 20U;
#else
constexpr std::size_t smallStack = std::size_t(1) << 20U;
#endif

void runOnSmallStack(std::function<void()> function)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, smallStack), 0);
    pthread_t thread;
    const auto run = [](void* argument) -> void*
    {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &function), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(DeepArchives, ComeBackAtEveryDepthThatIsWritten)
{
    for (const int levels : {1, 2, 7, 8, 9, 15, 16, 17, 18, 40, 120})
    {
        const Nested record = nested(levels);
        const std::string xml = written(record, ArchiveFormat::xml);
        expectIndented(xml);
        EXPECT_EQ(written(readFrom(xml), ArchiveFormat::xml), xml) << levels;
        EXPECT_EQ(levelsOf(readFrom(written(record, ArchiveFormat::binary))), levels);
    }
}

TEST(DeepArchives, AreRefusedBeforeTheStackEnds)
{
    runOnSmallStack(
        []
        {
            for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
            {
                EXPECT_EQ(levelsOf(readFrom(written(nested(400), format))), 400);
                EXPECT_THROW(written(nested(3000), format), boost::archive::archive_exception);
            }
        });
}

TEST(DeepArchives, FromOutsideAreRefusedBeforeTheStackEnds)
{
    const std::string xml = written(nested(40), ArchiveFormat::xml);
    // The levels from the second on are alike, as the first describes the classes.
    const std::size_t begin = xml.find("<item>");
    const std::size_t end = xml.find("<item>", begin + 1);
    ASSERT_NE(end, std::string::npos);
    for (const int levels : {3000, 100'000})
    {
        std::string text = xml.substr(0, begin);
        for (int i = 0; i < levels; ++i)
            text += xml.substr(begin, end - begin);
        runOnSmallStack([&text] { EXPECT_THROW(readFrom(text), boost::archive::archive_exception); });
    }
}

TEST(ElementNames, LongerThanTheBufferAreRefused)
{
    const exchange::FeedRate record{1};
    const auto write = [&record](std::size_t length)
    {
        std::ostringstream stream;
        const auto kind = exchange::archive::RecordKindOf<exchange::FeedRate>::value;
        exchange::archive::xmlRecordWriter(kind)(stream, std::string(length, 'n').c_str(), &record);
        return stream.str();
    };
    EXPECT_NE(write(1000).find("</" + std::string(1000, 'n') + ">"), std::string::npos);
    EXPECT_THROW(write(1'000'000), boost::archive::archive_exception);
}

} // namespace
} // namespace testing_support
