// Changes of a study that concern a scenario in all of its tables at once: a scenario has a row of options
// and one of base rates, and rows of symptoms and treatments, all under its name.
#pragma once

#include <string>
#include <vector>

#include "store/layer/schema.h"
#include "study/book.h"

namespace bookScenarios {

using book::Book;

/// What a scenario consists of, as rows of the tables; the same as check::Scenario for a name that stands
/// once.
struct Parts {
    std::optional<int> options;
    std::optional<int> rates;
    std::vector<int> symptoms;
    std::vector<int> treatments;
    int diseases = 0;  ///< by the base rates, at most as many as come into play
};

Parts partsOf(const Book& book, const std::string& scenario);

/// The names of all scenarios, sorted as the sign-in lists them, each once.
std::vector<std::string> namesOf(const Book& book);

/// A name that no scenario has: the wanted one, or with a number behind it.
std::string freeName(const Book& book, const std::string& wanted);

/// A scenario that can be played: two diseases, a symptom, a treatment; words, a person and a list of lengths
/// of tests are added where the study has none.
void add(Book& book, const std::string& name);
void copy(Book& book, const std::string& from, const std::string& name);
void rename(Book& book, const std::string& from, const std::string& name);
void remove(Book& book, const std::string& name);

/// One disease more in the tables of a scenario, behind the others, at a rate of 0; false where it has as
/// many as can come into play.
bool addDisease(Book& book, const std::string& scenario);
/// Takes disease `disease`, from 0, away; those behind it move up. Its rate goes to the first of the others.
/// False for the last one.
bool removeDisease(Book& book, const std::string& scenario, int disease);

/// A row behind the scenario's last; false where no more have room on the screen.
bool addSymptom(Book& book, const std::string& scenario);
void addTreatment(Book& book, const std::string& scenario);

/// Words of a type, and lengths of a list of tests, until there are so many.
void addWords(Book& book, const std::string& type, int wanted);
void addLengths(Book& book, const std::string& list, int wanted);

/// A row of base rates for a scenario that has none: even rates that add up to 100.
void addRates(Book& book, const std::string& scenario);

/// What the column of a new scenario holds.
engine::Value startOf(const schema::Column& column);

/// Lists of lengths of tests by name, each once, in the order of the table.
std::vector<std::string> testLists(const Book& book);
/// Renames a list everywhere.
void renameTests(Book& book, const std::string& from, const std::string& name);
/// Copies a list behind itself; nothing uses the copy yet.
void copyTests(Book& book, const std::string& from, const std::string& name);
/// The scenarios that use a list.
std::vector<std::string> usersOfTests(const Book& book, const std::string& list);

}  // namespace bookScenarios
