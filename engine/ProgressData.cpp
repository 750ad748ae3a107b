#include <tessaron/engine/ProgressData.h>

#include <chrono>
#include <thread>

namespace exchange
{

ProgressData::ProgressData() = default;
ProgressData::~ProgressData() = default;

void ProgressData::refresh() {}

void ProgressData::requestCancel() {}

void ProgressData::getSubJobIds(std::vector<int>& ids)
{
    ids.clear();
}

} // namespace exchange

namespace util
{

void msleep(int milliseconds)
{
    if (milliseconds > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace util
