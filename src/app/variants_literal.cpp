#include "app/variants_literal.h"

#include "app/scratch_folder.h"
#include "fea/analysis.h"
#include "fea/result_summary.h"
#include "fea/run_loads.h"
#include "fea/run_residual.h"
#include "model/failure.h"
#include "report/csv_table.h"

#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

void Analyse(const std::string &folder) {
    AnalysisWindow quiet;
    try {
        AnalysisRun({folder + "/P", folder + "/WORKPOOL", ""}, quiet);
    } catch (const ProgramEnd &) { // the end of a run that went well
    }
}

} // namespace

const std::vector<std::string> &LiteralResultNames() {
    static const std::vector<std::string> names = {"literal_settlement_mm", "literal_Mx", "literal_My",
                                                   "literal_residual"};
    return names;
}

std::map<std::string, std::string> LiteralResults() {
    const ScratchFolder folder;
    Analyse(folder.path());
    double settlement = -1e30, mx = 0.0, my = 0.0, residual = 0.0;
    bool settles = false;
    for (const ColumnSummary &column : SummariseResults(folder.path() + "/P")) {
        settles = settles || column.settlement.node != 0;
        settlement = std::max(settlement, column.settlement.value);
        mx = std::max(mx, std::fabs(column.mx.value));
        my = std::max(my, std::fabs(column.my.value));
    }
    for (const double r : RunResiduals(folder.path() + "/P", RunColumns()))
        residual = std::max(residual, r);
    const std::vector<std::string> &names = LiteralResultNames();
    return {{names[0], settles ? CsvNumber(1000.0 * settlement).text : ""},
            {names[1], CsvNumber(mx).text},
            {names[2], CsvNumber(my).text},
            {names[3], CsvNumber(residual).text}};
}

} // namespace havuz
