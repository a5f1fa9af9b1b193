// What the report shows of a set of patients: quartiles, causes of end, belief against chance, calibration.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "study/courses.h"

namespace figures {

/// Least, lower quartile, median, upper quartile, most; quartiles are interpolated between neighbours.
struct Spread {
    int count;
    std::array<double, 5> marks;
};

/// Nothing of no values.
std::optional<Spread> spreadOf(std::vector<double> values);

/// One of ten intervals of a probability: 0.0 to under 0.1 and so on, the last up to 1.
struct Bin {
    int count = 0;
    double across = 0;  ///< mean of the values by which it was chosen
    double up = 0;      ///< mean of what belongs to them
};
using Bins = std::array<Bin, 10>;

/// `pairs`: the value that chooses the bin, 0 to 1, and the value that belongs to it.
Bins binned(std::span<const std::pair<double, double>> pairs);

struct Figures {
    int patients = 0;  ///< without repeated rows
    int finished = 0;
    int saved = 0;
    std::vector<std::pair<std::string, int>> ends;  ///< by cause; patients without an end under ""
    std::optional<Spread> score;                    ///< after the last patient of each subject
    std::vector<Spread> scores;                     ///< after each subject's first, second, ... patient
    std::optional<Spread> firstTest;                ///< real seconds, finished patients
    std::optional<Spread> firstDiagnosis;
    Bins chance;       ///< across the computed chance of the hidden disease, up the belief in it
    Bins calibration;  ///< across the belief in each hypothesis at the end, up the share that was true
    std::optional<double> distance;  ///< mean of |belief - chance|
};

/// Of these patients, in the order of Study::patients.
Figures of(std::span<const courses::Patient* const> patients);

}  // namespace figures
