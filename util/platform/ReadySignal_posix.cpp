#include "util/platform/ReadySignal.h"

#include "util/platform/UniqueFd_posix.h"

#include <cerrno>
#include <cstdint>
#include <system_error>

#include <fcntl.h>
#include <sys/eventfd.h>

namespace util
{

struct ReadySignal::State
{
    UniqueFd event;
};

ReadySignal::ReadySignal() : m_state(std::make_unique<State>())
{
    m_state->event = UniqueFd(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!m_state->event.isOpen())
        throw std::system_error(errno, std::generic_category(), "no descriptor to wait for");
}

ReadySignal::~ReadySignal() = default;

int ReadySignal::descriptor() const
{
    const int own = ::fcntl(m_state->event.get(), F_DUPFD_CLOEXEC, 0);
    if (own < 0)
        throw std::system_error(errno, std::generic_category(), "no descriptor to wait for");
    return own;
}

void ReadySignal::set() const noexcept
{
    const std::uint64_t one = 1;
    static_cast<void>(system::write(m_state->event.get(), &one, sizeof one));
}

} // namespace util
