#include "c/Inputs.h"

#include "c/Failure.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/geom/Curves.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace
{

using c_interface::Failure;
using c_interface::guarded;
using c_interface::needed;
using geom::PointNd;

/// `count` numbers, all of them finite.
std::vector<double> numbers(const double* values, std::size_t count, const char* name)
{
    if (count > std::numeric_limits<std::size_t>::max() / (4 * sizeof(double)))
        throw Failure(TESSARON_INVALID_ARGUMENT, std::string("There are too many numbers in '") + name + "'.", name);
    std::vector<double> copied(needed(values, name), values + count);
    for (std::size_t i = 0; i < count; ++i)
        if (!std::isfinite(copied[i]))
            throw Failure(TESSARON_INVALID_ARGUMENT,
                          std::string("Number ") + std::to_string(i) + " of '" + name + "' is not finite.", name);
    return copied;
}

double number(double value, const char* name)
{
    return numbers(&value, 1, name).front();
}

std::vector<PointNd<2>> points(const double* values, std::size_t count, const char* name)
{
    if (count > std::numeric_limits<std::size_t>::max() / 2)
        throw Failure(TESSARON_INVALID_ARGUMENT, std::string("There are too many points in '") + name + "'.", name);
    const std::vector<double> coords = numbers(values, 2 * count, name);
    std::vector<PointNd<2>> made;
    made.reserve(count + 1);
    for (std::size_t i = 0; i < count; ++i)
        made.emplace_back(coords[2 * i], coords[2 * i + 1]);
    return made;
}

PointNd<2> point(const double* values, const char* name)
{
    return points(values, 1, name).front();
}

/// The curves of a boundary of an input, or of a constant one.
template <class Input>
auto& curves(Input* input, int boundary)
{
    auto& boundaries = needed(input, "input")->geometry.boundaries;
    switch (boundary)
    {
    case TESSARON_PART:
        return boundaries.partBoundaries;
    case TESSARON_STOCK:
        return boundaries.materialBoundaries;
    }
    throw Failure(TESSARON_INVALID_ARGUMENT, "There is no such boundary.", "boundary");
}

template <class Curve, class... Args>
void addCurve(TessaronInput* input, int boundary, Args&&... args)
{
    curves(input, boundary).push_back(boost::make_shared<Curve>(std::forward<Args>(args)...));
}

TessaronInput* inputOf(exchange::Tessaron2dInput&& record)
{
    auto* const input = new TessaronInput;
    std::swap(input->parameters.values, record.parameters);
    std::swap(input->geometry, record);
    return input;
}

} // namespace

void c_interface::fillIn(const exchange::JobFinding& finding, TessaronFinding& target)
{
    target.status = finding.code;
    target.hasPlace = finding.hasPlace ? 1 : 0;
    target.x = finding.x;
    target.y = finding.y;
    target.field = finding.field.c_str();
    target.text = finding.text.c_str();
}

int tessaronInputCreate(TessaronInput** created)
{
    return guarded([&] { *needed(created, "created") = new TessaronInput; });
}

int tessaronInputCopy(const TessaronInput* input, TessaronInput** copy)
{
    return guarded([&] { *needed(copy, "copy") = new TessaronInput(*needed(input, "input")); });
}

void tessaronInputFree(TessaronInput* input)
{
    delete input;
}

TessaronParameters* tessaronInputParameters(TessaronInput* input)
{
    return input == nullptr ? nullptr : &input->parameters;
}

int tessaronInputAddLine(TessaronInput* input, int boundary, const double start[2], const double end[2])
{
    return guarded([&] { addCurve<geom::LineImpl<2>>(input, boundary, point(start, "start"), point(end, "end")); });
}

int tessaronInputAddPolyline(TessaronInput* input, int boundary, const double* coords, size_t count, int closed)
{
    return guarded(
        [&]
        {
            std::vector<PointNd<2>> vertices = points(coords, count, "points");
            if (vertices.size() < 2)
                throw Failure(TESSARON_INVALID_ARGUMENT, "A polyline has at least two points.", "points");
            if (closed != 0 && vertices.front() != vertices.back())
                vertices.push_back(vertices.front());
            addCurve<geom::PolylineImpl<2>>(input, boundary, std::move(vertices));
        });
}

int tessaronInputAddArc(TessaronInput* input, int boundary, const double center[2], double radius, double startAngle,
                        double endAngle)
{
    return guarded(
        [&]
        {
            if (!(number(radius, "radius") > 0))
                throw Failure(TESSARON_INVALID_ARGUMENT, "The radius of an arc is above 0.", "radius");
            addCurve<geom::Arc2Impl>(input, boundary, point(center, "center"), radius, number(startAngle, "startAngle"),
                                     number(endAngle, "endAngle"));
        });
}

int tessaronInputAddSpline(TessaronInput* input, int boundary, const double* controlPoints, size_t count,
                           const double* knots, size_t knotCount, const double* weights)
{
    return guarded(
        [&]
        {
            std::vector<PointNd<2>> control = points(controlPoints, count, "controlPoints");
            std::vector<double> knotList = numbers(knots, knotCount, "knots");
            if (weights == nullptr)
                return addCurve<geom::BSplineCurveImpl<2>>(input, boundary, std::move(control), std::move(knotList));
            std::vector<double> weightList = numbers(weights, count, "weights");
            for (const double weight : weightList)
                if (!(weight > 0))
                    throw Failure(TESSARON_INVALID_ARGUMENT, "The weights of a spline are above 0.", "weights");
            addCurve<geom::RationalBSplineCurveImpl<2>>(input, boundary, std::move(control), std::move(knotList),
                                                        std::move(weightList));
        });
}

int tessaronInputClear(TessaronInput* input, int boundary)
{
    return guarded([&] { curves(input, boundary).clear(); });
}

size_t tessaronInputCurveCount(const TessaronInput* input, int boundary)
{
    if (input == nullptr || (boundary != TESSARON_PART && boundary != TESSARON_STOCK))
        return 0;
    return curves(input, boundary).size();
}

int tessaronInputAddHole(TessaronInput* input, const double center[2], double usableDepth, int through)
{
    return guarded(
        [&]
        {
            needed(input, "input")
                ->geometry.preDrilledHoles.holes.push_back(
                    {point(center, "center"), number(usableDepth, "usableDepth"), through != 0});
        });
}

size_t tessaronInputHoleCount(const TessaronInput* input)
{
    return input == nullptr ? 0 : input->geometry.preDrilledHoles.holes.size();
}

int tessaronInputSetHolderProfile(TessaronInput* input, const double* coords, size_t count)
{
    return guarded(
        [&]
        {
            needed(input, "input")->geometry.holderProfile =
                count == 0 ? exchange::Profile() : points(coords, count, "points");
        });
}

int tessaronInputCheck(TessaronInput* input)
{
    return guarded(
        [&]
        {
            exchange::JobInputProblem problem = exchange::checkJobInput(needed(input, "input")->record());
            if (problem.status != TESSARON_OK)
                throw Failure(problem.status, problem.text, problem.field);
            input->findings = std::move(problem.findings);
        });
}

size_t tessaronInputFindingCount(const TessaronInput* input)
{
    return input == nullptr ? 0 : input->findings.size();
}

int tessaronInputFinding(const TessaronInput* input, size_t index, TessaronFinding* finding)
{
    return guarded(
        [&]
        {
            TessaronFinding& target = c_interface::sized(finding, "finding");
            const auto& all = needed(input, "input")->findings;
            c_interface::fillIn(all[c_interface::indexBelow(index, all.size())], target);
        });
}

int tessaronInputRead(const char* path, TessaronInput** created)
{
    return guarded(
        [&]
        {
            needed(created, "created");
            exchange::Tessaron2dInput record;
            c_interface::withFile(TESSARON_READ_ERROR, path, [&] { exchange::readArchiveFile(path, record); });
            *created = inputOf(std::move(record));
        });
}

int tessaronInputReadMemory(const void* bytes, size_t size, const char* name, TessaronInput** created)
{
    return guarded(
        [&]
        {
            needed(created, "created");
            const std::string_view archive(static_cast<const char*>(needed(bytes, "bytes")), size);
            exchange::Tessaron2dInput record;
            c_interface::withFile(TESSARON_READ_ERROR, name == nullptr ? "" : name,
                                  [&] { exchange::readArchive(archive, record); });
            *created = inputOf(std::move(record));
        });
}

int tessaronInputWrite(const TessaronInput* input, const char* path, int format)
{
    return guarded(
        [&]
        {
            const exchange::Tessaron2dInput record = needed(input, "input")->record();
            c_interface::withFile(TESSARON_WRITE_ERROR, path,
                                  [&]
                                  { exchange::writeArchiveFile(path, record, c_interface::archiveFormat(format)); });
        });
}
