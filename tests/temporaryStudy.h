// A study's folder of its own for one test, with a store made from the test tables.
#pragma once

#include <string>

struct TemporaryStudy {
    std::string folder;

    /// `withStore` false leaves the folder without a store.
    explicit TemporaryStudy(bool withStore = true);
    ~TemporaryStudy();
    TemporaryStudy(const TemporaryStudy&) = delete;
    TemporaryStudy& operator=(const TemporaryStudy&) = delete;

    [[nodiscard]] std::string storePath() const { return folder + "/data/TavixData.mdb"; }
};

/// Writes a text file.
void writeFile(const std::string& path, const std::string& bytes);

/// What a shell command prints.
std::string outputOf(const std::string& command);
