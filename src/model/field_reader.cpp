#include "model/field_reader.h"

#include "model/code_page.h"
#include "model/failure.h"
#include "model/number_text.h"

#include <algorithm>

namespace havuz {

FileField FieldReader::place() const { return {path_, line_, field_, record_, recordNo_, fieldName_}; }

// Behind a field: blanks after a closing quote, then one comma or one line end.
void FieldReader::passDelimiter() {
    if (atEnd())
        return;
    if (bytes_[at_] == ',') {
        ++at_;
        ++nextField_;
    } else if (bytes_[at_] == '\r' || bytes_[at_] == '\n') {
        at_ += bytes_.compare(at_, 2, "\r\n") == 0 ? 2 : 1;
        ++nextLine_;
        nextField_ = 1;
    } else { // text that goes on behind a closing quote is the next field
        ++nextField_;
    }
}

std::string_view FieldReader::next(Label field) {
    fieldName_ = field;
    line_ = nextLine_;
    field_ = nextField_;
    if (atEnd())
        throw RuntimeFailure({.fault = Fault::EndsInLine});
    while (!atEnd() && bytes_[at_] == ' ')
        ++at_;
    const std::string_view all = bytes_;
    std::string_view found;
    if (!atEnd() && bytes_[at_] == '"') {
        const std::size_t close = std::min(all.find('"', at_ + 1), all.size());
        found = all.substr(at_ + 1, close - at_ - 1);
        nextLine_ += static_cast<int>(std::count(found.begin(), found.end(), '\n'));
        at_ = std::min(close + 1, all.size());
        while (!atEnd() && bytes_[at_] == ' ')
            ++at_;
    } else {
        const std::size_t end = std::min(all.find_first_of(",\r\n", at_), all.size());
        found = all.substr(at_, end - at_);
        at_ = end;
    }
    passDelimiter();
    return found;
}

std::string FieldReader::text(Label field) { return FromCodePage(next(field)); }

double FieldReader::number(Label field) {
    const std::string_view found = next(field);
    if (found.empty())
        return 0.0;
    if (const auto value = ReadNumberField(found))
        return *value;
    throw RuntimeFailure({.fault = Fault::NotANumber, .text = FromCodePage(found.substr(0, 40))});
}

} // namespace havuz
