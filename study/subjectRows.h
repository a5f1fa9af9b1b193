// Whose a row of the results is, and whether two stores hold the same rows of a subject. A row names its
// subject, or it has an identifier that begins with subject and trial; names compare without regard to case.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>

#include "store/layer/engine.h"
#include "store/layer/schema.h"

namespace subjectRows {

/// Who has rows in a store. An owner is a subject's name as it compares; rows whose identifier is of no
/// subject's trial are owned by the identifier's beginning.
struct Holding {
    std::map<std::string, std::string> names;   ///< by owner: the name as it was typed first
    std::map<std::string, std::size_t> prints;  ///< by owner: equal for the same rows in the same order
    std::map<std::string, std::string> owners;  ///< by the beginning of identifiers, as "kim03_"
};

/// Takes rows of one table with the owner of each. The engine's number stands in front of the columns.
using Take = std::function<void(const schema::Table& table, const engine::Rows& slice,
                                std::span<const std::string> owners)>;

/// Hands over all rows of the result tables, and enters in `holding` what they tell about names.
void each(engine::Connection& database, Holding& holding, const Take& take);

/// Reads all rows.
Holding read(engine::Connection& database);

/// A fingerprint of the rows of one table, whatever the order of its columns.
std::size_t printOf(const engine::Rows& rows);

}  // namespace subjectRows
