#ifndef HOST_PARAMETERDIALOGS_H
#define HOST_PARAMETERDIALOGS_H

#include "host/ModuleLibrary.h"
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/machining/SmartLinkData.h>
#include <tessaron/util/Parameterized.h>

#include <string>

class wxWindow;

namespace host
{

/// Opens the module's parameter dialogs over a part's parameters. Each call returns whether the parameters have changed
/// and must only be made when the module has the entry point.
class ParameterDialogs
{
public:
    /// \param templates the folder that holds the templates
    ParameterDialogs(const Module& module, std::string templates) : m_module(module), m_templates(std::move(templates))
    {
    }

    bool chipThickness(util::Parameterized& parameters) const;
    bool gougeCheck(util::Parameterized& parameters) const;
    bool smartLink(util::Parameterized& parameters) const;
    bool loadTemplate(util::Parameterized& parameters, wxWindow* parent) const;
    bool saveTemplate(util::Parameterized& parameters, wxWindow* parent) const;

private:
    const Module& m_module;
    std::string m_templates;
};

} // namespace host

#endif
