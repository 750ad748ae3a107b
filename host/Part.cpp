#include "host/Part.h"

#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/util/Keys.h>

#include <cctype>
#include <cmath>
#include <filesystem>

namespace host
{

namespace
{

constexpr double drawingTolerance = 0.01;

double toleranceOf(const Part& part)
{
    const double tolerance = part.number(util::keys::cutTolerance, drawingTolerance);
    return std::isfinite(tolerance) && tolerance > 0 ? tolerance : drawingTolerance;
}

// What an error of an archive means for a person who opens a part.
const char* explanation(boost::archive::archive_exception::exception_code code)
{
    using Error = boost::archive::archive_exception;
    switch (code)
    {
    case Error::invalid_signature:
        return "This is no archive.";
    case Error::input_stream_error:
        return "The file is incomplete or damaged, or does not hold a part.";
    case Error::unsupported_version:
    case Error::unsupported_class_version:
        return "It was written by a newer program.";
    default:
        return "The file does not hold a part.";
    }
}

[[noreturn]] void refuse(const std::string& path, const std::string& complaint)
{
    throw PartError("\"" + path + "\" cannot be opened: " + complaint);
}

} // namespace

std::string Part::fileName() const
{
    return std::filesystem::path(path).filename().string();
}

std::string Part::name() const
{
    std::string name = std::filesystem::path(path).stem().string();
    std::replace(name.begin(), name.end(), '-', ' ');
    if (!name.empty())
        name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
    return name;
}

Box3 Part::box() const
{
    Box3 box;
    const double heights[] = {number(util::keys::zDepth), number(util::keys::topMaterialZ)};
    for (const auto* contours : {&partContours, &stockContours})
        for (const Contour& contour : *contours)
            for (const Point2& point : contour.points)
                for (const double z : heights)
                    box.include(Point3(point[0], point[1], z));
    return box;
}

Part loadPart(const std::string& path)
{
    Part part;
    part.path = path;
    try
    {
        exchange::readArchiveFile(path, part.input);
    }
    catch (const exchange::ArchiveFileError& error)
    {
        // The message says it all when there is no file to look into.
        const std::string text = error.what();
        throw PartError(std::filesystem::exists(path) ? text + ". " + explanation(error.code) : text);
    }
    const exchange::JobInputProblem problem = exchange::checkJobInput(part.input);
    if (!problem.field.empty())
        refuse(path, problem.text);
    try
    {
        const double tolerance = toleranceOf(part);
        part.partContours = outline(part.input.boundaries.partBoundaries, tolerance);
        part.stockContours = outline(part.input.boundaries.materialBoundaries, tolerance);
    }
    catch (const std::exception& error)
    {
        refuse(path, error.what());
    }
    return part;
}

} // namespace host
