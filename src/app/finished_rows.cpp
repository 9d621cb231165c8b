#include "app/finished_rows.h"

#include "model/platform.h"
#include "report/csv_table.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace havuz {

namespace {

// FNV-1a, 64 bits.
std::uint64_t Hash(const std::string &text, std::uint64_t hash) {
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return hash;
}

// Without line ends: a record is one line.
std::string OneLine(std::string text) {
    for (char &c : text)
        if (c == '\n' || c == '\r')
            c = ' ';
    return text;
}

// Mark of the rest, context, inputs, words, then name and value in turn.
std::string Record(const std::string &context, const std::string &inputs, const FinishedRow &row) {
    std::vector<CsvField> fields = {CsvValue(context), CsvValue(OneLine(inputs)), CsvValue(OneLine(row.words))};
    for (const auto &[name, value] : row.results) {
        fields.push_back(CsvValue(name));
        fields.push_back(CsvValue(value));
    }
    const std::string rest = CsvLine(fields);
    return TextMark(rest) + "," + rest;
}

// The fields of a whole record; none for any other line.
std::vector<CsvField> FieldsOf(const std::string &line) {
    const std::size_t comma = line.find(',');
    if (comma == std::string::npos || TextMark(line.substr(comma + 1)) != line.substr(0, comma))
        return {};
    return ReadCsvRecord(line.substr(comma + 1));
}

} // namespace

std::string TextMark(const std::string &text) {
    std::array<char, 40> mark{};
    std::snprintf(mark.data(), mark.size(), "%016llx%016llx",
                  static_cast<unsigned long long>(Hash(text, 0xcbf29ce484222325U)),
                  static_cast<unsigned long long>(Hash(text, 0x84222325cbf29ce4U)));
    return mark.data();
}

FinishedRows::FinishedRows(const std::string &path, const std::string &context) : path_(path), context_(context) {
    file_ = platform::OpenFile(path, platform::Opened::Append);
    if (file_ < 0)
        throw TableFailure(path + ": cannot be opened: " + std::strerror(errno));
    if (!platform::Lock(file_)) {
        platform::CloseFile(file_);
        throw TableFailure(path + ": another program is making this table");
    }
    read();
}

FinishedRows::~FinishedRows() { platform::CloseFile(file_); }

void FinishedRows::read() {
    std::string text;
    std::array<char, 65536> part{};
    for (std::ptrdiff_t n = 0; (n = platform::Read(file_, part.data(), part.size())) > 0;)
        text.append(part.data(), static_cast<std::size_t>(n));
    std::size_t at = 0;
    for (std::size_t end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1) {
        const std::vector<CsvField> fields = FieldsOf(text.substr(at, end + 1 - at));
        if (fields.size() < 3 || fields[0].text != context_)
            continue;
        FinishedRow &row = rows_[fields[1].text];
        row.words = fields[2].text;
        for (std::size_t i = 3; i + 1 < fields.size(); i += 2)
            row.results[fields[i].text] = fields[i + 1].text;
    }
    if (at < text.size() && platform::Write(file_, "\n", 1) != 1) // behind a line that was cut short
        throw TableFailure(path_ + ": cannot be written: " + std::strerror(errno));
}

const FinishedRow *FinishedRows::find(const std::string &inputs) const {
    const auto found = rows_.find(OneLine(inputs));
    return found == rows_.end() ? nullptr : &found->second;
}

void FinishedRows::keep(const std::string &inputs, const FinishedRow &row) {
    rows_[OneLine(inputs)] = row;
    const std::string record = Record(context_, inputs, row);
    if (platform::Write(file_, record.data(), record.size()) != static_cast<std::ptrdiff_t>(record.size()))
        throw TableFailure(path_ + ": cannot be written: " + std::strerror(errno));
}

void FinishedRows::sync() { platform::FlushData(file_); }

} // namespace havuz
