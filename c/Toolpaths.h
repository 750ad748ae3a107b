#ifndef C_TOOLPATHS_H
#define C_TOOLPATHS_H

#include <tessaron/c/Toolpaths.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>

/// A toolpath of the caller's own, or one that a job shares.
struct TessaronToolpath
{
    boost::shared_ptr<const exchange::ToolpathRecords> records;
    /// The same records where they may be changed; null otherwise.
    boost::shared_ptr<exchange::ToolpathRecords> own;
};

namespace c_interface
{

/// Copies records for a caller in C.
void copyRecords(const exchange::ToolpathRecords& toolpath, std::size_t first, std::size_t count,
                 TessaronRecord* records);

} // namespace c_interface

#endif
