#include "study/draft.h"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "store/layer/engine.h"
#include "study/readStore.h"

namespace draft {

namespace fs = std::filesystem;

std::string of(const std::string& place) {
    const fs::path path(place);
    return (path.parent_path() / fmt::format(".{}.tavixdb", path.filename().string())).string();
}

void remove(const std::string& draft) {
    std::error_code failed;
    fs::remove(draft, failed);
    for (const char* companion : companions) fs::remove(draft + companion, failed);
}

std::string freshPlace(const std::string& file) {
    std::error_code failed;
    const fs::path place = fs::weakly_canonical(fs::absolute(file, failed), failed);
    if (file.empty() || failed) throw std::runtime_error(fmt::format("\"{}\" is no file's name", file));
    if (!fs::is_directory(place.parent_path(), failed))
        throw std::runtime_error(
            fmt::format("{}: there is no folder {}", file, place.parent_path().string()));
    if (fs::exists(place, failed)) throw std::runtime_error(file + " exists already and is not replaced");
    return place.string();
}

void copyStore(const std::string& store, const std::string& copy) {
    const engine::Database database = readStore::open(store);
    readStore::select(*database, "BEGIN");
    readStore::select(*database, "SELECT count(*) FROM sqlite_master");  // takes the lock of a reader
    // This system lets go of a program's locks on a file as soon as the program closes it anywhere: here that
    // is the end of the copying, when the lock has done its work.
    std::error_code failed;
    fs::copy_file(store, copy, fs::copy_options::overwrite_existing, failed);
    if (failed) throw std::runtime_error(fmt::format("{}: cannot be copied: {}", store, failed.message()));
}

}  // namespace draft
