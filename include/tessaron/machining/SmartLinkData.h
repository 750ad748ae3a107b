#ifndef TESSARON_MACHINING_SMARTLINKDATA_H
#define TESSARON_MACHINING_SMARTLINKDATA_H

// Stability: stable.

#include <cstddef>

namespace TessaronResources
{

/// How the pieces of a toolpath are ordered and linked. Owned by the host; the SmartLink dialog edits it in place (see
/// displaySmartLinkDialog). The layout is part of the binary interface.
struct SmartLinkData
{
    int depthFirst = 0;          ///< 1: finish each pocket before the next, 0: finish each level before the next
    int rapidPlaneOnly = 0;      ///< 1: rapid moves are horizontal in the rapid plane only, 0: anywhere
    double linkPreference = 0.0; ///< from 0.0, prefer rapid moves, to 1.0, prefer high-feed moves, in steps of 0.1
};

static_assert(sizeof(int) == 4 && sizeof(double) == 8, "the record is shared with other compilers");
static_assert(offsetof(SmartLinkData, rapidPlaneOnly) == 4 && offsetof(SmartLinkData, linkPreference) == 8 &&
                  sizeof(SmartLinkData) == 16,
              "the record is shared with other compilers");

} // namespace TessaronResources

#endif
