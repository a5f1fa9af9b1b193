#include "store/layer/dialect.h"

#include <cstddef>
#include <string_view>

#include "platform/text.h"

namespace dialect {

namespace {

constexpr std::string_view selectWord = "SELECT ";

bool standsAt(const std::string& source, std::size_t at, std::string_view word) {
    return text::folded(source.substr(at, word.size())) == text::folded(word);
}

bool isSelect(const std::string& source) { return standsAt(source, 0, selectWord); }

/// Length of the [...] or '...' that begins at `at`; up to the end of the source if it is not closed. Two
/// apostrophes within a text are one of its characters.
std::size_t enclosedLength(const std::string& source, std::size_t at) {
    const char close = source[at] == '[' ? ']' : '\'';
    std::size_t end = source.find(close, at + 1);
    while (close == '\'' && end != std::string::npos && source.compare(end + 1, 1, "'") == 0)
        end = source.find(close, end + 2);
    return (end == std::string::npos ? source.size() : end + 1) - at;
}

/// [table.column] as [table].[column]; a name without a point stays.
std::string column(std::string name) {
    const std::size_t point = name.find('.');
    if (point != std::string::npos) name.replace(point, 1, "].[");
    return name;
}

/// 'x*' as a pattern of the engine in which only the star is special.
std::string pattern(const std::string& literal) {
    std::string result;
    for (const char c : literal) {
        if (c == '%' || c == '_' || c == '\\') result += '\\';
        result += c == '*' ? '%' : c;
    }
    return result + " ESCAPE '\\'";
}

bool endsWithWord(const std::string& text, std::string_view word) {
    return text.size() >= word.size() && standsAt(text, text.size() - word.size(), word);
}

/// The columns, each as `form` writes it, with a comma between them.
template <class Form>
std::string listed(std::span<const std::string> columns, Form form) {
    std::string list;
    for (const std::string& name : columns) list += (list.empty() ? "" : ", ") + form(name);
    return list;
}

constexpr std::string_view whereWord = " WHERE ";

/// Where the word begins outside of what is enclosed; the size of the source if it does not.
std::size_t wordAt(const std::string& source, std::string_view word, std::size_t from = 0) {
    for (std::size_t at = from; at < source.size();) {
        if (standsAt(source, at, word)) return at;
        at += source[at] == '[' || source[at] == '\'' ? enclosedLength(source, at) : 1;
    }
    return source.size();
}

}  // namespace

std::optional<TextCondition> textCondition(const std::string& source) {
    std::size_t at = wordAt(source, whereWord) + whereWord.size();
    if (at >= source.size() || source[at] != '[' || wordAt(source, " or ", at) < source.size()) return {};
    const auto inner = [&](std::size_t length) {
        std::string text = source.substr(at + 1, length - 2);
        at += length;
        return text;
    };
    std::string column = inner(enclosedLength(source, at));
    column.erase(0, column.find('.') + 1);
    const bool like = standsAt(source, at, " like '");
    if (!like && !standsAt(source, at, "='")) return {};
    at = source.find('\'', at);
    std::string text = inner(enclosedLength(source, at));
    const bool ends = at >= source.size() || source[at] == ';' || standsAt(source, at, " and ") ||
                      standsAt(source, at, " order by ");
    const std::size_t star = like ? text.find('*') : text.size();
    if (!ends || text.empty() || text.find('\'') != std::string::npos || (like && star + 1 != text.size()))
        return {};
    return TextCondition{column, text.substr(0, star), like};
}

std::string ofRows(const std::string& translated, std::span<const std::int64_t> numbers) {
    std::string list;
    for (const std::int64_t number : numbers) list += (list.empty() ? "" : ",") + std::to_string(number);
    std::string narrowed = translated;
    return narrowed.insert(wordAt(translated, whereWord) + whereWord.size(), "rowid IN (" + list + ") AND ");
}

std::string quoted(const std::string& name) { return "[" + name + "]"; }

std::string insertion(const std::string& table, std::span<const std::string> columns) {
    const std::string into = "INSERT INTO " + quoted(table);
    if (columns.empty()) return into + " DEFAULT VALUES";
    const std::string places = listed(columns, [](const std::string&) { return std::string("?"); });
    return into + " (" + listed(columns, quoted) + ") VALUES (" + places + ")";
}

std::string change(const std::string& table, std::span<const std::string> columns) {
    const auto assigned = [](const std::string& name) { return quoted(name) + " = ?"; };
    return "UPDATE " + quoted(table) + " SET " + listed(columns, assigned) + " WHERE rowid = ?";
}

std::string translate(const std::string& source) {
    if (!isSelect(source)) return "SELECT * FROM " + quoted(source);
    std::string result;
    std::size_t at = 0;
    while (at < source.size()) {
        if (source[at] != '[' && source[at] != '\'') {
            const bool likeComment = source.compare(at, 2, "--") == 0 || source.compare(at, 2, "/*") == 0;
            result += source[at++];
            if (likeComment) result += ' ';
            continue;
        }
        const std::string part = source.substr(at, enclosedLength(source, at));
        at += part.size();
        if (part[0] == '\'') {
            result += endsWithWord(result, "like ") ? pattern(part) : part;
        } else if (endsWithWord(result, "not ")) {
            result += "COALESCE(" + column(part) + ", 0)";
        } else {
            result += column(part);
        }
    }
    return result;
}

std::string withRowNumber(const std::string& translated) {
    return "SELECT rowid, " + translated.substr(selectWord.size());
}

std::string tableOf(const std::string& source) {
    if (!isSelect(source)) return source;
    constexpr std::string_view from = " from ";
    std::size_t start = 0;
    while (start < source.size() && !standsAt(source, start, from)) ++start;
    if (start == source.size()) return {};
    std::string table = text::trim(source.substr(start + from.size()));
    if (table.starts_with('[')) return table.substr(1, table.find(']') - 1);
    return table.substr(0, table.find_first_of(" ;"));
}

}  // namespace dialect
