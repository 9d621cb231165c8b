#include "model/parameters.h"

#include "model/store.h"

#include <algorithm>

namespace havuz {

namespace {

using enum ParameterRecord;
// clang-format off
constexpr Parameter kParameters[] = {
    // name             variable         unit      start   pool  label                         record
    {"HavuzTip",        &HavuzTip,       "",       0.0,    {},   "pool type",                  Counts},
    {"HucreTip",        &HucreTip,       "",       0.0,    {},   "cell layout page",           Soil},
    {"ZeminKo",         &ZeminKo,        "t/m3",   2000.0, {},   "Ko subgrade coefficient",    Soil},
    {"ZeminGzem",       &ZeminGzem,      "t/m2",   20.0,   {},   "Gzem allowable soil stress", Soil},
    {"ZeminKa",         &ZeminKa,        "",       0.4,    {},   "Ka lateral soil load",       Soil},
    {"ZeminYogunluk",   &ZeminYogunluk,  "t/m3",   1.8,    {},   "soil density",               Soil},
    {"SiviYogunluk",    &SiviYogunluk,   "t/m3",   1.0,    {},   "liquid density",             Soil},
    {"YeraltiSuKotu",   &YeraltiSuKotu,  "m",      0.0,    {},   "groundwater level",          Soil},
    {"BolumX",          &BolumX,         "",       0.0,    4.0,  "cells in x",                 Pool},
    {"BolumY",          &BolumY,         "",       0.0,    2.0,  "cells in y",                 Pool},
    {"Lx",              &Lx,             "m",      0.0,    10.0, "Lx length in x",             Pool},
    {"Ly",              &Ly,             "m",      0.0,    5.0,  "Ly length in y",             Pool},
    {"KenarKalinlik",   &KenarKalinlik,  "cm",     0.0,    20.0, "dp wall thickness",          Pool},
    {"AltKalinlik",     &AltKalinlik,    "cm",     0.0,    30.0, "ds base thickness",          Pool},
    {"UstKot",          &UstKot,         "m",      0.0,    3.0,  "top level",                  Pool},
    {"AltKot",          &AltKot,         "m",      0.0,    0.0,  "bottom level",               Pool},
    {"SiviKotu",        &SiviKotu,       "m",      0.0,    3.0,  "liquid level",               Pool},
    {"ToprakKotu",      &ToprakKotu,     "m",      0.0,    3.0,  "soil level",                 Pool},
    {"Bk",              &Bk,             "m",      0.0,    1.0,  "Bk width of the top strip",  Pool},
    {"Fck",             &Fck,            "kg/cm2", 200.0,  {},   "concrete strength fck",      Materials},
    {"Fyk",             &Fyk,            "kg/cm2", 2200.0, {},   "steel strength fyk",         Materials},
    {"HesapYontem",     &HesapYontem,    "",       1.0,    {},   "design method",              Materials},
    {"MeshGenisligi",   &MeshGenisligi,  "m",      1.0,    {},   "unit mesh width",            None},
};
// clang-format on

} // namespace

std::span<const Parameter> Parameters() { return kParameters; }

const Parameter *FindParameter(std::string_view name) {
    const auto *found = std::find_if(std::begin(kParameters), std::end(kParameters),
                                     [name](const Parameter &p) { return p.name == name; });
    return found == std::end(kParameters) ? nullptr : found;
}

double MeshWidth() { return MeshGenisligi; }

void ResetParameterValues() {
    for (const Parameter &p : kParameters)
        *p.value = 0.0;
}

void StartParameterValues() {
    for (const Parameter &p : kParameters)
        *p.value = p.start;
}

void TakePoolParameters() {
    for (const Parameter &p : kParameters)
        if (p.pool)
            *p.value = *p.pool;
}

} // namespace havuz
