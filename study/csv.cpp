#include "study/csv.h"

#include <algorithm>
#include <string_view>

#include "platform/text.h"

namespace csv {

namespace {

struct Parser {
    const std::string& bytes;
    char separator = ',';
    std::size_t at = 0;
    int line = 1;

    [[nodiscard]] bool more() const { return at < bytes.size(); }
    [[nodiscard]] bool atLineEnd() const { return !more() || bytes[at] == '\n' || bytes[at] == '\r'; }
    [[nodiscard]] std::size_t behindBlanks() const {
        return std::min(bytes.find_first_not_of(' ', at), bytes.size());
    }

    void endLine() {
        at = text::lineEnd(bytes, at).next;
        ++line;
    }

    void countLines(std::size_t from) {
        const std::string_view read(bytes.data(), at);
        while (from < at) {
            const auto [end, next] = text::lineEnd(read, from);
            if (end < at) ++line;
            from = next;
        }
    }

    std::string quotedText() {
        const std::size_t first = ++at;
        std::string result;
        for (;; result += bytes[at++]) {
            const std::size_t quote = bytes.find('"', at);
            if (quote == std::string::npos) throw Problem{line, "a double quote is not closed"};
            result.append(bytes, at, quote - at);
            at = quote + 1;
            if (!more() || bytes[at] != '"') break;
        }
        countLines(first);
        at = behindBlanks();
        if (!atLineEnd() && bytes[at] != separator) throw Problem{line, "text behind a closing double quote"};
        return result;
    }

    Field field() {
        const std::size_t start = behindBlanks();
        if (start < bytes.size() && bytes[start] == '"') {
            at = start;
            return {quotedText(), true};
        }
        const char ends[] = {separator, '\r', '\n', '\0'};
        const std::size_t end = std::min(bytes.find_first_of(ends, at), bytes.size());
        const std::string unquoted = text::trim(bytes.substr(at, end - at));
        at = end;
        return {unquoted, false};
    }
};

/// Spreadsheets of many countries part fields by semicolons. The first sign outside quotes that can part the
/// names of columns, which hold neither, decides for the whole file.
char separatorOf(const std::string& bytes) {
    bool quoted = false;
    bool named = false;
    for (const char c : bytes) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == ',' || c == ';') return c;
        if ((c == '\n' || c == '\r') && named) break;
        named = named || (c != '\n' && c != '\r');
    }
    return ',';
}

bool needsQuotes(const std::string& text) {
    return text.empty() || text.front() == ' ' || text.back() == ' ' ||
           text.find_first_of(",;\"\r\n") != std::string::npos;
}

}  // namespace

bool Line::isNothing() const { return std::ranges::all_of(fields, &Field::isNothing); }

std::vector<Line> parse(const std::string& bytes) {
    std::vector<Line> lines;
    Parser parser{bytes, separatorOf(bytes)};
    while (parser.more()) {
        Line line{parser.line, {parser.field()}};
        while (parser.more() && bytes[parser.at] == parser.separator) {
            ++parser.at;
            line.fields.push_back(parser.field());
        }
        parser.endLine();
        const bool empty = line.fields.size() == 1 && line.fields[0].isNothing();
        if (!empty) lines.push_back(std::move(line));
    }
    return lines;
}

std::string written(const std::string& text) {
    if (!needsQuotes(text)) return text;
    std::string result = "\"";
    for (const char c : text) result += c == '"' ? std::string("\"\"") : std::string(1, c);
    return result + '"';
}

}  // namespace csv
