#include "study/plainCopy.h"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "store/layer/database.h"
#include "store/layer/engine.h"
#include "study/draft.h"

namespace plainCopy {

namespace fs = std::filesystem;

void write(const std::string& store, const std::string& copy, const std::function<void(double)>& progress) {
    const std::string place = draft::freshPlace(copy);
    const OnLeave unlocked = files::lockFolder(fs::path(place).parent_path().string());
    draft::freshPlace(copy);  // another program may have had the folder until now
    const std::string plain = draft::of(place);
    const std::string encrypted = draft::of(place + ".store");
    const OnLeave cleared([&] {
        draft::remove(encrypted);
        draft::remove(plain);
    });
    draft::remove(plain);
    // The long work is done on a copy of the bytes: no station waits for it.
    draft::copyStore(store, encrypted);
    const auto size = static_cast<double>(fs::file_size(encrypted));
    try {
        const engine::Database database = engine::open(encrypted, store::password, engine::Access::Write);
        engine::exportPlain(*database, plain, [&] {
            std::error_code failed;
            const auto written = fs::file_size(plain, failed);
            if (!failed) progress(static_cast<double>(written) / size);
        });
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("{}: {}", copy, error.text));
    }
    files::moveIntoPlace(plain, place);
}

}  // namespace plainCopy
