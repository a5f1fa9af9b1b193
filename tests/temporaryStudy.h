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

    /// Runs a statement of the engine on the store.
    void change(const std::string& statement) const;

    /// The rows of a selection: fields parted by "|", rows by "/", and "-" for what is empty.
    [[nodiscard]] std::string rows(const std::string& selection) const;
};

/// Writes a text file.
void writeFile(const std::string& path, const std::string& bytes);

/// What a shell command prints.
std::string outputOf(const std::string& command);
