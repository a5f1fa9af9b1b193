#include "study/rowSlices.h"

#include <fmt/format.h>

#include <limits>

#include "store/layer/dialect.h"
#include "study/readStore.h"

namespace rowSlices {

namespace {

constexpr int size = 1000;  // rows: a few milliseconds

/// The slice behind the row with that number.
std::string behind(std::int64_t last, std::string_view table, const std::string& columns) {
    return fmt::format("SELECT rowid, {} FROM {} WHERE rowid > {} ORDER BY rowid LIMIT {}", columns,
                       dialect::quoted(std::string(table)), last, size);
}

}  // namespace

void each(engine::Connection& database, std::string_view table, const std::string& columns,
          const std::function<void(const engine::Rows& slice)>& take) {
    std::int64_t last = std::numeric_limits<std::int64_t>::min();
    while (true) {
        const engine::Rows slice = readStore::select(database, behind(last, table, columns));
        if (slice.rows.empty()) return;
        take(slice);
        last = std::get<std::int64_t>(slice.rows.back()[0]);
    }
}

std::int64_t count(engine::Connection& database, std::string_view table) {
    std::int64_t last = std::numeric_limits<std::int64_t>::min();
    std::int64_t all = 0;
    while (true) {
        const engine::Rows slice = readStore::select(
            database, fmt::format("SELECT count(*), max(rowid) FROM ({})", behind(last, table, "1")));
        const std::int64_t rows = std::get<std::int64_t>(slice.rows[0][0]);
        if (rows == 0) return all;
        all += rows;
        last = std::get<std::int64_t>(slice.rows[0][1]);
    }
}

}  // namespace rowSlices
