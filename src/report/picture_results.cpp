#include "report/picture_results.h"

#include <algorithm>

namespace havuz {

using consistent::CaseResult;

static constexpr const char *kWithoutTension = "/free"; // after the key of the combination

static void AddEnvelopes(const TankAnswer &answer, std::vector<PictureResult> &all) {
    for (const bool factored : {false, true}) {
        if (EnvelopeMembers(answer, factored).size() < 2)
            continue;
        const std::string words = factored ? "zarf (katsayılı)" : "zarf";
        for (const bool greatest : {true, false})
            all.push_back({PictureResult::Envelope,
                           std::string("envelope-") + (greatest ? "most" : "least") + (factored ? "-u" : ""),
                           words + (greatest ? ", en büyük" : ", en küçük"), factored, greatest});
    }
}

std::vector<PictureResult> PictureResults(const TankAnswer &answer) {
    std::vector<PictureResult> all;
    for (const design::DesignCombination &c : answer.basis.combinations)
        all.push_back({PictureResult::Combination, c.sum.key, design::TurkishName(c.sum.key)});
    for (const design::SoilState &s : answer.design.soil)
        if (s.free != nullptr)
            all.push_back({PictureResult::WithoutTension, s.combination + kWithoutTension,
                           design::TurkishName(s.combination) + ", çekmeyen zemin"});
    AddEnvelopes(answer, all);
    for (const consistent::Case c : consistent::kAllCases)
        if (answer.analysis->active(c)) {
            const consistent::CaseName &name = consistent::NameOf(c);
            all.push_back({PictureResult::LoadCase, std::string(name.key),
                           std::string(name.key) + "  " + std::string(name.turkish)});
        }
    return all;
}

const CaseResult *CaseOf(const TankAnswer &answer, const PictureResult &shown) {
    if (shown.kind == PictureResult::WithoutTension) {
        for (const design::SoilState &s : answer.design.soil)
            if (s.combination + kWithoutTension == shown.key)
                return s.free.get();
        return nullptr;
    }
    const auto &list = shown.kind == PictureResult::LoadCase ? answer.design.cases : answer.design.combinations;
    const auto found = std::find_if(list.begin(), list.end(), [&](const CaseResult &r) { return r.key == shown.key; });
    return found == list.end() ? nullptr : &*found;
}

std::vector<const CaseResult *> EnvelopeMembers(const TankAnswer &answer, bool factored) {
    std::vector<const CaseResult *> members;
    for (std::size_t i = 0; i < answer.basis.combinations.size() && i < answer.design.combinations.size(); ++i)
        if (answer.basis.combinations[i].factored == factored)
            members.push_back(&answer.design.combinations[i]);
    return members;
}

ResultScene SceneOf(const TankAnswer &answer, const PictureResult &shown, const Quantity &q,
                    const PictureChoice &choice) {
    if (const CaseResult *one = CaseOf(answer, shown); one != nullptr)
        return SceneOf(*answer.analysis, *one, q, choice);
    ResultScene scene;
    for (const CaseResult *r : EnvelopeMembers(answer, shown.factored)) {
        ResultScene next = SceneOf(*answer.analysis, *r, q, choice);
        if (scene.faces.empty()) {
            scene = std::move(next);
            continue;
        }
        for (std::size_t f = 0; f < scene.faces.size(); ++f)
            for (std::size_t k = 0; k < 4; ++k) {
                double &value = scene.faces[f].value[k];
                const double other = next.faces[f].value[k];
                value = shown.greatest ? std::max(value, other) : std::min(value, other);
            }
    }
    for (ResultFace &face : scene.faces)
        face.moved = {};
    return scene;
}

} // namespace havuz
