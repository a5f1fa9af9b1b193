// The one connection to the store: where its file stands, its password, and the handle, which is empty
// between operations. `openTable` opens it, and the record set that came of it lets it go.
#pragma once

#include <memory>
#include <string>

#include "platform/fault.h"
#include "platform/onLeave.h"
#include "store/layer/engine.h"

namespace store {

/// The password of every store file, a constant of the program.
inline constexpr const char* password = "QrVt_*K*_m";

/// The program's folder and what follows it.
std::string path();

/// Opens the file in place of the connection that was open, which is closed. What comes back expires with
/// the connection. Failures are engine errors.
std::weak_ptr<engine::Connection> openDatabase(const std::string& filePassword, engine::Access access);

/// Until what comes back goes, every operation works on this store in memory and no file is opened: for
/// simulated subjects, whose rows are nobody's but theirs until they are handed over.
[[nodiscard]] OnLeave playInMemory(std::shared_ptr<engine::Connection> database);

/// A failure that ends the run. Its number is the engine's, and some of these are numbers of other faults
/// too (11, 13), so the text says whose it is. `where` is the table or what was done.
Fault faultOf(const engine::Error& error, const std::string& where);

}  // namespace store

/// Closes the file, if it is open. What has been updated is on the disk.
void closeDatabase() noexcept;
