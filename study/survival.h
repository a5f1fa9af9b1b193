// How long patients live in simulated minutes: the share that is alive at each minute, by Kaplan and Meier's
// product over the minutes with deaths. Who ends otherwise than by death, by a treatment, a diagnosis, the
// time limit or recovery, counts as alive for as long as it was seen and leaves the sum from then on.
#pragma once

#include <span>
#include <vector>

namespace survival {

struct Life {
    int minutes;
    bool died;  ///< otherwise it ended in another way, and how long it would have lasted is not known
};

struct Step {
    int minute;
    int left;      ///< patients who live on and are still seen behind this minute
    double alive;  ///< share, 0 to 1
};

/// A step for each minute in which a patient ended. In one minute deaths come first.
std::vector<Step> of(std::vector<Life> lives);

/// At most about `most` steps: of each stretch of equal length the last one, with its values as they are.
/// Stretches are so many minutes as people reckon with, 2, 5, 10, 15, 30, 60 and so on.
std::vector<Step> thinned(std::span<const Step> steps, int most);

}  // namespace survival
