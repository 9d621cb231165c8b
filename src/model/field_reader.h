// Reads text of comma-separated fields one by one, as project and option files are made of them. A field ends at a
// comma or at the end of the line; blanks before it are skipped; text that begins with a double quote ends at the next
// double quote. Lines end in CR LF; a lone LF or CR is taken as well. Where a line ends does not matter to the reader.
#pragma once

#include "model/failure.h"

#include <string>
#include <string_view>

namespace havuz {

class FieldReader {
public:
    // path stands at the head of every failure.
    FieldReader(std::string path, std::string bytes) : path_(std::move(path)), bytes_(std::move(bytes)) {}

    bool atEnd() const { return at_ >= bytes_.size(); }

    // The record that the next fields belong to, for the words of a failure; no 0 for one that has no number.
    void enterRecord(Label record, int no = 0) {
        record_ = record;
        recordNo_ = no;
    }
    // The next field as UTF-8 text. Past the end of the file it is File.
    std::string text(Label field);
    // The same as its bytes are.
    std::string bytes(Label field) { return std::string(next(field)); }
    // The next field as a number; an empty one is 0, anything else that is no number is BadNumber.
    double number(Label field);

    // Runs the job that reads; a failure inside it comes out with path, line, field and record in front of its words.
    template <class Job>
    void read(Job job) {
        try {
            job();
        } catch (const RuntimeFailure &failure) {
            throw failure.in(place());
        }
    }

private:
    std::string_view next(Label field);
    void passDelimiter();
    FileField place() const;

    std::string path_;
    std::string bytes_;
    std::size_t at_ = 0;
    Label record_ = Thing::Nothing;
    int recordNo_ = 0;
    Label fieldName_ = Thing::Nothing;
    int line_ = 1, field_ = 1;         // of the field read last
    int nextLine_ = 1, nextField_ = 1; // of the field to come
};

} // namespace havuz
