#include "host/ParameterDialogs.h"

#include <tessaron/util/Keys.h>

namespace host
{

namespace
{

namespace keys = util::keys;
using util::Parameterized;

constexpr int milling = 0;
constexpr int anySelector = 0;
// The user chooses the look.
constexpr int theme = -1;

// Takes over what a dialog says, and keeps what it does not mention.
bool merge(const Parameterized& changes, Parameterized& parameters)
{
    const Parameterized before = parameters;
    for (const auto& [key, value] : changes.params())
        parameters.set(key, value);
    return parameters != before;
}

} // namespace

bool ParameterDialogs::chipThickness(Parameterized& parameters) const
{
    int spindleSpeed = static_cast<int>(parameters.numberOr(keys::spindleSpeed, 0));
    double feedrate = parameters.numberOr(keys::feedrate, 0);
    double stepover = parameters.numberOr(keys::stepover, 0);
    const int refused = m_module.chipControl(
        milling << 16, parameters.numberOr(keys::toolDiameter, 0), parameters.numberOr(keys::depthOfCut, 0),
        parameters.intOr(keys::toolNumFlutes, 2), &spindleSpeed, &feedrate, &stepover, true);
    if (refused != 0)
        return false;
    Parameterized changes;
    changes.set(keys::spindleSpeed, spindleSpeed);
    changes.set(keys::feedrate, feedrate);
    changes.set(keys::stepover, stepover);
    return merge(changes, parameters);
}

bool ParameterDialogs::gougeCheck(Parameterized& parameters) const
{
    TessaronResources::GougeCheckData data;
    data.checkHolder = parameters.intOr(keys::checkHolderForCollisions, 0);
    data.holderClearance = parameters.numberOr(keys::holderClearance, 1);
    data.shaftClearance = parameters.numberOr(keys::shankClearance, 1);
    data.arborClearance = parameters.numberOr(keys::shankClearance, 1);
    if (m_module.gougeCheck(&data) != 1)
        return false;
    Parameterized changes;
    changes.set(keys::checkHolderForCollisions, data.checkHolder);
    changes.set(keys::holderClearance, data.holderClearance);
    changes.set(keys::shankClearance, data.shaftClearance);
    return merge(changes, parameters);
}

bool ParameterDialogs::smartLink(Parameterized& parameters) const
{
    TessaronResources::SmartLinkData data;
    data.depthFirst = parameters.intOr(keys::depthFirst, 1);
    data.rapidPlaneOnly = parameters.intOr(keys::rapidAtRapidPlane, 1);
    data.linkPreference = parameters.numberOr(keys::rapidVsHighFeed, 0);
    if (m_module.smartLink(&data) != 1)
        return false;
    Parameterized changes;
    changes.set(keys::depthFirst, data.depthFirst);
    changes.set(keys::rapidAtRapidPlane, data.rapidPlaneOnly);
    changes.set(keys::rapidVsHighFeed, data.linkPreference);
    return merge(changes, parameters);
}

bool ParameterDialogs::loadTemplate(Parameterized& parameters, wxWindow* parent) const
{
    Parameterized result;
    const int applied = m_module.loadTemplate(milling, anySelector, m_templates, parameters, &result, parent,
                                              static_cast<util::VisualTheme>(theme));
    return applied == 1 && merge(result, parameters);
}

bool ParameterDialogs::saveTemplate(Parameterized& parameters, wxWindow* parent) const
{
    Parameterized result;
    bool loadSaved = false;
    const int saved = m_module.saveTemplate(milling, anySelector, m_templates, parameters, &result, &loadSaved, parent,
                                            static_cast<util::VisualTheme>(theme));
    return saved == 1 && loadSaved && merge(result, parameters);
}

} // namespace host
