// The lines of a script: words between blanks, text in double quotes as one word, "#" to the end of the line a comment.
#pragma once

#include <string>
#include <vector>

namespace havuz {

struct ScriptLine {
    int number = 0; // from 1
    std::vector<std::string> words;
};

// The lines that hold words. Inside quotes "" stands for one quote. A quote that is not closed, or that does not stand
// alone between blanks, is UsageError with the name of the script and the line.
std::vector<ScriptLine> SplitScript(const std::string &file, const std::string &text);

// "FILE:LINE: ", the head of every message.
std::string ScriptPlace(const std::string &file, int line);

// The words of one line, taken from the front. What is missing or left over is UsageError.
class Words {
public:
    explicit Words(std::vector<std::string> words) : words_(std::move(words)) {}

    bool empty() const { return at_ == words_.size(); }
    std::size_t left() const { return words_.size() - at_; }
    std::string last() const { return words_.empty() ? "" : words_.back(); }
    const std::string &peek(const char *what) const;
    std::string take(const char *what);
    bool takeIf(const std::string &word); // whether it was the next one
    double takeNumber(const char *what);  // "," counts as the point
    int takeWhole(const char *what);
    std::string takeLast(const char *what);
    void done() const;

private:
    std::vector<std::string> words_;
    std::size_t at_ = 0;
};

} // namespace havuz
