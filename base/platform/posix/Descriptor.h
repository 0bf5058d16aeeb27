#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace platform {

/// An open file descriptor, closed at the end.
class Descriptor {
public:
    explicit Descriptor(int number = -1) noexcept : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (IsOpen()) {
            close(m_number);
        }
    }

    bool IsOpen() const noexcept { return m_number >= 0; }
    int Get() const noexcept { return m_number; }
    int Release() noexcept { return std::exchange(m_number, -1); }

private:
    int m_number;
};

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto Restarted(const Call& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace platform
