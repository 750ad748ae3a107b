#ifndef FRAME_CONTROLID_H
#define FRAME_CONTROLID_H

#include <cstdint>

namespace TessaronResources
{

/// The buttons that end a dialog, and its results.
constexpr int idOk = 1;
constexpr int idCancel = 2;

/// A control id of the resources as the toolkit takes it: it refuses ids above 32767, which stand for negative ones of
/// 16 bits (65535, the id of a control that needs none, becomes -1).
constexpr int controlId(int id)
{
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(id));
}

} // namespace TessaronResources

#endif
