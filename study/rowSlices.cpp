#include "study/rowSlices.h"

#include <fmt/format.h>

#include <array>
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

struct Extent {
    std::int64_t rows;
    std::int64_t last;
};

/// How many rows the slice behind that row has, and which is its last.
Extent extentOf(engine::Connection& database, std::int64_t behindRow, std::string_view table) {
    const engine::Rows slice = readStore::select(
        database, fmt::format("SELECT count(*), max(rowid) FROM ({})", behind(behindRow, table, "1")));
    const std::int64_t rows = std::get<std::int64_t>(slice.rows[0][0]);
    return {rows, rows == 0 ? behindRow : std::get<std::int64_t>(slice.rows[0][1])};
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

void eachOf(engine::Connection& database, std::string_view table, const std::string& columns,
            const std::string& subject, const std::function<void(const engine::Rows& slice)>& take) {
    const std::array<engine::Value, 1> wanted{subject};
    std::int64_t last = std::numeric_limits<std::int64_t>::min();
    while (true) {
        const Extent extent = extentOf(database, last, table);
        if (extent.rows == 0) return;
        take(readStore::select(
            database,
            fmt::format("SELECT rowid, {} FROM {} WHERE rowid > {} AND rowid <= {} AND Subject = ? ORDER BY "
                        "rowid",
                        columns, dialect::quoted(std::string(table)), last, extent.last),
            wanted));
        last = extent.last;
    }
}

std::int64_t count(engine::Connection& database, std::string_view table) {
    std::int64_t last = std::numeric_limits<std::int64_t>::min();
    std::int64_t all = 0;
    while (true) {
        const Extent extent = extentOf(database, last, table);
        if (extent.rows == 0) return all;
        all += extent.rows;
        last = extent.last;
    }
}

}  // namespace rowSlices
