#include "app/shell_export.h"

#include "fea/result_summary.h"
#include "fea/run_loads.h"
#include "model/store.h"

#include <algorithm>

namespace havuz {

// Rhs holds the negative of the load.
static ShellCase CaseOfColumn(int number, const RunColumn &column) {
    ShellCase shellCase{"column " + std::to_string(number), LoadCodeWords(column.code), {}};
    shellCase.force.resize(static_cast<std::size_t>(NoktaCount) + 1, NodalForce{});
    for (int n = 1; n <= NoktaCount; ++n)
        for (int i = 1; i <= 6; ++i)
            shellCase.force[static_cast<std::size_t>(n)][static_cast<std::size_t>(i - 1)] =
                -column.load[FreedomAt(n, i)];
    return shellCase;
}

static ShellModel LiteralModel() {
    ShellModel model = PlainModel(consistent::ReadTank(), ProjeAdi);
    for (ShellNode &node : model.nodes)
        node.spring = NoktaTable[node.number].Yay;
    int number = 0;
    for (const RunColumn &column : RunColumns()) {
        ++number;
        if (std::any_of(column.load.begin(), column.load.end(), [](double f) { return f != 0.0; }))
            model.cases.push_back(CaseOfColumn(number, column));
    }
    return model;
}

ShellModel ModelForExport(bool literal) {
    return literal ? LiteralModel() : ConsistentModel(consistent::ReadTank(), ProjeAdi);
}

} // namespace havuz
