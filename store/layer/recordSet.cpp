#include "store/layer/recordSet.h"

#include <algorithm>

#include "platform/fault.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "store/layer/database.h"
#include "store/layer/dialect.h"
#include "store/layer/rowLookup.h"

// ---- Field

const engine::Value& Field::value() const {
    if (set->mode != RecordSet::Mode::Browsing) return set->buffer[column];
    if (set->isEOF()) raiseFault(FaultNumber::NoCurrentRecord, name());
    return set->rows[set->current][column + (set->readOnly ? 0 : 1)];
}

std::string Field::name() const { return set->table + "." + set->columns[column]; }

bool Field::isNull() const { return std::holds_alternative<std::monostate>(value()); }

std::string Field::text() const {
    if (isNull()) raiseFault(FaultNumber::InvalidUseOfNull, name());
    if (const auto* text = std::get_if<std::string>(&value())) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value())) return std::to_string(*whole);
    return numberText::general(std::get<double>(value()));
}

double Field::number() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value())) return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&value())) return *real;
    const std::string digits = text();
    if (!numberText::isNumeric(digits))
        raiseFault(FaultNumber::TypeMismatch, name() + " holds \"" + digits + "\"");
    return numberText::toNumber(digits);
}

Int16 Field::short16() const { return round16(number()); }
Int32 Field::long32() const { return round32(number()); }
bool Field::isTrue() const { return !isNull() && number() != 0.0; }

const Field& Field::put(engine::Value value) const {
    if (set->mode == RecordSet::Mode::Browsing)
        raiseFault(FaultNumber::NoCurrentRecord, name() + " without AddNew or Edit");
    set->buffer[column] = std::move(value);
    set->touched[column] = true;
    return *this;
}

const Field& Field::operator=(const std::string& value) const { return put(value); }
const Field& Field::operator=(const char* value) const { return put(std::string(value)); }
const Field& Field::operator=(Int16 value) const { return put(std::int64_t{value.raw}); }
const Field& Field::operator=(Int32 value) const { return put(std::int64_t{value.raw}); }
const Field& Field::operator=(int value) const { return put(std::int64_t{value}); }
const Field& Field::operator=(double value) const { return put(value); }
const Field& Field::operator=(bool value) const { return put(std::int64_t{value ? -1 : 0}); }

// ---- RecordSet

RecordSet RecordSet::open(const std::weak_ptr<engine::Connection>& connection, const std::string& source,
                          bool readOnly) {
    RecordSet set;
    set.connection = connection;
    set.source = source;
    set.table = dialect::tableOf(source);
    set.readOnly = readOnly;
    if (readOnly) {
        // One state of the file for what is looked up and what is delivered, also within a transaction.
        engine::execute(set.database(), "SAVEPOINT look");
        engine::Rows rows = engine::query(set.database(), rowLookup::narrowed(set.database(), source));
        engine::execute(set.database(), "RELEASE look");
        set.columns = std::move(rows.columns);
        set.rows = std::move(rows.rows);
        set.loaded = true;
    } else {
        // The lock last: it is held for the rows and not while the statement is looked at.
        set.columns = engine::columnsOf(set.database(), dialect::translate(source));
        engine::lock(set.database());
    }
    return set;
}

RecordSet::~RecordSet() {
    if (!connection.expired()) closeDatabase();
}

engine::Connection& RecordSet::database() const {
    if (connection.expired()) throw Fault{engine::handleNotSet, "the store has been closed (" + table + ")"};
    return *connection.lock();
}

/// Rows of a writable set come in when they are first asked for: most sets are opened only to add.
void RecordSet::load() {
    if (loaded) return;
    try {
        rows =
            engine::query(database(), dialect::withRowNumber(rowLookup::narrowed(database(), source))).rows;
    } catch (const engine::Error& error) {
        throw store::faultOf(error, table);
    }
    loaded = true;
}

bool RecordSet::isEOF() {
    load();
    return current >= rows.size();
}

Int16 RecordSet::recordCount() {
    load();
    return rows.size();
}

Field RecordSet::Fields(std::string_view name) {
    const std::string wanted = text::folded(name);
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& column) {
        return text::folded(column) == wanted;
    });
    if (found == columns.end()) raiseFault(FaultNumber::ItemNotFound, table + "." + std::string(name));
    return {this, static_cast<std::size_t>(found - columns.begin())};
}

void RecordSet::MoveNext() {
    if (isEOF()) raiseFault(FaultNumber::NoCurrentRecord, table);
    ++current;
}

void RecordSet::AddNew() {
    mode = Mode::Adding;
    buffer.assign(columns.size(), {});
    touched.assign(columns.size(), false);
}

void RecordSet::Edit() {
    if (isEOF()) raiseFault(FaultNumber::NoCurrentRecord, table);
    mode = Mode::Editing;
    buffer.assign(rows[current].begin() + 1, rows[current].end());
    touched.assign(columns.size(), false);
}

void RecordSet::Update() {
    if (mode == Mode::Browsing) raiseFault(FaultNumber::NoCurrentRecord, table + " without AddNew or Edit");
    try {
        writeRow();
        engine::confirm(database());
    } catch (const engine::Error& error) {
        throw store::faultOf(error, table);
    }
    mode = Mode::Browsing;
}

void RecordSet::writeRow() {
    std::vector<std::string> names;
    std::vector<engine::Value> values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!touched[i]) continue;
        names.push_back(columns[i]);
        values.push_back(buffer[i]);
    }
    if (mode == Mode::Adding) {
        engine::execute(database(), dialect::insertion(table, names), values);
        return;
    }
    if (!names.empty()) {
        values.push_back(rows[current][0]);
        engine::execute(database(), dialect::change(table, names), values);
    }
    std::copy(buffer.begin(), buffer.end(), rows[current].begin() + 1);
}
