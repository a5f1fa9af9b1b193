// Character codes that handlers look at, and the key handlers that most controls want.
#pragma once

#include <functional>
#include <utility>

namespace keys {

constexpr int backspace = 8;
constexpr int enter = 13;
constexpr int space = 32;
constexpr int options = 111;  ///< the letter o, lower case only: the experimenter's key

/// A key handler that swallows Enter and runs `action` instead.
inline std::function<bool(int)> onEnter(std::function<void()> action) {
    return [action = std::move(action)](int code) {
        if (code != enter) return true;
        action();
        return false;
    };
}

/// A key handler that runs `action` at the experimenter's key; every key passes.
inline std::function<bool(int)> onOptions(std::function<void()> action) {
    return [action = std::move(action)](int code) {
        if (code == options) action();
        return true;
    };
}

/// A key handler that runs `action` before every key.
inline std::function<bool(int)> passing(std::function<void()> action) {
    return [action = std::move(action)](int) {
        action();
        return true;
    };
}

}  // namespace keys
