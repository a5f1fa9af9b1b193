#include "platform/text.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>

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

/// Whether a second byte can follow the lead: some would spell a character longer than need be, half of a
/// pair of surrogates, or a code beyond the last.
bool canFollow(std::uint8_t lead, std::uint8_t second) {
    switch (lead) {
        case 0xE0: return second >= 0xA0;
        case 0xED: return second < 0xA0;
        case 0xF0: return second >= 0x90;
        case 0xF4: return second < 0x90;
        default: return true;
    }
}

/// Windows-1252 has signs of its own where Latin-1 has control characters, 0x80 to 0x9F; 0 where it has none.
constexpr std::array<char32_t, 32> windowsSigns{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t windowsCode(char byte) {
    constexpr char32_t noCharacter = 0xFFFD;
    const auto code = static_cast<std::uint8_t>(byte);
    if (code < 0x80 || code >= 0xA0) return code;
    const char32_t sign = windowsSigns[code - 0x80U];
    return sign == 0 ? noCharacter : sign;
}

std::string fromWindows(std::string_view bytes) {
    std::string result;
    for (const char byte : bytes) result += fromCode(windowsCode(byte));
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

std::vector<std::string> spellings(std::string_view character) {
    // By what they fold to, those that others fold to as well.
    static const std::multimap<UChar32, UChar32> others = [] {
        std::multimap<UChar32, UChar32> known;
        for (UChar32 code = 0; code <= UCHAR_MAX_VALUE; ++code) {
            const UChar32 fold = u_foldCase(code, U_FOLD_CASE_DEFAULT);
            if (fold != code) known.emplace(fold, code);
        }
        return known;
    }();
    const UChar32 fold = u_foldCase(static_cast<UChar32>(codeOf(character)), U_FOLD_CASE_DEFAULT);
    std::vector<std::string> all{fromCode(static_cast<char32_t>(fold))};
    for (auto [other, end] = others.equal_range(fold); other != end; ++other)
        all.push_back(fromCode(static_cast<char32_t>(other->second)));
    return all;
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto lead = static_cast<std::uint8_t>(bytes[i]);
        const int rest = followers(lead);
        if (rest < 0 || i + static_cast<std::size_t>(rest) >= bytes.size()) return false;
        if (rest > 0 && !canFollow(lead, static_cast<std::uint8_t>(bytes[i + 1]))) return false;
        for (int k = 0; k < rest; ++k) {
            if (startsCharacter(bytes[++i])) return false;
        }
    }
    return true;
}

std::string fromCode(char32_t code) {
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<std::uint8_t>(bits)); };
    if (code < 0x80) return {byte(code)};
    if (code < 0x800) return {byte(0xC0U | (code >> 6U)), byte(0x80U | (code & 0x3FU))};
    const std::string end{byte(0x80U | ((code >> 6U) & 0x3FU)), byte(0x80U | (code & 0x3FU))};
    if (code < 0x10000) return byte(0xE0U | (code >> 12U)) + end;
    return std::string{byte(0xF0U | (code >> 18U)), byte(0x80U | ((code >> 12U) & 0x3FU))} + end;
}

char32_t codeOf(std::string_view character) {
    const auto lead = static_cast<std::uint8_t>(character[0]);
    const int rest = followers(lead);
    if (rest <= 0) return lead;
    char32_t code = lead & (0x3FU >> static_cast<unsigned>(rest));
    for (std::size_t i = 1; i <= static_cast<std::size_t>(rest) && i < character.size(); ++i) {
        code = (code << 6U) | (static_cast<std::uint8_t>(character[i]) & 0x3FU);
    }
    return code;
}

std::string folded(std::string_view source) {
    std::string result;
    result.reserve(source.size());
    for (std::size_t i = 0; i < source.size();) {
        const char c = source[i];
        const int rest = followers(static_cast<std::uint8_t>(c));
        if (rest <= 0) {
            result += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
            ++i;
            continue;
        }
        const auto letter = static_cast<UChar32>(codeOf(source.substr(i)));
        result += fromCode(static_cast<char32_t>(u_foldCase(letter, U_FOLD_CASE_DEFAULT)));
        i += static_cast<std::size_t>(rest) + 1;
    }
    return result;
}

std::string fromFileBytes(std::string_view bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    while (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
    return isUtf8(bytes) ? std::string(bytes) : fromWindows(bytes);
}

LineEnd lineEnd(std::string_view source, std::size_t at) {
    const std::size_t end = std::min(source.find_first_of("\r\n", at), source.size());
    if (end == source.size()) return {end, end};
    return {end, end + (source.substr(end).starts_with("\r\n") ? 2 : 1)};
}

}  // namespace text
