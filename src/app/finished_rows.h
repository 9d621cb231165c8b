// The rows of a table of variants that are done, in a file beside the table that is being made: a row is written when
// it is done, so that it survives whatever ends the program. A row is known by its inputs and by everything else that
// its results follow from (the context), never by its place in the table.
#pragma once

#include <map>
#include <string>

namespace havuz {

struct FinishedRow {
    std::string words;                          // why it failed, or empty
    std::map<std::string, std::string> results; // by result name
};

class FinishedRows {
public:
    // Opens or makes the file and reads what is whole in it; a line that was cut short is left aside. A file that
    // cannot be opened, or that another program works with, is TableFailure.
    FinishedRows(const std::string &path, const std::string &context);
    ~FinishedRows();
    FinishedRows(const FinishedRows &) = delete;
    FinishedRows &operator=(const FinishedRows &) = delete;

    const FinishedRow *find(const std::string &inputs) const; // nullptr when it is not there
    void keep(const std::string &inputs, const FinishedRow &row);
    // To the disk.
    void sync();

private:
    void read();

    std::string path_, context_;
    int file_ = -1;
    std::map<std::string, FinishedRow> rows_;
};

// A number for a text: equal texts have equal ones.
std::string TextMark(const std::string &text);

} // namespace havuz
