#include "study/readStore.h"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "platform/numberText.h"
#include "platform/text.h"
#include "store/layer/database.h"
#include "store/layer/dialect.h"

namespace readStore {

namespace {

constexpr int lockAttempts = 10;  // of two seconds each, the engine's own wait

bool isLock(const engine::Error& error) {
    return error.number == engine::couldNotLockFile || error.number == engine::lockCountExceeded ||
           error.number == engine::changedByAnother || error.number == engine::lockedByAnother;
}

/// What `read` gives, tried again for as long as another program holds the file.
template <class Read>
auto pastLocks(const Read& read) {
    for (int attempt = 1;; ++attempt) {
        try {
            return read();
        } catch (const engine::Error& error) {
            if (!isLock(error) || attempt == lockAttempts) throw;
        }
    }
}

}  // namespace

engine::Database open(const std::string& path) {
    std::error_code failed;
    if (!std::filesystem::exists(path, failed))
        throw std::runtime_error(fmt::format("{}: there is no such file", path));
    try {
        return pastLocks([&] { return engine::open(path, store::password, engine::Access::Read); });
    } catch (const engine::Error& error) {
        if (error.number == engine::holdsNoTable)
            throw std::runtime_error(fmt::format("{}: holds no table; it is no store", path));
        if (error.number == engine::notADatabase)
            throw std::runtime_error(
                fmt::format("{}: is no store of this program, or one with another password", path));
        throw std::runtime_error(fmt::format("{}: cannot be opened as a store: {}", path, error.text));
    }
}

engine::Rows select(engine::Connection& database, const std::string& sql,
                    std::span<const engine::Value> values) {
    return pastLocks([&] { return engine::query(database, sql, values); });
}

engine::Rows table(engine::Connection& database, std::string_view name) {
    try {
        return select(database, "SELECT * FROM " + dialect::quoted(std::string(name)));
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("table {}: {}", name, error.text));
    }
}

int columnOf(const engine::Rows& rows, std::string_view name) {
    for (std::size_t i = 0; i < rows.columns.size(); ++i) {
        if (text::folded(rows.columns[i]) == text::folded(name)) return static_cast<int>(i);
    }
    return -1;
}

std::string textOf(const engine::Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&value)) return numberText::general(*number);
    return {};
}

}  // namespace readStore
