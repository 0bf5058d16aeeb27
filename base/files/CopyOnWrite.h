#pragma once

#include <memory>
#include <utility>

/// An object that copies share until one of them changes it.
///
/// A handle is used by one thread at a time; handles on the same object by different threads.
template <typename T>
class CopyOnWrite {
public:
    template <typename... Arguments>
    static CopyOnWrite Make(Arguments&&... arguments)
    {
        return CopyOnWrite(std::make_shared<T>(std::forward<Arguments>(arguments)...));
    }

    const T& operator*() const noexcept { return *m_object; }
    const T* operator->() const noexcept { return m_object.get(); }

    /// The object as it stands now, kept alive and unchanged while somebody holds the result.
    std::shared_ptr<const T> Share() const noexcept { return m_object; }

    /// The object for a change: a copy first when anybody else holds it.
    T& Change()
    {
        if (m_object.use_count() != 1) {
            m_object = std::make_shared<T>(*m_object);
        } else {
            // Another thread may have let go of it just now. Reading the count orders nothing;
            // this release, like that one, does: what the other thread read, it has read.
            std::shared_ptr<T>(m_object).reset();
        }
        return *m_object;
    }

private:
    explicit CopyOnWrite(std::shared_ptr<T> object) noexcept : m_object(std::move(object)) {}

    std::shared_ptr<T> m_object;
};
