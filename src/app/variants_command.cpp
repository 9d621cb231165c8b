// havuz-cli variants: a table of tanks in, the same table with their results out. Each tank is made, meshed, analysed
// and checked in a process of its own; what is done is kept beside the table, so that a stopped run goes on.
#include "app/cli.h"
#include "app/finished_rows.h"
#include "app/project.h"
#include "app/scratch_folder.h"
#include "app/variants_literal.h"
#include "app/variants_progress.h"
#include "app/variants_results.h"
#include "app/variants_tank.h"
#include "consistent/analysis.h"
#include "model/failure.h"
#include "model/files.h"
#include "model/options.h"
#include "model/platform.h"
#include "model/project_file.h"
#include "model/worker_pool.h"
#include "model/write_file.h"
#include "report/csv_table.h"
#include "report/lightest.h"
#include "report/sweep.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

struct VariantsOptions {
    std::string table, out, base, want, sweep, sweepTable, shard, price;
    int jobs = 0;
    bool literal = false, list = false;
};

// Rows first, first + step, ... counted from 0.
struct Shard {
    std::size_t first = 0, step = 1;
};

Shard ParseShard(const std::string &text) {
    Shard shard;
    if (text.empty())
        return shard;
    const char *end = text.data() + text.size();
    const auto k = std::from_chars(text.data(), end, shard.first);
    const auto n = k.ptr != end && *k.ptr == '/' ? std::from_chars(k.ptr + 1, end, shard.step) : k;
    if (k.ec != std::errc() || n.ec != std::errc() || n.ptr != end || shard.first < 1 || shard.first > shard.step)
        throw UsageError("--shard: \"" + text + "\" is not K/N with K from 1 to N");
    --shard.first;
    return shard;
}

std::vector<std::string> WantedNames(const VariantsOptions &o, const std::set<std::string> &keys) {
    if (o.want.empty())
        return VariantResultNames();
    std::vector<std::string> names;
    for (const CsvField &field : ReadCsvRecord(o.want)) {
        if (!IsVariantResult(field.text, keys))
            throw TableFailure("--want: unknown column \"" + field.text + "\"; --list names them");
        if (std::find(names.begin(), names.end(), field.text) != names.end())
            throw TableFailure("--want: \"" + field.text + "\" stands twice");
        names.push_back(field.text);
    }
    return names;
}

// Everything that the results of a row follow from besides the row: the program, the project or the parameters of a
// fresh start, its load factors, the file of combinations and limits beside it.
std::string ContextOf(const VariantsOptions &o, const std::string &project) {
    const std::string limits = project + ".RAP";
    return TextMark(ReadWholeFile(OwnProgram()) + ProjectText() + CsvNumber(YukFaktorG).text + "," +
                    CsvNumber(YukFaktorP).text + (o.literal ? "literal" : "") +
                    (!project.empty() && FileExists(limits) ? ReadWholeFile(limits) : ""));
}

class Variants {
public:
    explicit Variants(const VariantsOptions &o) : o_(o), shard_(ParseShard(o.shard)) {
        table_ = o.sweep.empty() ? ReadCsvTable(ReadWholeFile(o.table), o.table) : SweepTable(o.sweep);
        openBase();
        for (const CsvField &field : table_.head)
            checkColumn(field.text);
        want_ = WantedNames(o, VariantKeys(question_.project));
        for (const std::string &name : want_)
            if (name.rfind("M_", 0) == 0)
                question_.moments.push_back(name);
        question_.literal = o.literal;
        if (!o.price.empty())
            checkPrices();
        for (std::size_t row = shard_.first; row < table_.rows.size(); row += shard_.step)
            rows_.push_back(row);
    }

    void run() {
        if (const auto job = WorkerJob()) {
            std::cout << compute(*job);
            return;
        }
        FinishedRows finished(o_.out + ".rows", ContextOf(o_, question_.project));
        const int signal = work(finished);
        if (signal != 0)
            throw stopped(signal);
        const CsvTable all = result();
        WriteWholeFile(o_.out, CsvText(all));
        if (!o_.price.empty())
            std::cout << LightestText(all, table_.head.size(), ParsePrices(o_.price)) << "\n";
    }

private:
    void openBase() {
        if (o_.base.empty()) {
            BeginProgram();
            return;
        }
        OpenProject(o_.base);
        question_.project = ProjectStem(o_.base);
    }

    void checkColumn(const std::string &name) const {
        try {
            CheckVariantColumn(name);
        } catch (const UsageError &) {
            throw TableFailure((o_.sweep.empty() ? o_.table : "--sweep") + ": unknown column \"" + name + "\"");
        }
    }

    void checkPrices() const {
        ParsePrices(o_.price);
        for (const char *name : {kConcreteColumn, kSteelColumn, kVerdictColumn})
            if (std::find(want_.begin(), want_.end(), name) == want_.end())
                throw TableFailure(std::string("--price needs ") + name + " in --want");
    }

    RowValues valuesOf(std::size_t row) const {
        RowValues values;
        for (std::size_t c = 0; c < table_.head.size(); ++c)
            if (!table_.rows[row][c].text.empty())
                values.emplace_back(table_.head[c].text, table_.rows[row][c].text);
        return values;
    }

    // The row as its inputs, whatever the order of the columns.
    std::string keyOf(std::size_t row) const {
        RowValues values = valuesOf(row);
        std::sort(values.begin(), values.end());
        std::vector<CsvField> fields;
        for (const auto &[name, value] : values)
            fields.push_back(CsvValue(name + "=" + value));
        std::string key = CsvLine(fields);
        key.pop_back();
        return key;
    }

    bool serves(const FinishedRow &row) const {
        return !row.words.empty() || std::all_of(want_.begin(), want_.end(),
                                                 [&row](const auto &name) { return row.results.count(name) > 0; });
    }

    // In a process of its own: words, then name and value in turn, as one record.
    std::string compute(std::size_t row) const {
        std::string words;
        std::map<std::string, std::string> results;
        try {
            MakeVariant(valuesOf(row), !o_.base.empty());
            results = VariantResults(question_);
        } catch (const std::exception &failure) {
            words = failure.what();
            std::replace(words.begin(), words.end(), '\n', ' ');
            results.clear();
        }
        std::vector<CsvField> fields = {CsvValue(words)};
        for (const auto &[name, value] : results) {
            fields.push_back(CsvValue(name));
            fields.push_back(CsvValue(value));
        }
        return CsvLine(fields);
    }

    static FinishedRow rowOf(const std::string &text, const std::string &words) {
        FinishedRow row;
        row.words = words;
        const std::vector<CsvField> fields = ReadCsvRecord(text);
        if (words.empty() && !fields.empty())
            row.words = fields[0].text;
        for (std::size_t i = 1; i + 1 < fields.size(); i += 2)
            row.results[fields[i].text] = fields[i + 1].text;
        return row;
    }

    int work(FinishedRows &finished) {
        std::vector<std::size_t> missing;
        std::map<std::string, std::size_t> asked; // rows of the same inputs are one
        for (const std::size_t row : rows_) {
            const std::string key = keyOf(row);
            const FinishedRow *kept = finished.find(key);
            if (kept != nullptr && serves(*kept))
                done_[key] = *kept;
            else if (asked.emplace(key, row).second)
                missing.push_back(row);
        }
        VariantsProgress progress(rows_.size(), rows_.size() - missing.size());
        WorkerPool pool;
        pool.processes = o_.jobs > 0 ? o_.jobs : consistent::AllowedThreads();
        pool.work = [this](std::size_t row) { return compute(row); };
        pool.done = [&](std::size_t row, const std::string &text, const std::string &words) {
            const std::string key = keyOf(row);
            const FinishedRow &result = done_[key] = rowOf(text, words);
            if (words.empty()) // a process that was ended from outside is tried again next time
                finished.keep(key, result);
            progress.count();
        };
        pool.tick = [&] { progress.show(); };
        platform::SetEnvironment("HAVUZ_THREADS", "1"); // for the processes: they fill the machine by their number
        const ScratchFolder scratch;                    // of the processes: it goes also when they are killed
        platform::SetEnvironment("TMPDIR", scratch.path());
        const int signal = RunWorkers(pool, missing);
        finished.sync();
        progress.finish(signal == 0 ? failedRows() : 0);
        return signal;
    }

    std::size_t failedRows() const {
        return static_cast<std::size_t>(std::count_if(
            rows_.begin(), rows_.end(), [this](std::size_t row) { return !done_.at(keyOf(row)).words.empty(); }));
    }

    ProgramEnd stopped(int signal) const {
        std::cerr << "stopped: what is done is kept in " << o_.out << ".rows; the same command goes on\n";
        return {128 + signal};
    }

    CsvTable result() const {
        CsvTable all;
        all.head.push_back(CsvValue("row"));
        all.head.insert(all.head.end(), table_.head.begin(), table_.head.end());
        std::vector<std::string> names = want_;
        names.emplace_back("words");
        if (o_.literal)
            names.insert(names.end(), LiteralResultNames().begin(), LiteralResultNames().end());
        for (const std::string &name : names)
            all.head.push_back(CsvValue(name));
        for (const std::size_t row : rows_) {
            const FinishedRow &done = done_.at(keyOf(row));
            std::vector<CsvField> fields = {CsvValue(std::to_string(row + 1))};
            fields.insert(fields.end(), table_.rows[row].begin(), table_.rows[row].end());
            for (const std::string &name : names) {
                const auto found = done.results.find(name);
                fields.push_back(CsvValue(name == "words"               ? done.words
                                          : found == done.results.end() ? ""
                                                                        : found->second));
            }
            all.rows.push_back(std::move(fields));
        }
        return all;
    }

    const VariantsOptions &o_;
    Shard shard_;
    CsvTable table_;
    std::vector<std::string> want_;
    VariantQuestion question_;
    std::vector<std::size_t> rows_;           // of the shard, counted from 0
    std::map<std::string, FinishedRow> done_; // by key
};

void ListNames() {
    for (const std::string &name : VariantResultNames())
        std::cout << name << "\n";
    std::cout << kMomentPattern << "\n";
}

void CheckUsage(const VariantsOptions &o) {
    if (o.list)
        return;
    if (o.table.empty() == o.sweep.empty())
        throw UsageError("variants: one of TABLE.csv and --sweep");
    if (!o.sweepTable.empty() && o.sweep.empty())
        throw UsageError("--table writes the table of a --sweep");
    if (o.out.empty() && o.sweepTable.empty())
        throw UsageError("variants: -o OUT.csv is missing");
}

void RunVariants(const VariantsOptions &o) {
    CheckUsage(o);
    if (o.list)
        ListNames();
    else if (!o.sweepTable.empty())
        WriteWholeFile(o.sweepTable, CsvText(SweepTable(o.sweep)));
    else
        Variants(o).run();
}

} // namespace

void AddVariantsCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<VariantsOptions>();
    CLI::App *command = parser.add_subcommand("variants", "a table of tanks, computed row by row");
    command->add_option("table", o->table, "a tank a row, columns named as in set, and pool, points, mesh, sound")
        ->type_name("TABLE.csv");
    command->add_option("-o", o->out, "table to write, with the results")->type_name("OUT.csv");
    command->add_option("--base", o->base, "project that the rows vary")->type_name("P.POL");
    command->add_option("--jobs", o->jobs, "tanks at a time; else HAVUZ_THREADS, else all cores")
        ->type_name("N")
        ->check(CLI::Range(1, 1024));
    command->add_option("--want", o->want, "result columns in their order; else all but moments")->type_name("a,b,c");
    command->add_flag("--list", o->list, "print the names of all result columns");
    command->add_option("--sweep", o->sweep, "rows from values and ranges: \"Lx=8,10,12 KenarKalinlik=20:40:5\"");
    command->add_option("--table", o->sweepTable, "write the rows of --sweep, compute nothing")->type_name("T.csv");
    command->add_option("--shard", o->shard, "rows K, K+N, ... only")->type_name("K/N");
    command->add_option("--price", o->price, "name the cheapest row that meets all checks: concrete=120,steel=900");
    command->add_flag("--literal", o->literal, "the literal run of each tank as well");
    command->callback([o, &job] { job = {o->table, [o] { RunVariants(*o); }}; });
}

} // namespace havuz
