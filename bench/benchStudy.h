// What the benches of the store share: a study in the temporary folder with the sample's tables, a subject in
// its first trial, wall-clock times (an event waits for the disk), and the rows that script/bench collects.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace benchStudy {

/// Makes the forms and the host. Reads `sample/` in the current folder.
void begin();

/// A folder with a new store in it; removed when it goes.
struct Study {
    std::string folder;

    explicit Study(const std::string& name);
    ~Study();
    Study(const Study&) = delete;
    Study& operator=(const Study&) = delete;

    [[nodiscard]] std::string file() const { return folder + "/data/TavixData.mdb"; }

    /// From now on the program's store is this one.
    void use() const;
};

/// The sign-in of a known subject and what it loads, up to the first patient.
void signIn(const std::string& subject);

/// A patient of the loaded scenario, without looks.
void drawCase();

double milliseconds(const std::function<void()>& work);

struct Times {
    std::vector<double> all;

    [[nodiscard]] double at(double share) const;
    [[nodiscard]] double median() const { return at(0.5); }
};

/// One line of the table; `ratio` is to the named limit.
void print(const char* letter, const std::string& what, const Times& times, double ratio,
           const std::string& limit);

}  // namespace benchStudy
