#ifndef C_INPUTS_H
#define C_INPUTS_H

#include "c/Parameters.h"
#include <tessaron/c/Inputs.h>
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Tessaron2dInput.h>

#include <vector>

/// An input in the making. Its parameters have a handle of their own; those of `geometry` are not used.
struct TessaronInput
{
    exchange::Tessaron2dInput geometry;
    TessaronParameters parameters{{}, true};
    std::vector<exchange::JobFinding> findings;

    /// The whole input.
    exchange::Tessaron2dInput record() const
    {
        exchange::Tessaron2dInput whole = geometry;
        whole.parameters = parameters.values;
        return whole;
    }
};

namespace c_interface
{

/// Tells a finding to a caller in C; the texts stay the finding's.
void fillIn(const exchange::JobFinding& finding, TessaronFinding& target);

} // namespace c_interface

#endif
