#include "report/svg_plot.h"

#include "model/number_text.h"
#include "report/lightest.h"
#include "report/plot_axis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>

namespace havuz {

namespace {

struct PlotPoint {
    double x = 0.0, y = 0.0;
    bool met = true;
};

struct Group {
    std::string name;
    std::vector<PlotPoint> points;
};

// One column of the table as places on an axis: numbers when all of them are, else words.
struct PlotColumn {
    std::string name;
    std::vector<std::optional<double>> values; // by row
    std::vector<std::string> words;            // of a column of words, in the order in which they come
};

std::size_t ColumnOf(const CsvTable &table, const std::string &name) {
    if (const std::size_t exact = table.column(name); exact < table.head.size())
        return exact;
    for (std::size_t c = 0; c < table.head.size(); ++c)
        if (!name.empty() && table.head[c].text.rfind(name + "_", 0) == 0)
            return c;
    std::string all;
    for (const CsvField &field : table.head)
        all += " " + field.text;
    throw TableFailure("no column \"" + name + "\"; there are" + all);
}

std::optional<double> NumberOf(const std::string &text) {
    std::string pointed = text;
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    const auto value = text.empty() ? std::nullopt : ReadNumberField(pointed);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

PlotColumn ReadColumn(const CsvTable &table, const std::string &name, bool numbersOnly) {
    const std::size_t c = ColumnOf(table, name);
    PlotColumn column{table.head[c].text, {}, {}};
    bool words = false;
    for (const auto &row : table.rows) {
        column.values.push_back(NumberOf(row[c].text));
        words = words || (!row[c].text.empty() && !column.values.back());
    }
    if (!words || numbersOnly)
        return column;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const std::string &word = table.rows[i][c].text;
        const auto found = std::find(column.words.begin(), column.words.end(), word);
        column.values[i] = static_cast<double>(found - column.words.begin());
        if (found == column.words.end())
            column.words.push_back(word);
    }
    return column;
}

struct Plot {
    PlotColumn x, y;
    std::string by;
    std::vector<Group> groups;
    std::size_t leftOut = 0;
};

// Groups in the order of their numbers, or of their first rows.
std::vector<Group> MakeGroups(const CsvTable &table, const PlotColumn *by, const Plot &plot, std::size_t &leftOut) {
    const std::size_t verdict = table.column(kVerdictColumn);
    std::map<double, Group> groups;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        if (!plot.x.values[i] || !plot.y.values[i] || (by != nullptr && !by->values[i])) {
            ++leftOut;
            continue;
        }
        Group &group = groups[by != nullptr ? *by->values[i] : 0.0];
        if (by != nullptr)
            group.name = table.rows[i][table.column(by->name)].text;
        const std::string words = verdict < table.head.size() ? table.rows[i][verdict].text : "";
        const bool met = words.empty() || words == kVerdictMet;
        group.points.push_back({*plot.x.values[i], *plot.y.values[i], met});
    }
    std::vector<Group> all;
    for (auto &[value, group] : groups) {
        std::stable_sort(group.points.begin(), group.points.end(),
                         [](const PlotPoint &a, const PlotPoint &b) { return a.x < b.x; });
        all.push_back(std::move(group));
    }
    return all;
}

Plot ReadPlot(const CsvTable &table, const PlotQuestion &q) {
    Plot plot;
    plot.x = ReadColumn(table, q.x, false);
    plot.y = ReadColumn(table, q.y, true);
    std::optional<PlotColumn> by;
    if (!q.by.empty()) {
        by = ReadColumn(table, q.by, false);
        plot.by = by->name;
    }
    plot.groups = MakeGroups(table, by ? &*by : nullptr, plot, plot.leftOut);
    if (plot.groups.empty())
        throw TableFailure("no row has numbers for " + plot.x.name + " and " + plot.y.name);
    return plot;
}

// The unit that a name says: of a result behind its "_", of a parameter by the list.
std::string TitleOf(const std::string &name) {
    static const std::map<std::string, std::string> units = {{"Lx", "m"},
                                                             {"Ly", "m"},
                                                             {"Bk", "m"},
                                                             {"UstKot", "m"},
                                                             {"AltKot", "m"},
                                                             {"SiviKotu", "m"},
                                                             {"ToprakKotu", "m"},
                                                             {"YeraltiSuKotu", "m"},
                                                             {"mesh", "m"},
                                                             {"MeshGenisligi", "m"},
                                                             {"KenarKalinlik", "cm"},
                                                             {"AltKalinlik", "cm"},
                                                             {"ZeminKo", "t/m³"},
                                                             {"ZeminGzem", "t/m²"},
                                                             {"ZeminYogunluk", "t/m³"},
                                                             {"SiviYogunluk", "t/m³"},
                                                             {"Fck", "kg/cm²"},
                                                             {"Fyk", "kg/cm²"},
                                                             {"weight_t", "t"},
                                                             {"concrete_m3", "m³"},
                                                             {"settlement_mm", "mm"},
                                                             {"soil_t_m2", "t/m²"},
                                                             {"steel_t", "t"},
                                                             {"steel_kg_m3", "kg/m³"},
                                                             {"crack_mm", "mm"}};
    const auto found = units.find(name);
    const std::string unit = found != units.end() ? found->second : name.rfind("M_", 0) == 0 ? "t.m/m" : "";
    return unit.empty() ? name : name + ", " + unit;
}

std::string Escaped(const std::string &text) {
    std::string all;
    for (const char c : text)
        all += c == '&'   ? std::string("&amp;")
               : c == '<' ? std::string("&lt;")
               : c == '>' ? std::string("&gt;")
               : c == '"' ? std::string("&quot;")
                          : std::string(1, c);
    return all;
}

// Even steps of lightness from dark to light, blue to yellow-green.
std::string GroupColour(std::size_t k, std::size_t count) {
    constexpr std::array<std::array<double, 3>, 5> stops = {
        {{31, 24, 92}, {41, 84, 140}, {30, 138, 140}, {79, 178, 100}, {178, 196, 40}}};
    const double at = count > 1 ? static_cast<double>(k) / static_cast<double>(count - 1) * 4.0 : 0.0;
    const auto low = std::min(static_cast<std::size_t>(at), std::size_t{3});
    std::string text = "rgb(";
    for (std::size_t c = 0; c < 3; ++c) {
        const double share = at - static_cast<double>(low);
        text += std::to_string(std::lround(stops[low][c] * (1 - share) + stops[low + 1][c] * share));
        text += c < 2 ? "," : ")";
    }
    return text;
}

std::string Place(double v) { return CsvNumber(std::round(v * 10.0) / 10.0).text; }

constexpr int kMarkShapes = 4;

std::string Mark(std::size_t shape, double x, double y, const std::string &colour, bool filled) {
    const std::string style =
        "fill=\"" + (filled ? colour : std::string("white")) + "\" stroke=\"" + colour + "\" stroke-width=\"1.5\"/>\n";
    const auto at = [x, y](double dx, double dy) { return Place(x + dx) + "," + Place(y + dy) + " "; };
    switch (shape % kMarkShapes) {
    case 0:
        return "<circle cx=\"" + Place(x) + "\" cy=\"" + Place(y) + "\" r=\"4\" " + style;
    case 1:
        return "<polygon points=\"" + at(-4, -4) + at(4, -4) + at(4, 4) + at(-4, 4) + "\" " + style;
    case 2:
        return "<polygon points=\"" + at(0, -5) + at(4.5, 3.5) + at(-4.5, 3.5) + "\" " + style;
    default:
        return "<polygon points=\"" + at(0, -5.5) + at(5, 0) + at(0, 5.5) + at(-5, 0) + "\" " + style;
    }
}

class Picture {
public:
    Picture(const Plot &plot, const PlotQuestion &q)
        : plot_(plot), q_(q), x_(axisOf(plot.x, &PlotPoint::x, 8)), y_(axisOf(plot.y, &PlotPoint::y, 6)) {
        right_ = q.width - (plot.by.empty() ? 24 : 170);
        bottom_ = q.height - 64;
        top_ = q.title.empty() ? 24 : 52;
    }

    std::string text() {
        head();
        grid();
        for (std::size_t k = 0; k < plot_.groups.size(); ++k)
            group(k);
        if (!plot_.by.empty())
            legend();
        foot();
        return svg_ + "</svg>\n";
    }

private:
    PlotAxis axisOf(const PlotColumn &column, double PlotPoint::*value, int about) const {
        if (!column.words.empty())
            return PlotAxis::OfWords(column.words);
        std::vector<double> values;
        for (const Group &g : plot_.groups)
            for (const PlotPoint &p : g.points)
                values.push_back(p.*value);
        return PlotAxis::OfNumbers(values, about);
    }
    double across(double place) const { return left_ + place * (right_ - left_); }
    double up(double place) const { return bottom_ - place * (bottom_ - top_); }

    void words(double x, double y, const std::string &anchor, const std::string &text, const std::string &more = "") {
        svg_ += "<text x=\"" + Place(x) + "\" y=\"" + Place(y) + "\" text-anchor=\"" + anchor + "\"" + more + ">" +
                Escaped(text) + "</text>\n";
    }
    void line(double x1, double y1, double x2, double y2, const char *colour) {
        svg_ += "<line x1=\"" + Place(x1) + "\" y1=\"" + Place(y1) + "\" x2=\"" + Place(x2) + "\" y2=\"" + Place(y2) +
                "\" stroke=\"" + colour + "\"/>\n";
    }

    void head() {
        const std::string size = std::to_string(q_.width) + "\" height=\"" + std::to_string(q_.height);
        svg_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size +
               "\" viewBox=\"0 0 " + std::to_string(q_.width) + " " + std::to_string(q_.height) +
               "\" font-family=\"sans-serif\" font-size=\"14\" fill=\"#222\">\n<rect width=\"100%\" height=\"100%\" "
               "fill=\"white\"/>\n";
        if (!q_.title.empty())
            words((left_ + right_) / 2, 30, "middle", q_.title, " font-size=\"18\"");
    }
    void grid() {
        for (const AxisMark &mark : x_.marks()) {
            line(across(mark.place), top_, across(mark.place), bottom_, "#e4e4e4");
            words(across(mark.place), bottom_ + 20, "middle", mark.text.empty() ? "(default)" : mark.text);
        }
        for (const AxisMark &mark : y_.marks()) {
            line(left_, up(mark.place), right_, up(mark.place), "#e4e4e4");
            words(left_ - 8, up(mark.place) + 5, "end", mark.text);
        }
        line(left_, bottom_, right_, bottom_, "#222");
        line(left_, bottom_, left_, top_, "#222");
        words((left_ + right_) / 2, bottom_ + 44, "middle", TitleOf(plot_.x.name));
        const double middle = (top_ + bottom_) / 2;
        words(20, middle, "middle", TitleOf(plot_.y.name), " transform=\"rotate(-90 20 " + Place(middle) + ")\"");
    }

    // A line where every x has one value; where other columns vary too, the marks alone.
    void group(std::size_t k) {
        const std::vector<PlotPoint> &points = plot_.groups[k].points;
        const std::string colour = GroupColour(k, plot_.groups.size());
        const bool single =
            std::adjacent_find(points.begin(), points.end(),
                               [](const PlotPoint &a, const PlotPoint &b) { return a.x == b.x; }) == points.end();
        if (single && points.size() > 1 && plot_.x.words.empty()) {
            svg_ += "<polyline fill=\"none\" stroke=\"" + colour + "\" stroke-width=\"2\" points=\"";
            for (const PlotPoint &p : points)
                svg_ += Place(across(x_.place(p.x))) + "," + Place(up(y_.place(p.y))) + " ";
            svg_ += "\"/>\n";
        }
        for (const PlotPoint &p : points)
            svg_ += Mark(k, across(x_.place(p.x)), up(y_.place(p.y)), colour, p.met);
    }

    void legend() {
        double y = top_ + 8;
        words(right_ + 18, y, "start", TitleOf(plot_.by), " font-weight=\"bold\"");
        const std::size_t shown = std::min(plot_.groups.size(), static_cast<std::size_t>((bottom_ - top_) / 22) - 1);
        for (std::size_t k = 0; k < shown; ++k) {
            y += 22;
            svg_ += Mark(k, right_ + 26, y - 5, GroupColour(k, plot_.groups.size()), true);
            words(right_ + 40, y, "start",
                  k + 1 == shown && shown < plot_.groups.size() ? "..." : plot_.groups[k].name);
        }
    }

    void foot() {
        bool open = false;
        for (const Group &g : plot_.groups)
            for (const PlotPoint &p : g.points)
                open = open || !p.met;
        std::string text = open ? "hollow: checks not met" : "";
        if (plot_.leftOut > 0)
            text += (text.empty() ? "" : "; ") + std::to_string(plot_.leftOut) + " rows without values left out";
        if (!text.empty())
            words(right_, q_.height - 6, "end", text, " font-size=\"12\" fill=\"#666\"");
    }

    const Plot &plot_;
    const PlotQuestion &q_;
    PlotAxis x_, y_;
    double left_ = 84, right_ = 0, top_ = 0, bottom_ = 0;
    std::string svg_;
};

} // namespace

std::string PlotSvg(const CsvTable &table, const PlotQuestion &question) {
    const Plot plot = ReadPlot(table, question);
    return Picture(plot, question).text();
}

} // namespace havuz
