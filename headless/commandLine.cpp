#include "headless/commandLine.h"

#include <utility>

#include "platform/text.h"

namespace {

struct Reader {
    std::string_view line;
    std::size_t at = 0;

    [[nodiscard]] bool more() const { return at < line.size(); }
    void skipBlanks() {
        while (more() && (line[at] == ' ' || line[at] == '\t')) ++at;
    }
};

char escaped(char c) {
    switch (c) {
        case 'n': return '\n';
        case 'r': return '\r';
        default: return c;
    }
}

std::string quotedWord(Reader& reader, bool& unclosed) {
    std::string word;
    for (++reader.at; reader.more(); ++reader.at) {
        const char c = reader.line[reader.at];
        if (c == '"') {
            ++reader.at;
            return word;
        }
        const bool escape = c == '\\' && reader.at + 1 < reader.line.size();
        word += escape ? escaped(reader.line[++reader.at]) : c;
    }
    unclosed = true;
    return word;
}

std::string plainWord(Reader& reader) {
    std::string word;
    while (reader.more() && reader.line[reader.at] != ' ' && reader.line[reader.at] != '\t') {
        word += reader.line[reader.at++];
    }
    return word;
}

}  // namespace

std::string CommandLine::lastOf(std::size_t count) const {
    if (arguments.size() < count) return {};
    return arguments.size() == count ? arguments.back() : text::trim(written.substr(starts[count - 1]));
}

CommandLine parseCommand(std::string_view line) {
    CommandLine result;
    Reader reader{line};
    bool first = true;
    for (reader.skipBlanks(); reader.more(); reader.skipBlanks()) {
        if (line[reader.at] == '#') break;
        const std::size_t start = reader.at;
        std::string word = line[start] == '"' ? quotedWord(reader, result.unclosed) : plainWord(reader);
        if (first) {
            result.command = std::move(word);
        } else {
            result.arguments.push_back(std::move(word));
            result.starts.push_back(start);
        }
        first = false;
    }
    result.written = line.substr(0, reader.at);
    return result;
}
