// The translator of statements. Each line of an input is a source, of which the engine says whether it takes
// the translation; and it is a name in a table, which is then looked up in the modules' words.
#include <algorithm>

#include "platform/text.h"
#include "store/layer/dialect.h"
#include "store/layer/rowLookup.h"
#include "study/storeTable.h"
#include "tests/fuzz/frame.h"

namespace {

constexpr const char* orders = "SubjectSettings";
constexpr std::size_t mostNames = 8;

using Names = std::vector<std::string>;

void translateOne(engine::Connection& database, const std::string& source) {
    const std::string translated = dialect::translate(source);
    try {
        engine::columnsOf(database, translated);
        engine::columnsOf(database, dialect::withRowNumber(translated));
    } catch (const engine::Error& error) {
        fuzz::hold(!error.text.empty() && error.number != 0, "a refusal says why: " + source);
    }
}

Names namesIn(const engine::Rows& rows) {
    Names names;
    for (const auto& row : rows.rows) names.push_back(std::get<std::string>(row.at(0)));
    std::ranges::sort(names);
    return names;
}

/// By a look through the whole table, by its index, and by what the rule says are the same.
void lookUp(engine::Connection& database, const Names& all, const std::string& name) {
    for (const std::string& asked : {"='" + name + "'", " Like '" + name + "*'"}) {
        const std::string source = "SELECT Subject FROM [SubjectSettings] WHERE [SubjectSettings.Subject]" +
                                   asked + " AND NOT [SubjectSettings.Setting]";
        const Names whole = namesIn(engine::query(database, dialect::translate(source)));
        fuzz::hold(namesIn(engine::query(database, rowLookup::narrowed(database, source))) == whole,
                   "the index finds what is there: " + source);
        const auto isSame = [&](const std::string& other) {
            return text::folded(other) == text::folded(name);
        };
        const auto same = std::ranges::count_if(all, isSame);
        fuzz::hold(std::ranges::count_if(whole, isSame) == same || asked[0] != '=',
                   "all spellings: " + source);
        fuzz::hold(std::ranges::count(whole, name) == std::ranges::count(all, name), "itself: " + source);
    }
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    static const engine::Database database = [] {
        engine::Database made = engine::createInMemory();
        storeTable::make(*made, *schema::find(orders), 4);
        return made;
    }();
    Names names;
    for (const std::string& line : linesOf(input)) {
        if (line.find('\0') != std::string::npos) continue;
        translateOne(*database, line);
        const bool isName = text::isUtf8(line) && line.find('\'') == std::string::npos;
        if (isName && names.size() < mostNames) names.push_back(line);
    }
    engine::execute(*database, "BEGIN");
    const std::string addition = dialect::insertion(orders, Names{"Subject"});
    for (const std::string& name : names)
        engine::execute(*database, addition, std::vector<engine::Value>{name});
    for (const std::string& name : names) lookUp(*database, names, name);
    engine::execute(*database, "ROLLBACK");
}
