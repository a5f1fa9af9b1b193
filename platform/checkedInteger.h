// Integers of 16 and 32 bits whose overflow is a run-time fault and never a silent wrap. Every counter and
// every whole number of the run state is one of them, so that a limit of the design shows itself at once.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "platform/fault.h"

template <std::signed_integral T>
struct Checked {
    T raw = 0;

    constexpr Checked() = default;

    /// Takes any whole number; one that does not fit faults with Overflow.
    template <std::integral I>
    constexpr Checked(I value) : raw(fit(value)) {}  // NOLINT(google-explicit-constructor)

    template <std::signed_integral U>
    constexpr Checked(Checked<U> other) : raw(fit(other.raw)) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] constexpr int toInt() const { return raw; }
    [[nodiscard]] constexpr double toFloat() const { return raw; }

    friend constexpr Checked operator+(Checked a, Checked b) { return wide(a) + wide(b); }
    friend constexpr Checked operator-(Checked a, Checked b) { return wide(a) - wide(b); }
    friend constexpr Checked operator*(Checked a, Checked b) { return wide(a) * wide(b); }
    constexpr Checked operator-() const { return -wide(*this); }

    /// Remainder with the sign of the dividend.
    friend constexpr Checked operator%(Checked a, Checked b) {
        if (b.raw == 0) raiseFault(FaultNumber::DivisionByZero);
        return wide(a) % wide(b);
    }

    constexpr Checked& operator+=(Checked other) { return *this = *this + other; }
    constexpr Checked& operator-=(Checked other) { return *this = *this - other; }
    constexpr Checked& operator++() { return *this += 1; }
    constexpr Checked& operator--() { return *this -= 1; }

    friend constexpr auto operator<=>(Checked a, Checked b) = default;
    friend constexpr bool operator==(Checked a, Checked b) = default;

private:
    static constexpr std::int64_t wide(Checked value) { return value.raw; }

    template <std::integral I>
    static constexpr T fit(I value) {
        bool fits =
            static_cast<std::uint64_t>(value) <= static_cast<std::uint64_t>(std::numeric_limits<T>::max());
        if constexpr (std::is_signed_v<I>) {
            if (value < 0) fits = static_cast<std::int64_t>(value) >= std::numeric_limits<T>::min();
        }
        if (!fits) raiseFault(FaultNumber::Overflow);
        return static_cast<T>(value);
    }
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

/// To the nearest whole number, exact halves to the even neighbour; out of range faults with Overflow.
Int16 round16(double value);
Int32 round32(double value);

/// Downward to a whole number; out of range faults with Overflow.
Int16 floor16(double value);
Int32 floor32(double value);
