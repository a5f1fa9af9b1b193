#include "tools/csv.h"

namespace csv {

namespace {

struct Parser {
    const std::string& bytes;
    std::size_t at = 0;
    int line = 1;

    [[nodiscard]] bool more() const { return at < bytes.size(); }
    [[nodiscard]] bool atLineEnd() const { return !more() || bytes[at] == '\n' || bytes[at] == '\r'; }

    void endLine() {
        if (more() && bytes[at] == '\r') ++at;
        if (more() && bytes[at] == '\n') ++at;
        ++line;
    }

    std::string quotedField() {
        const int begins = line;
        std::string field;
        for (++at; more(); ++at) {
            if (bytes[at] == '"' && at + 1 < bytes.size() && bytes[at + 1] == '"') {
                ++at;
            } else if (bytes[at] == '"') {
                ++at;
                if (!atLineEnd() && bytes[at] != ',')
                    throw Problem{line, "text behind a closing double quote"};
                return field;
            }
            if (bytes[at] == '\n') ++line;
            field += bytes[at];
        }
        throw Problem{begins, "a double quote is not closed"};
    }

    std::string field() {
        if (more() && bytes[at] == '"') return quotedField();
        const std::size_t end = std::min(bytes.find_first_of(",\r\n", at), bytes.size());
        std::string field = bytes.substr(at, end - at);
        at = end;
        return field;
    }
};

}  // namespace

std::vector<Line> parse(const std::string& bytes) {
    std::vector<Line> lines;
    Parser parser{bytes};
    while (parser.more()) {
        Line line{parser.line, {parser.field()}};
        while (parser.more() && bytes[parser.at] == ',') {
            ++parser.at;
            line.fields.push_back(parser.field());
        }
        parser.endLine();
        const bool empty = line.fields.size() == 1 && line.fields[0].empty();
        if (!empty) lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace csv
