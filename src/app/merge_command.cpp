// havuz-cli merge: the shards of a table of variants as the one table that a single run makes.
#include "app/cli.h"
#include "app/variants_results.h"
#include "model/files.h"
#include "model/write_file.h"
#include "report/csv_table.h"
#include "report/lightest.h"

#include <charconv>
#include <iostream>
#include <map>
#include <memory>

namespace havuz {

namespace {

struct MergeOptions {
    std::vector<std::string> tables;
    std::string out, price;
};

std::size_t RowNumber(const std::string &text, const std::string &file) {
    std::size_t number = 0;
    const char *end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number == 0)
        throw TableFailure(file + ": \"" + text + "\" is no row number");
    return number;
}

// Rows by their numbers: each from one file, or the same from several.
class Merger {
public:
    void take(const std::string &file) {
        const CsvTable table = ReadCsvTable(ReadWholeFile(file), file);
        if (table.head.front().text != "row")
            throw TableFailure(file + ": the first column is not row");
        if (head_.empty())
            head_ = CsvLine(all_.head = table.head);
        if (CsvLine(table.head) != head_)
            throw TableFailure(file + ": its columns are not those of the first table");
        for (const std::vector<CsvField> &row : table.rows) {
            const std::size_t number = RowNumber(row.front().text, file);
            const auto [place, added] = rows_.emplace(number, row);
            if (!added && CsvLine(place->second) != CsvLine(row))
                throw TableFailure(file + ": row " + std::to_string(number) + " differs from that of another table");
        }
    }

    CsvTable whole() {
        std::size_t next = 1;
        for (auto &[number, row] : rows_) {
            if (number != next)
                throw TableFailure("row " + std::to_string(next) + " is in no table; is a shard missing?");
            ++next;
            all_.rows.push_back(row);
        }
        return all_;
    }

private:
    CsvTable all_;
    std::string head_;
    std::map<std::size_t, std::vector<CsvField>> rows_;
};

// Columns between the row's number and the first result.
std::size_t InputColumns(const CsvTable &table) {
    std::size_t c = 1;
    while (c < table.head.size() && table.head[c].text != "words" && !IsVariantResult(table.head[c].text, {}) &&
           table.head[c].text.rfind("M_", 0) != 0)
        ++c;
    return c - 1;
}

void Merge(const MergeOptions &o) {
    Merger merger;
    for (const std::string &table : o.tables)
        merger.take(table);
    const CsvTable all = merger.whole();
    const std::string lightest =
        o.price.empty() ? "" : LightestText(all, InputColumns(all), ParsePrices(o.price)) + "\n";
    WriteWholeFile(o.out, CsvText(all));
    std::cout << lightest;
}

} // namespace

void AddMergeCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<MergeOptions>();
    CLI::App *command = parser.add_subcommand("merge", "the shards of a table of variants as one table");
    command->add_option("tables", o->tables, "tables of all shards")->required()->type_name("OUT.csv");
    command->add_option("-o", o->out, "table to write")->required()->type_name("ALL.csv");
    command->add_option("--price", o->price, "name the cheapest row that meets all checks: concrete=120,steel=900");
    command->callback([o, &job] { job = {o->out, [o] { Merge(*o); }}; });
}

} // namespace havuz
