// The texts of the evaluation, as the feedback shows them. Never cleared: what a trial does not assign keeps
// what an earlier trial left, and the score reads it.
#pragma once

#include <string>

struct TrialEvaluation {
    std::string beliefText;
    std::string normalizedBeliefText;
    std::string diseaseChanceText;
    std::string guessChanceText;
    std::string diffText;
    std::string diffScoreText;
    std::string penaltyText;
    std::string penaltyCalcText;
    std::string previousScoreText;
    std::string endHealthText;
    std::string healthScoreText;
    bool healthShown = false;
    std::string testCountText;
    std::string testScoreText;
    std::string scoreChangeText;
    std::string newScoreText;
};

extern TrialEvaluation trialEvaluation;
