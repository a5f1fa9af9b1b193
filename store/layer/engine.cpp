#include "store/layer/engine.h"

#define SQLITE_HAS_CODEC
#include <sqlcipher/sqlite3.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/onLeave.h"
#include "platform/text.h"
#include "store/layer/keyDerivation.h"

namespace engine {

struct Connection {
    sqlite3* handle = nullptr;
    std::string path;
    std::chrono::steady_clock::time_point waitingSince;
    bool inMemory = false;
    bool ownsFile = false;
};

namespace {

constexpr std::chrono::seconds longestWait{2};
constexpr std::chrono::milliseconds nap{5};
constexpr int stepsBetweenTicks = 100'000;  // of the engine's machine
constexpr int oldFormat = 3;                // the file format of the distribution's tool

/// The engine asks whether to wait on for a lock.
int waitForLock(void* context, int attempt) {
    auto& connection = *static_cast<Connection*>(context);
    const auto now = std::chrono::steady_clock::now();
    if (attempt == 0) connection.waitingSince = now;
    if (now - connection.waitingSince >= longestWait) return 0;
    std::this_thread::sleep_for(nap);
    return 1;
}

int mappedNumber(int code, bool writing) {
    switch (code & 0xFF) {
        case SQLITE_BUSY:
            if (code == SQLITE_BUSY_SNAPSHOT) return changedByAnother;
            return writing ? lockedByAnother : couldNotLockFile;
        case SQLITE_LOCKED: return lockedByAnother;
        case SQLITE_PROTOCOL: return lockCountExceeded;
        case SQLITE_SCHEMA: return changedByAnother;
        default: return code & 0xFF;
    }
}

/// Whether it is the file that failed, and not what was asked of it.
bool concernsFile(int number) {
    switch (number) {
        case SQLITE_READONLY:
        case SQLITE_IOERR:
        case SQLITE_CORRUPT:
        case SQLITE_FULL:
        case SQLITE_CANTOPEN:
        case SQLITE_NOTADB: return true;
        default: return false;
    }
}

[[noreturn]] void fail(Connection& database, bool writing = false) {
    if (database.handle == nullptr)
        throw Error{handleNotSet, "Object variable or With block variable not set"};
    const int number = mappedNumber(sqlite3_extended_errcode(database.handle), writing);
    std::string text = sqlite3_errmsg(database.handle);
    if (concernsFile(number)) text += ": " + database.path;
    throw Error{number, text};
}

/// For the calls whose failure the connection does not keep.
void require(int code) {
    if (code != SQLITE_OK) throw Error{mappedNumber(code, false), sqlite3_errstr(code)};
}

struct Finalizer {
    /// What it gives back is the failure of the last step once more, which has been thrown already.
    void operator()(sqlite3_stmt* statement) const { static_cast<void>(sqlite3_finalize(statement)); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

/// One statement: what stands behind its end would be dropped unseen.
Statement prepare(Connection& database, const std::string& sql) {
    sqlite3_stmt* raw = nullptr;
    const char* rest = nullptr;
    const int size = static_cast<int>(sql.size());
    if (database.handle == nullptr ||
        sqlite3_prepare_v2(database.handle, sql.data(), size, &raw, &rest) != SQLITE_OK)
        fail(database);
    Statement statement(raw);
    if (!text::trim(sql.substr(static_cast<std::size_t>(rest - sql.data()))).empty())
        throw Error{SQLITE_ERROR, "near \";\": syntax error"};
    return statement;
}

void bind(sqlite3_stmt* statement, int place, const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        require(sqlite3_bind_int64(statement, place, *number));
    } else if (const auto* real = std::get_if<double>(&value)) {
        require(sqlite3_bind_double(statement, place, *real));
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        require(
            sqlite3_bind_text64(statement, place, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    } else {
        require(sqlite3_bind_null(statement, place));
    }
}

void bindAll(sqlite3_stmt* statement, std::span<const Value> values) {
    int place = 0;
    for (const Value& value : values) bind(statement, ++place, value);
}

Value columnValue(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL: return {};
        case SQLITE_INTEGER: return static_cast<std::int64_t>(sqlite3_column_int64(statement, column));
        case SQLITE_FLOAT: return sqlite3_column_double(statement, column);
        default: {
            const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
            const int size = sqlite3_column_bytes(statement, column);
            if (bytes != nullptr) return std::string(bytes, static_cast<std::size_t>(size));
            // No bytes are an empty text, or memory that ran out.
            if (sqlite3_errcode(sqlite3_db_handle(statement)) == SQLITE_NOMEM) require(SQLITE_NOMEM);
            return std::string();
        }
    }
}

std::vector<std::string> columnNames(sqlite3_stmt* statement) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(sqlite3_column_count(statement)));
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const char* name = sqlite3_column_name(statement, i);
        if (name == nullptr) require(SQLITE_NOMEM);
        names.emplace_back(name);
    }
    return names;
}

bool step(Connection& database, sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) fail(database, sqlite3_stmt_readonly(statement) == 0);
    return code == SQLITE_ROW;
}

/// Version of the cipher in the library at hand. An engine without one would write the subjects' data in
/// the open, so the program does not go on with it.
int cipherVersion(Connection& database) {
    static std::atomic<int> known = 0;
    if (known == 0) {
        const Rows rows = query(database, "PRAGMA cipher_version");
        if (rows.rows.empty()) throw Error{SQLITE_MISUSE, "the database engine has no encryption"};
        known = std::atoi(std::get<std::string>(rows.rows[0][0]).c_str());
    }
    return known;
}

void setKey(Connection& database, const std::string& path, const std::string& password) {
    const std::optional<keyDerivation::Salt> salt = keyDerivation::readSalt(path);
    const std::optional<std::string> key = salt ? keyDerivation::rawKey(password, *salt) : password;
    if (!key) throw Error{SQLITE_ERROR, "the key of the store cannot be derived: " + path};
    require(sqlite3_key(database.handle, key->data(), static_cast<int>(key->size())));
    if (cipherVersion(database) > oldFormat) execute(database, "PRAGMA cipher_compatibility = 3");
}

/// The engine's own folding stops at A to Z; here accented letters have two cases too.
int compareTexts(void* /*context*/, int sizeA, const void* a, int sizeB, const void* b) {
    const auto folded = [](const void* bytes, int size) {
        return text::folded({static_cast<const char*>(bytes), static_cast<std::size_t>(size)});
    };
    return folded(a, sizeA).compare(folded(b, sizeB));
}

Database openHandle(const std::string& path, int flags) {
    Database database(new Connection);
    database->path = path;
    if (sqlite3_open_v2(path.c_str(), &database->handle, flags, nullptr) != SQLITE_OK) fail(*database);
    require(sqlite3_busy_handler(database->handle, waitForLock, database.get()));
    require(sqlite3_create_collation(database->handle, "NOCASE", SQLITE_UTF8, nullptr, compareTexts));
    // What is sorted or set aside: in a file of its own it would not be encrypted.
    execute(*database, "PRAGMA temp_store = MEMORY");
    return database;
}

}  // namespace

namespace {

/// The journal of a finished transaction goes with the file's closing. The engine would synchronise it first,
/// though nothing in it counts any more: a sixth of what an event costs. What was begun is taken back here;
/// should that fail, the journal is needed and is closed as the engine does it.
void letJournalGo(sqlite3* handle) {
    if (sqlite3_get_autocommit(handle) == 0 &&
        sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK)
        return;
    static_cast<void>(sqlite3_exec(handle, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr));
}

}  // namespace

void Closer::operator()(Connection* connection) const {
    if (connection->ownsFile) letJournalGo(connection->handle);
    // This form of the call cannot be busy, and nothing could be done about a failure: what was committed is
    // on the disk, and what was not is rolled back by whoever opens the file next.
    static_cast<void>(sqlite3_close_v2(connection->handle));
    delete connection;
}

Database open(const std::string& path, const std::string& password, Access access) {
    // Opened for writing in both cases: a reader, too, must roll back what a killed program left.
    Database database = openHandle(path, SQLITE_OPEN_READWRITE);
    if (!password.empty()) setKey(*database, path, password);
    // A wrong password shows here; an empty file opens as well, with any.
    if (query(*database, "SELECT 1 FROM sqlite_master LIMIT 1").rows.empty())
        throw Error{holdsNoTable, "file holds no table: " + path};
    // The journal of a commit that is deleted has to be gone on the disk too: it would undo the commit.
    execute(*database, access == Access::Read ? "PRAGMA query_only = ON" : "PRAGMA synchronous = EXTRA");
    return database;
}

Database create(const std::string& path, const std::string& password) {
    if (std::filesystem::exists(path)) throw Error{SQLITE_CANTOPEN, "the file exists already: " + path};
    Database database = openHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    setKey(*database, path, password);
    return database;
}

Database createInMemory() {
    Database database = openHandle(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    database->inMemory = true;
    return database;
}

void lock(Connection& database) {
    if (database.inMemory) return;
    try {
        execute(database, "BEGIN EXCLUSIVE");
    } catch (Error& error) {
        if (error.number == couldNotLockFile) error.number = lockedByAnother;
        throw;
    }
    // Only now: two connections that both keep their reading locks would wait for each other for good.
    execute(database, "PRAGMA locking_mode = EXCLUSIVE");
    database.ownsFile = true;
}

void confirm(Connection& database) {
    if (database.inMemory) return;
    execute(database, "COMMIT");
    execute(database, "BEGIN EXCLUSIVE");
}

Rows query(Connection& database, const std::string& sql, std::span<const Value> values) {
    const Statement statement = prepare(database, sql);
    bindAll(statement.get(), values);
    Rows result{columnNames(statement.get()), {}};
    while (step(database, statement.get())) {
        std::vector<Value>& row = result.rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
            row.push_back(columnValue(statement.get(), i));
    }
    return result;
}

void eachRow(Connection& database, const std::string& sql,
             const std::function<void(std::vector<Value>& row)>& take) {
    const Statement statement = prepare(database, sql);
    std::vector<Value> row(static_cast<std::size_t>(sqlite3_column_count(statement.get())));
    while (step(database, statement.get())) {
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = columnValue(statement.get(), static_cast<int>(i));
        take(row);
    }
}

std::vector<std::string> columnsOf(Connection& database, const std::string& sql) {
    return columnNames(prepare(database, sql).get());
}

void execute(Connection& database, const std::string& sql, std::span<const Value> values) {
    query(database, sql, values);
}

void executeAll(Connection& database, const std::string& sql, std::span<const std::vector<Value>> rows) {
    const Statement statement = prepare(database, sql);
    for (const std::vector<Value>& row : rows) {
        bindAll(statement.get(), row);
        step(database, statement.get());
        require(sqlite3_reset(statement.get()));
    }
}

void exportPlain(Connection& database, const std::string& path, const std::function<void()>& tick) {
    const std::ofstream made(path);  // what is attached is never created by a connection that creates nothing
    execute(database, "ATTACH ? AS plain KEY ''", std::array{Value(path)});
    struct Ticking {
        const std::function<void()>& tick;
        std::exception_ptr thrown = {};
    } ticking{tick};
    const auto ticked = [](void* context) {
        auto& each = *static_cast<Ticking*>(context);
        try {
            each.tick();
            return 0;  // go on
        } catch (...) {
            each.thrown = std::current_exception();  // not through the engine's frames
            return 1;
        }
    };
    sqlite3_progress_handler(database.handle, stepsBetweenTicks, ticked, &ticking);
    const OnLeave silent([&] { sqlite3_progress_handler(database.handle, 0, nullptr, nullptr); });
    try {
        execute(database, "BEGIN");
        execute(database, "SELECT sqlcipher_export('plain')");
        execute(database, "COMMIT");
        execute(database, "DETACH plain");
    } catch (const Error&) {
        if (ticking.thrown) std::rethrow_exception(ticking.thrown);
        throw;
    }
}

}  // namespace engine
