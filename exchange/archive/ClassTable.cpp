#include "exchange/archive/ClassTable.h"

namespace exchange::archive
{

namespace
{

constinit std::size_t takenSlots = 0;

} // namespace

std::size_t takeClassSlot()
{
    return takenSlots++;
}

std::size_t classSlotCount()
{
    return takenSlots;
}

} // namespace exchange::archive
