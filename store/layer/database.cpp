#include "store/layer/database.h"

#include "platform/host.h"

namespace {

std::shared_ptr<engine::Connection> db;

}  // namespace

namespace store {

std::string path() { return host().programFolder() + "/data/TavixData.mdb"; }

std::weak_ptr<engine::Connection> openDatabase(const std::string& filePassword, engine::Access access) {
    closeDatabase();
    db = engine::open(path(), filePassword, access);
    return db;
}

Fault faultOf(const engine::Error& error, const std::string& where) {
    return {error.number, "Error of the store: " + error.text + " (" + where + ")"};
}

}  // namespace store

void closeDatabase() noexcept { db.reset(); }
