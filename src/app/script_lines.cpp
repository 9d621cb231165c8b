#include "app/script_lines.h"

#include "app/cli.h"
#include "model/number_text.h"

#include <algorithm>
#include <sstream>

namespace havuz {

std::string ScriptPlace(const std::string &file, int line) { return file + ":" + std::to_string(line) + ": "; }

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// at: behind the opening quote; then behind the closing one.
std::string QuotedWord(const std::string &line, std::size_t &at) {
    std::string word;
    for (; at < line.size(); ++at) {
        if (line[at] != '"')
            word += line[at];
        else if (at + 1 < line.size() && line[at + 1] == '"')
            word += line[++at];
        else
            break;
    }
    if (at == line.size())
        throw UsageError("a quote is not closed");
    if (++at < line.size() && !IsBlank(line[at]))
        throw UsageError("a blank is missing behind a quote");
    return word;
}

std::string PlainWord(const std::string &line, std::size_t &at) {
    const std::size_t first = at;
    while (at < line.size() && !IsBlank(line[at]))
        if (line[at++] == '"')
            throw UsageError("a blank is missing before a quote");
    return line.substr(first, at - first);
}

std::vector<std::string> SplitLine(const std::string &line) {
    std::vector<std::string> words;
    for (std::size_t at = 0; at < line.size();) {
        if (line[at] == '#')
            break;
        if (IsBlank(line[at]))
            ++at;
        else if (line[at] == '"')
            words.push_back(QuotedWord(line, ++at));
        else
            words.push_back(PlainWord(line, at));
    }
    return words;
}

} // namespace

std::vector<ScriptLine> SplitScript(const std::string &file, const std::string &text) {
    std::vector<ScriptLine> lines;
    std::istringstream stream(text);
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        try {
            if (std::vector<std::string> words = SplitLine(line); !words.empty())
                lines.push_back({number, std::move(words)});
        } catch (const UsageError &error) {
            throw UsageError(ScriptPlace(file, number) + error.what());
        }
    }
    return lines;
}

// Words

const std::string &Words::peek(const char *what) const {
    if (empty())
        throw UsageError(std::string(what) + " is missing");
    return words_[at_];
}

std::string Words::take(const char *what) {
    std::string word = peek(what);
    ++at_;
    return word;
}

bool Words::takeIf(const std::string &word) {
    if (empty() || words_[at_] != word)
        return false;
    ++at_;
    return true;
}

double Words::takeNumber(const char *what) {
    const std::string word = take(what);
    std::string text = word;
    std::replace(text.begin(), text.end(), ',', '.');
    if (const auto number = ReadNumberField(text))
        return *number;
    throw UsageError(std::string(what) + ": \"" + word + "\" is not a number");
}

int Words::takeWhole(const char *what) {
    const std::string word = peek(what);
    const double number = takeNumber(what);
    if (number < -1e6 || number > 1e6 || number != static_cast<int>(number))
        throw UsageError(std::string(what) + ": \"" + word + "\" is not a whole number");
    return static_cast<int>(number);
}

std::string Words::takeLast(const char *what) {
    peek(what);
    std::string word = words_.back();
    words_.pop_back();
    return word;
}

void Words::done() const {
    if (!empty())
        throw UsageError("\"" + words_[at_] + "\" is one word too many");
}

} // namespace havuz
