#include "report/lightest.h"

#include "model/number_text.h"

namespace havuz {

namespace {

std::size_t NeededColumn(const CsvTable &table, const char *name) {
    const std::size_t column = table.column(name);
    if (column == table.head.size())
        throw TableFailure(std::string("--price needs the column ") + name);
    return column;
}

std::optional<double> NumberAt(const std::vector<CsvField> &row, std::size_t column) {
    return row[column].text.empty() ? std::nullopt : ReadNumberField(row[column].text);
}

} // namespace

Prices ParsePrices(const std::string &text) {
    Prices prices;
    for (const CsvField &field : ReadCsvRecord(text)) {
        const std::size_t equals = std::min(field.text.find('='), field.text.size());
        const std::string name = field.text.substr(0, equals);
        const auto value = equals < field.text.size() ? ReadNumberField(field.text.substr(equals + 1)) : std::nullopt;
        if (!value || !(*value >= 0.0) || (name != "concrete" && name != "steel"))
            throw TableFailure("--price: \"" + field.text + "\" is no concrete=PRICE or steel=PRICE");
        (name == "steel" ? prices.steel : prices.concrete) = *value;
    }
    return prices;
}

std::optional<Lightest> LightestRow(const CsvTable &table, const Prices &prices) {
    const std::size_t concrete = NeededColumn(table, kConcreteColumn), steel = NeededColumn(table, kSteelColumn),
                      verdict = NeededColumn(table, kVerdictColumn);
    std::optional<Lightest> best;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const auto volume = NumberAt(table.rows[i], concrete), weight = NumberAt(table.rows[i], steel);
        if (table.rows[i][verdict].text != kVerdictMet || !volume || !weight)
            continue;
        const double cost = prices.concrete * *volume + prices.steel * *weight;
        if (!best || cost < best->cost)
            best = Lightest{i, cost};
    }
    return best;
}

std::string LightestText(const CsvTable &table, std::size_t inputs, const Prices &prices) {
    const auto best = LightestRow(table, prices);
    if (!best)
        return "En hafif: no row meets all checks";
    const std::vector<CsvField> &row = table.rows[best->row];
    std::string text = "En hafif: row " + row[0].text;
    for (std::size_t c = 1; c <= inputs; ++c)
        if (!row[c].text.empty())
            text += ", " + table.head[c].text + "=" + row[c].text;
    for (const char *name : {kConcreteColumn, kSteelColumn})
        text += (name == kConcreteColumn ? ": " : ", ") + std::string(name) + " " + row[table.column(name)].text;
    return text + ", cost " + CsvNumber(best->cost).text;
}

} // namespace havuz
