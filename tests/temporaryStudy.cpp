#include "tests/temporaryStudy.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/files.h"
#include "platform/numberText.h"
#include "store/layer/engine.h"
#include "store/layer/openTable.h"
#include "study/createStore.h"

namespace {

std::string freshStore() {
    const TemporaryStudy study(false);
    for (const std::string& problem :
         createStore::create(TAVIX_TESTS "/tables", study.storePath(), false).problems)
        ADD_FAILURE() << problem;
    return files::read(study.storePath());
}

std::string shown(const engine::Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&value)) return numberText::general(*real);
    return "-";
}

}  // namespace

TemporaryStudy::TemporaryStudy(bool withStore) {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavixXXXXXX").string();
    folder = mkdtemp(pattern.data());
    std::filesystem::create_directory(folder + "/data");
    std::filesystem::create_directory_symlink(TAVIX_TESTS "/Patients", folder + "/Patients");
    if (!withStore) return;
    // Made once: stores of one program have one salt then, and the key is derived once.
    static const std::string fresh = freshStore();
    writeFile(storePath(), fresh);
}

TemporaryStudy::~TemporaryStudy() { std::filesystem::remove_all(folder); }

void TemporaryStudy::change(const std::string& statement) const {
    const auto database = engine::open(storePath(), store::password, engine::Access::Write);
    engine::execute(*database, "PRAGMA synchronous = OFF");  // no power is cut in a test
    engine::execute(*database, statement);
}

std::string TemporaryStudy::rows(const std::string& selection) const {
    const auto database = engine::open(storePath(), store::password, engine::Access::Read);
    std::string all;
    for (const auto& row : engine::query(*database, selection).rows) {
        if (!all.empty()) all += "/";
        for (std::size_t i = 0; i < row.size(); ++i) all += (i == 0 ? "" : "|") + shown(row[i]);
    }
    return all;
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string outputOf(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) output += static_cast<char>(c);
    pclose(pipe);
    return output;
}
