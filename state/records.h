// The records that the run state is made of. Plain data: the modules that own them give the meaning.
#pragma once

#include <string>

#include "platform/checkedInteger.h"
#include "platform/list.h"

/// One word of the vocabulary; its position in the list is the disease or symptom index of the model.
struct Disease {
    std::string term;
};

struct Symptom {
    std::string term;
};

/// One row of whole percents, 0 to 100: the base rates of a scenario, or a symptom's chance by disease.
struct ProbabilityRow {
    std::string setting;
    Int16 count;
    bool initVisible = false;  ///< loaded, and read by nobody
    List<Int16> percents;
};

/// Chances of the diseases for one pattern of findings, as fractions 0 to 1.
struct LikelihoodRow {
    Int16 bestDisease;
    List<double> symptomChance;
    List<double> otherChance;
    List<double> diseaseChance;
};

using LikelihoodTable = List<LikelihoodRow>;

/// A person of the roster, with the case of the present presentation.
struct Patient {
    std::string name;
    Int16 age;  ///< years
    bool male = false;
    Int16 height;  ///< inches
    Int16 weight;  ///< pounds
    Int16 health;  ///< starting health in whole points, 0 to 100
    std::string intro;
    std::string picture;
    std::string disease;
    Int16 bestTreatment;
    std::string guess;
    std::string status;
};

/// One symptom of the patient at hand.
struct SymptomFinding {
    std::string name;
    Int16 index;
    bool present = false;
    std::string result;  ///< "Present" or "Absent"
};

/// A test of the patient at hand; slot, test and symptom share one index.
struct Test {
    std::string name;  ///< the caption before the last reset; nothing reads it
    bool issued = false;
    bool pastTwelve = false;  ///< the result lies beyond the next change from 12 to 1 on the dial
    bool completed = false;
    Int16 startHour;
    Int16 startMinute;
    Int16 etaHour;
    Int16 etaMinute;
    std::string result;
};

/// Chances in percent by disease.
struct Treatment {
    std::string type;
    List<Int16> heal;
    List<Int16> hurt;
};
