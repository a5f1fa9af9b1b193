// Record sets: the rows of one table or selection, read forward and changed row by row. A read-only set is
// a snapshot. Every Update is on the disk when it returns. A set owns its use of the file: the file is closed
// when the set goes, also where a fault unwinds, so that no station is locked out while a box stands.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/checkedInteger.h"
#include "store/layer/engine.h"

struct RecordSet;

/// One column of the current row, or of the row that is being added or edited. Reading an empty value as a
/// text or a number faults with Invalid use of Null, reading a text that is no number as one with Type
/// mismatch, a number beyond the bits with Overflow.
struct Field {
    RecordSet* set;
    std::size_t column;

    [[nodiscard]] bool isNull() const;
    [[nodiscard]] std::string text() const;
    [[nodiscard]] double number() const;
    [[nodiscard]] Int16 short16() const;
    [[nodiscard]] Int32 long32() const;
    /// A truth value; empty counts as false.
    [[nodiscard]] bool isTrue() const;

    const Field& operator=(const std::string& value) const;
    const Field& operator=(const char* value) const;
    const Field& operator=(Int16 value) const;
    const Field& operator=(Int32 value) const;
    const Field& operator=(int value) const;
    const Field& operator=(double value) const;
    /// A truth value goes in as -1 or 0.
    const Field& operator=(bool value) const;

private:
    [[nodiscard]] const engine::Value& value() const;
    [[nodiscard]] std::string name() const;
    const Field& put(engine::Value value) const;
};

struct RecordSet {
    /// Opens the set on the connection in use. Failures are engine errors, all of them here: a writable set
    /// takes the file for itself at once.
    static RecordSet open(const std::weak_ptr<engine::Connection>& connection, const std::string& source,
                          bool readOnly);

    RecordSet(RecordSet&&) = default;
    RecordSet& operator=(RecordSet&&) = delete;
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;
    /// Closes the file, unless a later set has replaced the connection. Never throws.
    ~RecordSet();

    /// No current record: the set is empty or read to its end. (EOF itself is a macro of the C library.)
    [[nodiscard]] bool isEOF();
    [[nodiscard]] Int16 recordCount();

    /// The column of that name, case aside; a name that is missing faults with Item not found.
    Field Fields(std::string_view name);
    void MoveNext();

    void AddNew();
    void Edit();
    /// Writes the row to the disk. A failure of the engine is a fault with its number and text.
    void Update();

private:
    friend struct Field;
    enum class Mode { Browsing, Adding, Editing };

    RecordSet() = default;
    [[nodiscard]] engine::Connection& database() const;
    void load();
    void writeRow();

    std::weak_ptr<engine::Connection> connection;  // expires when the file is closed
    std::string source;
    std::string table;
    bool readOnly = true;
    bool loaded = false;
    std::vector<std::string> columns;
    std::vector<std::vector<engine::Value>> rows;  // of a writable set, the row number in front
    std::size_t current = 0;
    Mode mode = Mode::Browsing;
    std::vector<engine::Value> buffer;  // of the row that is being added or edited
    std::vector<bool> touched;
};
