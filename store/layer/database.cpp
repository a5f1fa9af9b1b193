#include "store/layer/database.h"

#include <utility>

#include "platform/host.h"

namespace {

std::shared_ptr<engine::Connection> db;
std::shared_ptr<engine::Connection> memory;  // in place of the file, while it is set

}  // namespace

namespace store {

std::string path() { return host().programFolder() + "/data/TavixData.mdb"; }

std::weak_ptr<engine::Connection> openDatabase(const std::string& filePassword, engine::Access access) {
    closeDatabase();
    db = memory ? memory : engine::open(path(), filePassword, access);
    return db;
}

OnLeave playInMemory(std::shared_ptr<engine::Connection> database) {
    closeDatabase();
    memory = std::move(database);
    return OnLeave([] {
        closeDatabase();
        memory.reset();
    });
}

Fault faultOf(const engine::Error& error, const std::string& where) {
    return {error.number, "Error of the store: " + error.text + " (" + where + ")"};
}

}  // namespace store

void closeDatabase() noexcept { db.reset(); }
