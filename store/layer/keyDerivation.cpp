#include "store/layer/keyDerivation.h"

#include <fmt/format.h>
#include <openssl/evp.h>

#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <utility>

namespace keyDerivation {

namespace {

constexpr int iterations = 64000;  // what the engine itself uses, or its own tool could not open the file
constexpr std::size_t keySize = 32;

template <class Bytes>
std::string hex(const Bytes& bytes) {
    std::string result;
    for (const std::uint8_t byte : bytes) fmt::format_to(std::back_inserter(result), "{:02x}", byte);
    return result;
}

}  // namespace

std::optional<Salt> readSalt(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    std::array<char, saltSize> bytes{};
    if (!stream.read(bytes.data(), saltSize)) return std::nullopt;
    Salt salt{};
    for (std::size_t i = 0; i < saltSize; ++i) salt[i] = static_cast<std::uint8_t>(bytes[i]);
    return salt;
}

std::optional<std::string> rawKey(const std::string& password, const Salt& salt) {
    static std::mutex held;  // a window reads a store in a thread of its own
    static std::map<std::pair<std::string, Salt>, std::string> known;
    const std::scoped_lock alone(held);
    std::string& key = known[{password, salt}];
    if (key.empty()) {
        std::array<std::uint8_t, keySize> derived{};
        if (PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()), salt.data(), saltSize,
                              iterations, EVP_sha1(), keySize, derived.data()) != 1)
            return std::nullopt;
        key = "x'" + hex(derived) + hex(salt) + "'";
    }
    return key;
}

}  // namespace keyDerivation
