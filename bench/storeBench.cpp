// What one operation on the store costs (open, insert, full synchronisation, close), beside the same four
// calls to the bare engine with a raw key, and beside opening with the password each time.
#define SQLITE_HAS_CODEC
#include <fmt/format.h>
#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <vector>

#include "platform/host.h"
#include "store/layer/keyDerivation.h"
#include "store/layer/openTable.h"
#include "study/createStore.h"

namespace {

constexpr int rounds = 400;
constexpr int passwordRounds = 20;

void throughOpenTable() {
    RecordSet notes = openTable("dataGetSymptoms", false, "bench");
    notes.AddNew();
    notes.Fields("EventID") = "kim03_007";
    notes.Fields("ListItem") = "short of breath on the stairs";
    notes.Update();
}

void require(int code) {
    if (code == SQLITE_OK) return;
    std::cerr << sqlite3_errstr(code) << '\n';
    std::exit(1);
}

void bareEngine(const std::string& path, const std::string& key) {
    sqlite3* database = nullptr;
    require(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr));
    require(sqlite3_key(database, key.data(), static_cast<int>(key.size())));
    require(sqlite3_exec(database,
                         "PRAGMA synchronous = FULL; INSERT INTO dataGetSymptoms (EventID, ListItem) "
                         "VALUES ('kim03_007', 'short of breath on the stairs')",
                         nullptr, nullptr, nullptr));
    require(sqlite3_close(database));
}

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct Times {
    std::vector<double> all;

    [[nodiscard]] double at(double share) {
        std::sort(all.begin(), all.end());
        return all[static_cast<std::size_t>(share * static_cast<double>(all.size() - 1))];
    }
    void print(const std::string& what) {
        std::cout << fmt::format("{:42} median {:7.3f} ms   p99 {:7.3f} ms   max {:7.3f} ms\n", what, at(0.5),
                                 at(0.99), at(1.0));
    }
};

}  // namespace

int main(int argc, char** argv) {
    const std::string tables = argc > 1 ? argv[1] : "sample/tables";
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavixStoreBench";
    std::filesystem::create_directories(folder / "data");
    host().programFolder = [&] { return folder.string(); };
    for (const std::string& problem : createStore::create(tables, store::path(), true).problems)
        std::cerr << problem << '\n';
    const std::string path = store::path();
    const std::string rawKey =
        keyDerivation::rawKey(store::password, keyDerivation::readSalt(path).value()).value();

    Times operation;
    Times bare;
    Times password;
    for (int i = 0; i < rounds; ++i) {
        operation.all.push_back(milliseconds(throughOpenTable));
        bare.all.push_back(milliseconds([&] { bareEngine(path, rawKey); }));
        if (i < passwordRounds)
            password.all.push_back(milliseconds([&] { bareEngine(path, store::password); }));
    }
    operation.print("openTable, AddNew, Update, end of the set");
    bare.print("bare engine, raw key");
    password.print("bare engine, password each time");
    std::cout << fmt::format("operation / bare engine   {:.2f}\n", operation.at(0.5) / bare.at(0.5));
    std::cout << fmt::format("password / operation      {:.1f}\n", password.at(0.5) / operation.at(0.5));
    std::filesystem::remove_all(folder);
}
