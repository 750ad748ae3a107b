#ifndef C_PARAMETERS_H
#define C_PARAMETERS_H

#include <tessaron/c/Parameters.h>
#include <tessaron/util/Parameterized.h>

/// A parameter set of its own, or one that is a member of another handle.
struct TessaronParameters
{
    util::Parameterized values;
    bool isMember = false;
};

#endif
