#include "platform/text.h"

#include <algorithm>
#include <cstdint>

#include "platform/fault.h"

namespace text {

namespace {

bool startsCharacter(char byte) { return (static_cast<std::uint8_t>(byte) & 0xC0U) != 0x80U; }

/// Bytes that follow a lead byte, or -1 for a byte that cannot lead.
int followers(std::uint8_t lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead < 0xE0) return 1;
    if (lead >= 0xE0 && lead < 0xF0) return 2;
    if (lead >= 0xF0 && lead < 0xF5) return 3;
    return -1;
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int rest = followers(static_cast<std::uint8_t>(bytes[i]));
        if (rest < 0 || i + static_cast<std::size_t>(rest) >= bytes.size()) return false;
        for (int k = 0; k < rest; ++k) {
            if (startsCharacter(bytes[++i])) return false;
        }
    }
    return true;
}

std::string fromLatin1(std::string_view bytes) {
    std::string result;
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint8_t>(byte);
        if (code < 0x80) {
            result += byte;
        } else {
            result += static_cast<char>(0xC0U | (code >> 6U));
            result += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return result;
}

}  // namespace

int length(std::string_view source) {
    return static_cast<int>(std::count_if(source.begin(), source.end(), startsCharacter));
}

std::size_t byteOffset(std::string_view source, int index) {
    int seen = -1;
    for (std::size_t i = 0; i < source.size(); ++i) {
        if (startsCharacter(source[i]) && ++seen == index) return i;
    }
    return source.size();
}

std::string left(std::string_view source, int count) {
    if (count < 0) raiseFault(FaultNumber::InvalidCall);
    return std::string(source.substr(0, byteOffset(source, count)));
}

std::string mid(std::string_view source, int start, int count) {
    if (start < 0 || count < 0) raiseFault(FaultNumber::InvalidCall);
    return left(source.substr(byteOffset(source, start)), count);
}

std::string blanks(int count) {
    if (count < 0) raiseFault(FaultNumber::InvalidCall);
    return std::string(static_cast<std::size_t>(count), ' ');
}

std::string trim(std::string_view source) {
    const std::size_t first = source.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(source.substr(first, source.find_last_not_of(' ') - first + 1));
}

std::string lowerCase(std::string_view source) {
    std::string result(source);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::string fromFileBytes(std::string_view bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
    return isUtf8(bytes) ? std::string(bytes) : fromLatin1(bytes);
}

}  // namespace text
