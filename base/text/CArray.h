#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

/// The framework's growing array. ARG is the type in which elements are handed over.
///
/// An index outside the array throws std::invalid_argument, the framework's answer to it;
/// SetAtGrow and InsertAt grow instead.
template <typename TYPE, typename ARG = const TYPE&>
class CArray {
public:
    int GetSize() const noexcept { return static_cast<int>(m_items.size()); }
    int GetCount() const noexcept { return GetSize(); }
    bool IsEmpty() const noexcept { return m_items.empty(); }
    int GetUpperBound() const noexcept { return GetSize() - 1; }
    /// New elements are value-initialised. A negative size is refused like a bad index.
    void SetSize(int size)
    {
        if (size < 0) {
            throw std::invalid_argument("CArray: negative size");
        }
        m_items.resize(static_cast<std::size_t>(size));
    }
    void RemoveAll() noexcept { m_items.clear(); }
    void RemoveAt(int index, int count = 1)
    {
        Checked(index);
        if (count < 0 || count > GetSize() - index) {
            throw std::invalid_argument("CArray: count out of range");
        }
        m_items.erase(m_items.begin() + index, m_items.begin() + index + count);
    }
    int Add(ARG item)
    {
        m_items.push_back(item);
        return GetUpperBound();
    }
    int Append(const CArray& other)
    {
        const int first = GetSize();
        // Taken before the loop, so that an array can be appended to itself.
        const int count = other.GetSize();
        m_items.reserve(m_items.size() + static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            m_items.push_back(other.m_items[static_cast<std::size_t>(i)]);
        }
        return first;
    }
    void Copy(const CArray& other) { m_items = other.m_items; }
    const TYPE& GetAt(int index) const { return m_items[Checked(index)]; }
    TYPE& GetAt(int index) { return m_items[Checked(index)]; }
    void SetAt(int index, ARG item) { m_items[Checked(index)] = item; }
    void SetAtGrow(int index, ARG item)
    {
        if (index < GetSize()) {
            SetAt(index, item);
            return;
        }
        // Taken first: the item may be an element of this array.
        TYPE copy(item);
        m_items.resize(static_cast<std::size_t>(index));
        m_items.push_back(std::move(copy));
    }
    void InsertAt(int index, ARG item)
    {
        if (index < 0) {
            throw std::invalid_argument("CArray: negative index");
        }
        if (index >= GetSize()) {
            SetAtGrow(index, item);
        } else {
            m_items.push_back(item);
            std::rotate(m_items.begin() + index, m_items.end() - 1, m_items.end());
        }
    }
    const TYPE& operator[](int index) const { return GetAt(index); }
    TYPE& operator[](int index) { return GetAt(index); }

    auto begin() const noexcept { return m_items.begin(); }
    auto end() const noexcept { return m_items.end(); }

private:
    std::size_t Checked(int index) const
    {
        if (index < 0 || index >= GetSize()) {
            throw std::invalid_argument("CArray: index out of range");
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<TYPE> m_items;
};

using UINT = unsigned int;
