#include "tests/temporaryStudy.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tools/createStore.h"

TemporaryStudy::TemporaryStudy(bool withStore) {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavixXXXXXX").string();
    folder = mkdtemp(pattern.data());
    std::filesystem::create_directory(folder + "/data");
    std::filesystem::create_directory_symlink(TAVIX_TESTS "/Patients", folder + "/Patients");
    if (!withStore) return;
    for (const std::string& problem : createStore::create(TAVIX_TESTS "/tables", storePath(), false)) {
        ADD_FAILURE() << problem;
    }
}

TemporaryStudy::~TemporaryStudy() { std::filesystem::remove_all(folder); }

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string outputOf(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 4096> piece{};
    while (pipe != nullptr && fgets(piece.data(), piece.size(), pipe) != nullptr) output += piece.data();
    if (pipe != nullptr) pclose(pipe);
    return output;
}
