// The configuration tables that an update replaced. They stay in the store, rows and columns as they were,
// under names of their own, and a catalogue says until when each was in force: so a row of results can be
// read with the tables that it ran under. The catalogue comes with the first update; no session reads any of
// these.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/layer/engine.h"

namespace keptTables {

/// The catalogue: columns Date, Table and Name.
inline constexpr const char* catalogue = "keptTables";

struct Kept {
    std::string date;   ///< until when it was in force: yyyy-mm-dd hh:mm:ss, the local time of the update
    std::string table;  ///< which table it was
    std::string name;   ///< its name in the store now
};

/// All kept tables, the oldest first; none in a store without a catalogue.
std::vector<Kept> list(engine::Connection& database);

/// The name under which the store has the table that was in force at this moment, in the form of `date`. What
/// is missing at the end of the form counts as earliest: a day alone means its first second.
std::string nameAt(const std::vector<Kept>& kept, std::string_view table, const std::string& moment);

/// Gives the table a name to be kept under and enters it in the catalogue, as part of the caller's
/// transaction. The name is free then.
Kept keep(engine::Connection& database, std::string_view table, const std::string& date);

}  // namespace keptTables
