#include "study/rowStream.h"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "store/layer/database.h"
#include "store/layer/dialect.h"
#include "study/readStore.h"

namespace rowStream {

namespace fs = std::filesystem;

engine::Database openCopy(const std::string& path, const std::string& copy) {
    {
        const engine::Database store = readStore::open(path);
        engine::execute(*store, "BEGIN");
        readStore::select(*store, "SELECT count(*) FROM sqlite_master");  // from here on nobody writes
        std::error_code failed;
        fs::copy_file(path, copy, failed);
        if (!failed) fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, failed);
        if (failed) throw std::runtime_error(fmt::format("{}: {}", copy, failed.message()));
    }
    return engine::open(copy, store::password, engine::Access::Read);
}

void each(engine::Connection& database, std::string_view table, const std::vector<std::string>& columns,
          const std::function<void(std::vector<engine::Value>& row)>& take) {
    std::string list;
    for (const std::string& column : columns)
        list +=
            (list.empty() ? "" : ", ") + dialect::quoted(std::string(table)) + '.' + dialect::quoted(column);
    try {
        engine::eachRow(
            database,
            fmt::format("SELECT {} FROM {} ORDER BY rowid", list, dialect::quoted(std::string(table))), take);
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("table {}: {}", table, error.text));
    }
}

}  // namespace rowStream
