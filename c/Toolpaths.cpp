#include "c/Toolpaths.h"

#include "c/Failure.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/gcode/GcodeWriter.h>

#include <boost/make_shared.hpp>
#include <boost/variant/apply_visitor.hpp>
#include <boost/variant/get.hpp>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace
{

using c_interface::Failure;
using c_interface::guarded;
using c_interface::needed;
using exchange::ToolpathRecord;

/// A record as a caller in C sees it.
class PlainRecord : public boost::static_visitor<TessaronRecord>
{
public:
    TessaronRecord operator()(const exchange::RapidMove& move) const { return at(move.endPt); }
    TessaronRecord operator()(const exchange::LinearMove& move) const { return at(move.endPt); }
    template <int Sense>
    TessaronRecord operator()(const exchange::Arc<Sense>& arc) const
    {
        TessaronRecord record = at(arc.endPt);
        record.radius = arc.radius;
        return record;
    }
    TessaronRecord operator()(const exchange::FeedRate& feed) const { return {0, 0, 0, 0, 0, feed.feedrate}; }
    TessaronRecord operator()(const exchange::SpindleSpeed& spindle) const { return {0, 0, 0, 0, 0, spindle.speed}; }
    TessaronRecord operator()(const exchange::CustomRecord&) const { return {}; }
    TessaronRecord operator()(const exchange::ToolAxis& axis) const { return at(axis.axis); }

private:
    template <class Coords>
    static TessaronRecord at(const Coords& coords)
    {
        return {0, coords[0], coords[1], coords[2], 0, 0};
    }
};

ToolpathRecord recordOf(const TessaronRecord& plain)
{
    for (const double value : {plain.x, plain.y, plain.z, plain.radius, plain.value})
        if (!std::isfinite(value))
            throw Failure(TESSARON_INVALID_ARGUMENT, "A number is not finite", "records");
    const geom::PointNd<3> end(plain.x, plain.y, plain.z);
    constexpr double lastKind = TESSARON_RECORD_TOOL_AXIS;
    const bool isKind = plain.kind >= 0 && plain.kind <= lastKind && plain.kind == std::trunc(plain.kind);
    switch (isKind ? static_cast<int>(plain.kind) : -1)
    {
    case TESSARON_RECORD_RAPID_MOVE:
        return exchange::RapidMove{end};
    case TESSARON_RECORD_LINEAR_MOVE:
        return exchange::LinearMove{end};
    case TESSARON_RECORD_ARC_1:
        return exchange::Arc<1>{end, plain.radius};
    case TESSARON_RECORD_ARC_0:
        return exchange::Arc<0>{end, plain.radius};
    case TESSARON_RECORD_FEED_RATE:
        return exchange::FeedRate{plain.value};
    case TESSARON_RECORD_SPINDLE_SPEED:
        return exchange::SpindleSpeed{plain.value};
    case TESSARON_RECORD_TOOL_AXIS:
        return exchange::ToolAxis{geom::VecNd<3>(plain.x, plain.y, plain.z)};
    default:
        throw Failure(TESSARON_INVALID_ARGUMENT, "There is no such kind", "records");
    }
}

exchange::GcodeSettings dialectOf(const char* const* settings)
{
    exchange::GcodeSettings dialect;
    for (; settings != nullptr && *settings != nullptr; settings += 2)
    {
        try
        {
            exchange::setGcodeSetting(dialect, settings[0], needed(settings[1], settings[0]));
        }
        catch (const exchange::GcodeError& error)
        {
            throw Failure(TESSARON_INVALID_ARGUMENT, error.what(), settings[0]);
        }
    }
    return dialect;
}

/// The records of a toolpath that the caller may change.
std::deque<ToolpathRecord>& ownRecords(TessaronToolpath* toolpath)
{
    if (!needed(toolpath, "toolpath")->own)
        throw Failure(TESSARON_INVALID_ARGUMENT, "The toolpath of a job cannot be changed.", "toolpath");
    return toolpath->own->records;
}

TessaronToolpath* ownToolpath(boost::shared_ptr<exchange::ToolpathRecords> records)
{
    return new TessaronToolpath{records, std::move(records)};
}

} // namespace

void c_interface::copyRecords(const exchange::ToolpathRecords& toolpath, std::size_t first, std::size_t count,
                              TessaronRecord* records)
{
    const std::size_t size = toolpath.records.size();
    if (first > size || count > size - first)
        throw Failure(TESSARON_NOT_FOUND, "The toolpath has " + std::to_string(size) + " records only.");
    if (count == 0)
        return;
    needed(records, "records");
    auto it = toolpath.records.begin() + static_cast<std::ptrdiff_t>(first);
    for (std::size_t i = 0; i < count; ++i, ++it)
    {
        records[i] = boost::apply_visitor(PlainRecord(), *it);
        records[i].kind = it->which();
    }
}

int tessaronToolpathCreate(TessaronToolpath** created)
{
    return guarded([&] { *needed(created, "created") = ownToolpath(boost::make_shared<exchange::ToolpathRecords>()); });
}

void tessaronToolpathFree(TessaronToolpath* toolpath)
{
    delete toolpath;
}

size_t tessaronToolpathCount(const TessaronToolpath* toolpath)
{
    return toolpath == nullptr ? 0 : toolpath->records->records.size();
}

int tessaronToolpathRecords(const TessaronToolpath* toolpath, size_t first, size_t count, TessaronRecord* records)
{
    return guarded([&] { c_interface::copyRecords(*needed(toolpath, "toolpath")->records, first, count, records); });
}

int tessaronToolpathText(const TessaronToolpath* toolpath, size_t index, const char** text)
{
    return guarded(
        [&]
        {
            const auto& records = needed(toolpath, "toolpath")->records->records;
            const auto* const custom =
                boost::get<exchange::CustomRecord>(&records[c_interface::indexBelow(index, records.size())]);
            if (custom == nullptr)
                throw Failure(TESSARON_WRONG_KIND, "Record " + std::to_string(index) + " has no text.");
            *needed(text, "text") = custom->string.c_str();
        });
}

int tessaronToolpathAppend(TessaronToolpath* toolpath, const TessaronRecord* records, size_t count)
{
    return guarded(
        [&]
        {
            std::deque<ToolpathRecord>& own = ownRecords(toolpath);
            std::deque<ToolpathRecord> added;
            for (std::size_t i = 0; i < count; ++i)
            {
                try
                {
                    added.push_back(recordOf(needed(records, "records")[i]));
                }
                catch (const Failure& failure)
                {
                    throw Failure(failure.status(), failure.what() + (" in record " + std::to_string(i) + "."),
                                  failure.field());
                }
            }
            own.insert(own.end(), added.begin(), added.end());
        });
}

int tessaronToolpathAppendText(TessaronToolpath* toolpath, const char* text)
{
    return guarded([&] { ownRecords(toolpath).push_back(exchange::CustomRecord{needed(text, "text")}); });
}

int tessaronToolpathRead(const char* path, TessaronToolpath** created)
{
    return guarded(
        [&]
        {
            needed(created, "created");
            auto records = boost::make_shared<exchange::ToolpathRecords>();
            c_interface::withFile(TESSARON_READ_ERROR, path, [&] { exchange::readArchiveFile(path, *records); });
            *created = ownToolpath(std::move(records));
        });
}

int tessaronToolpathWriteGcode(const TessaronToolpath* toolpath, const char* path, const char* const* settings)
{
    return guarded(
        [&]
        {
            const exchange::ToolpathRecords& records = *needed(toolpath, "toolpath")->records;
            const exchange::GcodeSettings dialect = dialectOf(settings);
            c_interface::withFile(TESSARON_WRITE_ERROR, path,
                                  [&] { exchange::writeGcodeFile(path, records, dialect); });
        });
}

int tessaronToolpathWrite(const TessaronToolpath* toolpath, const char* path)
{
    return guarded(
        [&]
        {
            const exchange::ToolpathRecords& records = *needed(toolpath, "toolpath")->records;
            c_interface::withFile(TESSARON_WRITE_ERROR, path, [&] { exchange::writeArchiveFile(path, records); });
        });
}
