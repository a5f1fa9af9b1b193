// Changes of a study that concern its roster: persons come, are copied, and their pictures and introductions
// get names of their own in the folder Patients.
#pragma once

#include <string>
#include <vector>

#include "study/book.h"

namespace bookPeople {

using book::Book;

/// Adds a person in the middle of all ranges before row `at`; picture and introduction are still to come.
void add(Book& book, int at);

/// Copies a person; the copy stands behind it under a name of its own, with the same files.
void copy(Book& book, int row);

/// Takes all others out of the roster.
void keepOnly(Book& book, int row);

/// The persons beside this one whose column, Picture or Intro, names the same file.
std::vector<std::string> sharers(const Book& book, int row, const char* column);

/// A name for a new file that no file of Patients/ has, case aside: the wanted one, without what a file
/// system may refuse, or with a number behind it.
std::string freeFile(const Book& book, const std::string& folder, const std::string& wanted);

}  // namespace bookPeople
