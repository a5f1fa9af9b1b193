// A 0-based list whose elements are reached with their index checked: an index out of range is a run-time
// fault, as every table of the task relies on.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/checkedInteger.h"
#include "platform/fault.h"

template <class T>
struct List {
    std::vector<T> items;

    T& operator[](Int32 index) { return items[checked(index)]; }
    const T& operator[](Int32 index) const { return items[checked(index)]; }

    [[nodiscard]] Int32 size() const { return items.size(); }
    [[nodiscard]] bool empty() const { return items.empty(); }

    /// Makes the list `count` fresh elements long, dropping what it held.
    void renew(Int32 count) { items.assign(static_cast<std::size_t>(count.toInt()), T{}); }

    /// Makes the list `count` elements long and keeps what fits.
    void resize(Int32 count) { items.resize(static_cast<std::size_t>(count.toInt())); }

    void add(T item) { items.push_back(std::move(item)); }

    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }

private:
    [[nodiscard]] std::size_t checked(Int32 index) const {
        if (index < 0 || index >= size()) raiseFault(FaultNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(index.raw);
    }
};
