#include "pilot/rowBytes.h"

#include <cstring>

namespace rowBytes {

namespace {

template <class Number>
void putNumber(std::string& bytes, Number number) {
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

template <class Number>
Number takeNumber(std::string_view& bytes) {
    Number number{};
    std::memcpy(&number, bytes.data(), sizeof number);
    bytes.remove_prefix(sizeof number);
    return number;
}

}  // namespace

void put(std::string& bytes, const engine::Value& value) {
    bytes += static_cast<char>(value.index());
    if (const auto* whole = std::get_if<std::int64_t>(&value)) putNumber(bytes, *whole);
    if (const auto* real = std::get_if<double>(&value)) putNumber(bytes, *real);
    if (const auto* text = std::get_if<std::string>(&value)) {
        putNumber(bytes, text->size());
        bytes += *text;
    }
}

engine::Value take(std::string_view& bytes) {
    const char kind = bytes.front();
    bytes.remove_prefix(1);
    switch (kind) {
        case 1: return takeNumber<std::int64_t>(bytes);
        case 2: return takeNumber<double>(bytes);
        case 3: {
            const std::string text(bytes.substr(sizeof(std::size_t), [&] {
                std::string_view head = bytes;
                return takeNumber<std::size_t>(head);
            }()));
            bytes.remove_prefix(sizeof(std::size_t) + text.size());
            return text;
        }
        default: return {};
    }
}

}  // namespace rowBytes
