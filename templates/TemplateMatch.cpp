#include "templates/TemplateMatch.h"

#include "frame/Translation.h"
#include "templates/columns/CellNumber.h"
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace TessaronResources
{

namespace
{

namespace keys = util::keys;

constexpr double tolerance = 1e-08;

/// The reals that make a tool the same one, in the order in which they are compared.
constexpr std::array<util::Key, 6> toolKeys = {keys::toolDiameter, keys::toolLowerRadius, keys::toolTaperAngle,
                                               keys::toolTipAngle, keys::toolLength,      keys::toolFlutLength};

bool sameReal(const util::Parameterized& a, const util::Parameterized& b, const util::Key& key)
{
    return std::fabs(a.numberOr(key, 0.0) - b.numberOr(key, 0.0)) < tolerance;
}

int flutes(const util::Parameterized& set)
{
    return integerOf(set.find(keys::toolNumFlutes)).value_or(0);
}

} // namespace

const std::vector<std::string>& matchFilterTexts()
{
    static const std::vector<std::string> texts = {translated("All templates"), translated("Same tool diameter"),
                                                   translated("Same tool")};
    return texts;
}

bool matchesFilter(int filter, const util::Parameterized& set, const util::Parameterized& current)
{
    switch (filter)
    {
    case matchFilter::sameToolDiameter:
        return sameReal(set, current, keys::toolDiameter);
    case matchFilter::sameTool:
        return std::all_of(toolKeys.begin(), toolKeys.end(),
                           [&](const util::Key& key) { return sameReal(set, current, key); }) &&
               flutes(set) == flutes(current);
    default:
        return true;
    }
}

} // namespace TessaronResources
