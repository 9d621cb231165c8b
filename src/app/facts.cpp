#include "app/facts.h"

#include "model/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <ostream>

namespace havuz {

namespace {

template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

// A number for a person: at most six decimals, a digit before the point.
std::string Plain(double value) { return PictureText(value, "##0.######"); }

std::string Text(const FactValue &value) {
    return std::visit(Overloaded{
                          [](double v) { return Plain(v); },
                          [](bool v) { return std::string(v ? "yes" : "no"); },
                          [](const std::string &v) { return v; },
                          [](const std::vector<double> &v) {
                              std::string all;
                              for (const double d : v)
                                  all += (all.empty() ? "" : ", ") + Plain(d);
                              return all.empty() ? std::string("none") : all;
                          },
                          [](const std::vector<std::string> &v) {
                              std::string all;
                              for (const std::string &s : v)
                                  all += (all.empty() ? "" : ", ") + s;
                              return all.empty() ? std::string("none") : all;
                          },
                          [](const Lines &v) {
                              std::string all;
                              for (const std::string &line : v.lines)
                                  all += "\n    " + line;
                              return all.empty() ? std::string("none") : all;
                          },
                      },
                      value);
}

std::string JsonNumber(double value) {
    if (!std::isfinite(value))
        return "null";
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

// A path may hold bytes that are no UTF-8: they become U+FFFD.
std::string JsonString(const std::string &text) {
    using nlohmann::json;
    return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

template <class Element, class Convert>
std::string JsonArray(const std::vector<Element> &elements, Convert convert) {
    std::string all = "[";
    for (const Element &e : elements)
        all += (all.size() > 1 ? ", " : "") + convert(e);
    return all + "]";
}

std::string Json(const FactValue &value) {
    return std::visit(Overloaded{
                          [](double v) { return JsonNumber(v); },
                          [](bool v) { return std::string(v ? "true" : "false"); },
                          [](const std::string &v) { return JsonString(v); },
                          [](const std::vector<double> &v) { return JsonArray(v, JsonNumber); },
                          [](const std::vector<std::string> &v) { return JsonArray(v, JsonString); },
                          [](const Lines &v) { return JsonArray(v.lines, JsonString); },
                      },
                      value);
}

} // namespace

void PrintFacts(const std::vector<FactSection> &sections, std::ostream &out) {
    for (const FactSection &section : sections) {
        out << section.title << "\n";
        for (const Fact &fact : section.facts) {
            std::string label = fact.label;
            label.resize(label.size() < 34 ? 34 : label.size() + 1, ' ');
            out << "  " << label << Text(fact.value) << (fact.unit.empty() ? "" : " " + fact.unit) << "\n";
        }
    }
}

void PrintFactsAsJson(const std::vector<FactSection> &sections, std::ostream &out) {
    out << "{\n";
    for (std::size_t s = 0; s < sections.size(); ++s) {
        out << "  " << JsonString(sections[s].key) << ": {\n";
        const std::vector<Fact> &facts = sections[s].facts;
        for (std::size_t f = 0; f < facts.size(); ++f)
            out << "    " << JsonString(facts[f].key) << ": " << Json(facts[f].value)
                << (f + 1 < facts.size() ? ",\n" : "\n");
        out << "  }" << (s + 1 < sections.size() ? ",\n" : "\n");
    }
    out << "}\n";
}

} // namespace havuz
