// The database engine, an encrypted SQL engine, behind a few plain operations. Its header is included by the
// one file that implements them. The file opens with the same password in the engine's own command-line
// tool at its default settings.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace engine {

/// Empty, whole number, number or text.
using Value = std::variant<std::monostate, std::int64_t, double, std::string>;

/// A failure. Lock conflicts carry the numbers below, all others the engine's own number and text; where the
/// file is at fault the text names it.
struct Error : std::exception {
    int number;
    std::string text;

    Error(int itsNumber, std::string itsText) : number(itsNumber), text(std::move(itsText)) {}
    [[nodiscard]] const char* what() const noexcept override { return text.c_str(); }
};

constexpr int holdsNoTable = 16;  // an empty file; the engine has the number and never gives it
constexpr int notADatabase = 26;  // the engine's own number
constexpr int handleNotSet = 91;
constexpr int couldNotLockFile = 3050;
constexpr int lockCountExceeded = 3052;
constexpr int changedByAnother = 3197;
constexpr int lockedByAnother = 3260;

struct Connection;
struct Closer {
    void operator()(Connection* connection) const;
};
using Database = std::unique_ptr<Connection, Closer>;

enum class Access { Read, Write };

struct Rows {
    std::vector<std::string> columns;
    std::vector<std::vector<Value>> rows;
};

/// Opens an existing file that holds tables; never creates one. An empty password opens it without a key.
/// With Access::Read nothing can be changed, yet the journal of a killed program is still rolled back.
Database open(const std::string& path, const std::string& password, Access access);

/// Makes a new encrypted file; an existing one is an error.
Database create(const std::string& path, const std::string& password);

/// Makes an empty store in memory, gone with its connection and without encryption. Nobody else can reach it,
/// so `lock` and `confirm` have nothing to do there: what is written stays in the caller's transaction.
Database createInMemory();

/// Takes the file for this connection alone, until it is closed: no later statement can meet a lock.
void lock(Connection& database);

/// What was written under the lock is on the disk when this returns, and the lock is kept.
void confirm(Connection& database);

Rows query(Connection& database, const std::string& sql, std::span<const Value> values = {});

/// Hands over the rows of a selection one by one, for tables that are larger than what memory should hold.
void eachRow(Connection& database, const std::string& sql,
             const std::function<void(std::vector<Value>& row)>& take);

std::vector<std::string> columnsOf(Connection& database, const std::string& sql);
void execute(Connection& database, const std::string& sql, std::span<const Value> values = {});

/// Runs one statement for each of the rows.
void executeAll(Connection& database, const std::string& sql, std::span<const std::vector<Value>> rows);

/// Writes all tables into a new file without encryption. The connection has to be open for writing, though
/// nothing in its own file changes. `tick` is called now and then meanwhile; what it throws ends the work.
void exportPlain(Connection& database, const std::string& path, const std::function<void()>& tick);

}  // namespace engine
