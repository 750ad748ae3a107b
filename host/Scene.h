#ifndef HOST_SCENE_H
#define HOST_SCENE_H

#include "host/Part.h"
#include "host/ToolpathModel.h"

#include <memory>
#include <optional>

namespace host
{

/// What is drawn: a part, its toolpath, and what of it is wanted.
struct Scene
{
    static constexpr int allLevels = -1;

    std::shared_ptr<const Part> part;
    std::shared_ptr<const ToolpathModel> toolpath;
    bool showRapids = true;
    bool showLegend = true;
    /// The one depth level to show, counted from the top; allLevels for all.
    int level = allLevels;
    /// The toolpath belongs to parameters that have changed since.
    bool outdated = false;
    /// A place to point at.
    std::optional<Point3> place;

    Box3 box() const;
};

} // namespace host

#endif
