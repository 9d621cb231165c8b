#include "report/csv_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

namespace havuz {

namespace {

std::string WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string()
                                           : std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

class CsvReader {
public:
    CsvReader(std::string_view text, const std::string &place) : text_(text), place_(place) {
        if (text_.substr(0, 3) == "\xEF\xBB\xBF")
            at_ = 3;
        const std::string_view head = text_.substr(at_, std::min(text_.find_first_of("\r\n"), text_.size()) - at_);
        separator_ = head.find(',') == std::string_view::npos && head.find(';') != std::string_view::npos ? ';' : ',';
    }

    std::vector<CsvField> readOne() {
        separator_ = ',';
        return record();
    }

    CsvTable read() {
        CsvTable table;
        while (at_ < text_.size()) {
            const int line = line_;
            std::vector<CsvField> fields = record();
            if (fields.size() == 1 && fields.front().raw.empty())
                continue;
            if (table.head.empty()) {
                checkHead(line, fields);
                table.head = std::move(fields);
                continue;
            }
            if (fields.size() != table.head.size())
                fail(line,
                     std::to_string(fields.size()) + " fields where the head has " + std::to_string(table.head.size()));
            table.rows.push_back(std::move(fields));
        }
        if (table.head.empty())
            throw TableFailure(place_ + ": no head line");
        return table;
    }

private:
    [[noreturn]] void fail(int line, const std::string &what) const {
        throw TableFailure(place_ + ": line " + std::to_string(line) + ": " + what);
    }

    void checkHead(int line, const std::vector<CsvField> &fields) const {
        std::set<std::string> names;
        for (const CsvField &field : fields) {
            if (field.text.empty())
                fail(line, "a column without a name");
            if (!names.insert(field.text).second)
                fail(line, "the column \"" + field.text + "\" stands twice");
        }
    }

    std::vector<CsvField> record() {
        std::vector<CsvField> fields;
        do
            fields.push_back(field());
        while (at_ < text_.size() && text_[at_++] == separator_);
        return fields;
    }

    // Leaves at_ on the separator or line end behind the field; a CR before LF is skipped.
    CsvField field() {
        const std::size_t start = std::min(text_.find_first_not_of(" \t", at_), text_.size());
        const CsvField value = start < text_.size() && text_[start] == '"' ? quoted(start) : plain();
        if (text_.substr(at_, 2) == "\r\n")
            ++at_;
        if (at_ < text_.size() && text_[at_] == '\n')
            ++line_;
        return value;
    }

    CsvField plain() {
        const char ends[] = {separator_, '\r', '\n', '\0'};
        const std::size_t end = std::min(text_.find_first_of(ends, at_), text_.size());
        const std::string_view raw = text_.substr(at_, end - at_);
        at_ = end;
        CsvField value{WithoutBlanks(raw), std::string(raw)};
        if (raw.find(',') != std::string_view::npos)
            value.raw = CsvValue(value.text).raw;
        return value;
    }

    CsvField quoted(std::size_t start) {
        CsvField value;
        const int line = line_;
        std::size_t at = start + 1;
        for (;; ++at) {
            if (at >= text_.size())
                fail(line, "a quote that does not close");
            if (text_[at] == '\n')
                ++line_;
            if (text_[at] == '"') {
                if (at + 1 >= text_.size() || text_[at + 1] != '"')
                    break;
                ++at;
            }
            value.text += text_[at];
        }
        const std::size_t end = std::min(text_.find_first_not_of(" \t", at + 1), text_.size());
        if (end < text_.size() && text_[end] != separator_ && text_[end] != '\r' && text_[end] != '\n')
            fail(line_, "text behind a closing quote");
        value.raw = std::string(text_.substr(at_, end - at_));
        value.text = WithoutBlanks(value.text);
        at_ = end;
        return value;
    }

    std::string_view text_;
    std::string place_;
    std::size_t at_ = 0;
    int line_ = 1;
    char separator_ = ',';
};

} // namespace

std::size_t CsvTable::column(std::string_view name) const {
    return static_cast<std::size_t>(
        std::find_if(head.begin(), head.end(), [name](const CsvField &f) { return f.text == name; }) - head.begin());
}

CsvField CsvNumber(double value) {
    std::array<char, 40> text{};
    const double shown = value == 0.0 ? 0.0 : value; // no -0
    const auto end = std::to_chars(text.data(), text.data() + text.size(), shown, std::chars_format::general, 12).ptr;
    return CsvValue({text.data(), end});
}

CsvField CsvValue(std::string text) {
    const bool plain = text.find_first_of(",;\"\r\n") == std::string::npos && WithoutBlanks(text) == text;
    if (plain)
        return {text, text};
    std::string raw = "\"";
    for (const char c : text)
        raw += c == '"' ? std::string("\"\"") : std::string(1, c);
    return {std::move(text), raw + "\""};
}

CsvTable ReadCsvTable(std::string_view text, const std::string &place) { return CsvReader(text, place).read(); }

std::vector<CsvField> ReadCsvRecord(std::string_view line) { return CsvReader(line, "record").readOne(); }

std::string CsvLine(const std::vector<CsvField> &fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i > 0 ? "," : "") + fields[i].raw;
    return line + "\n";
}

std::string CsvText(const CsvTable &table) {
    std::string text = CsvLine(table.head);
    for (const std::vector<CsvField> &row : table.rows)
        text += CsvLine(row);
    return text;
}

} // namespace havuz
