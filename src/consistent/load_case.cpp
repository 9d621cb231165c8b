#include "consistent/load_case.h"

namespace havuz::consistent {

static constexpr std::array<CaseName, kCases> kNames = {{
    {"G", "dead load", "ölü yük"},
    {"P", "live load", "hareketli yük"},
    {"N", "point loads", "tekil yükler"},
    {"L", "liquid", "sıvı"},
    {"S", "soil", "toprak"},
    {"W", "groundwater on walls", "duvarlarda yeraltı suyu"},
    {"U", "uplift under slabs", "döşeme altında kaldırma"},
    {"Q", "surcharge behind walls", "duvar arkasında sürşarj"},
}};

const CaseName &NameOf(Case c) { return kNames.at(static_cast<std::size_t>(c)); }

} // namespace havuz::consistent
