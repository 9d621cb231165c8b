#include "ui/window/model_state.h"

#include "model/store.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>

namespace havuz {

namespace {

using Bytes = std::span<std::byte>;

// Bytes of a record that are no part of the state.
struct Gap {
    std::size_t at, length;
};
constexpr std::size_t kEndOfDivisions = offsetof(PanelRecord, Ny) + sizeof(Int16);
constexpr std::size_t kEndOfCode = offsetof(NoktaRecord, PlakKodu) + sizeof(Int16);
constexpr std::size_t kEndOfNode = offsetof(NokYukRecord, Nokta) + sizeof(Int16);
constexpr Gap kPanelGaps[] = {{kEndOfDivisions, offsetof(PanelRecord, D) - kEndOfDivisions}};
constexpr Gap kMeshGaps[] = {{offsetof(MeshRecord, Derinlik), sizeof(Float32)},
                             {offsetof(MeshRecord, Sira), sizeof(std::int32_t)}};
constexpr Gap kNoktaGaps[] = {{kEndOfCode, sizeof(NoktaRecord) - kEndOfCode}};
constexpr Gap kYukGaps[] = {{kEndOfNode, offsetof(NokYukRecord, FX) - kEndOfNode}};

// Every other byte of a record is a field.
static_assert(sizeof(PlakRecord) == 3 * sizeof(PlakRecord::X) + 2 * sizeof(Int16) + sizeof(PlakRecord::KenarKodu) +
                                        2 * sizeof(PlakRecord::Sonraki));
static_assert(sizeof(PanelRecord) == 3 * sizeof(Float32) + 3 * sizeof(PanelRecord::X) + 4 * sizeof(Int16) +
                                         sizeof(PanelRecord::KenarMesnet) + sizeof(PanelRecord::KenarKomsu) +
                                         kPanelGaps[0].length);
static_assert(sizeof(MeshRecord) == 6 * sizeof(Float32) + 6 * sizeof(Int16) + sizeof(std::int32_t));
static_assert(sizeof(NoktaRecord) ==
              4 * sizeof(Float32) + 8 * sizeof(Int16) + sizeof(NoktaRecord::Denklem) + kNoktaGaps[0].length);
static_assert(sizeof(NokYukRecord) == 3 * sizeof(Float32) + sizeof(Int16) + kYukGaps[0].length);

struct Region {
    Bytes bytes;
    std::size_t record = 0; // size of one, where it has gaps
    std::span<const Gap> gaps = {};
};

template <class Record, int Capacity>
Region TableRegion(Table<Record, Capacity> &table, std::span<const Gap> gaps) {
    return {std::as_writable_bytes(std::span(&table[0], Capacity + 1)), sizeof(Record), gaps};
}

template <class Value>
Region ValueRegion(Value &value) {
    return {std::as_writable_bytes(std::span(&value, 1))};
}

// Everything but the title, whose length changes.
const std::vector<Region> &Regions() {
    static const std::vector<Region> regions = [] {
        std::vector<Region> made = {TableRegion(PlakTable, {}), TableRegion(PanelTable, kPanelGaps),
                                    TableRegion(MeshTable, kMeshGaps), TableRegion(NoktaTable, kNoktaGaps),
                                    TableRegion(NokYukTable, kYukGaps)};
        for (int *count : {&PlakCount, &PanelCount, &MeshCount, &NoktaCount, &HamNoktaCount})
            made.push_back(ValueRegion(*count));
        for (double *parameter :
             {&HavuzTip, &HucreTip, &ZeminKo,  &ZeminGzem,     &ZeminKa,     &ZeminYogunluk, &SiviYogunluk, &BolumX,
              &BolumY,   &Lx,       &Ly,       &KenarKalinlik, &AltKalinlik, &YeraltiSuKotu, &UstKot,       &AltKot,
              &Bk,       &Fck,      &SiviKotu, &ToprakKotu,    &Fyk,         &HesapYontem,   &MeshGenisligi})
            made.push_back(ValueRegion(*parameter));
        made.push_back(ValueRegion(YukDurum));
        made.push_back(ValueRegion(YukKombinasyon));
        made.push_back(ValueRegion(DonatiCaplari));
        return made;
    }();
    return regions;
}

constexpr std::size_t kWord = sizeof(std::uint64_t);
std::size_t WordsOf(std::size_t bytes) { return (bytes + kWord - 1) / kWord; }

std::size_t FixedWords() {
    static const std::size_t words = [] {
        std::size_t sum = 0;
        for (const Region &region : Regions())
            sum += WordsOf(region.bytes.size());
        return sum;
    }();
    return words;
}

// Calls job(at, length) for each gap of the region's records.
template <class Job>
void ForGaps(const Region &region, Job job) {
    for (std::size_t record = 0; !region.gaps.empty() && record < region.bytes.size(); record += region.record)
        for (const Gap gap : region.gaps)
            job(record + gap.at, gap.length);
}

} // namespace

void ModelState::take() {
    words_.resize(FixedWords() + 1 + WordsOf(ProjeIsmi.size()));
    auto *to = reinterpret_cast<std::byte *>(words_.data());
    for (const Region &region : Regions()) {
        std::memset(to + (WordsOf(region.bytes.size()) - 1) * kWord, 0, kWord); // the rest of the last word
        std::memcpy(to, region.bytes.data(), region.bytes.size());
        ForGaps(region, [to](std::size_t at, std::size_t length) { std::memset(to + at, 0, length); });
        to += WordsOf(region.bytes.size()) * kWord;
    }
    words_[FixedWords()] = ProjeIsmi.size();
    if (!ProjeIsmi.empty()) {
        words_.back() = 0;
        std::memcpy(to + kWord, ProjeIsmi.data(), ProjeIsmi.size());
    }
}

void ModelState::put() const {
    if (words_.empty())
        return;
    const auto *from = reinterpret_cast<const std::byte *>(words_.data());
    std::vector<std::byte> merged;
    for (const Region &region : Regions()) {
        merged.assign(from, from + region.bytes.size());
        ForGaps(region, [&](std::size_t at, std::size_t length) {
            std::memcpy(merged.data() + at, region.bytes.data() + at, length);
        });
        std::memcpy(region.bytes.data(), merged.data(), merged.size());
        from += WordsOf(region.bytes.size()) * kWord;
    }
    const std::size_t length = words_[FixedWords()];
    ProjeIsmi.assign(reinterpret_cast<const char *>(from + kWord), length);
}

// Words of the first tables of Regions().
static std::size_t WordsOfTables(std::size_t count) {
    std::size_t words = 0;
    for (std::size_t k = 0; k < count; ++k)
        words += WordsOf(Regions()[k].bytes.size());
    return words;
}

static bool Same(const ModelState &a, const ModelState &b, std::size_t first, std::size_t last) {
    return std::equal(a.words().begin() + static_cast<std::ptrdiff_t>(first),
                      a.words().begin() + static_cast<std::ptrdiff_t>(last),
                      b.words().begin() + static_cast<std::ptrdiff_t>(first));
}

static constexpr std::size_t kPlateTables = 2, kMeshTables = 4, kTables = 5, kPlateCounts = 7; // of Regions()

bool ModelState::samePlates(const ModelState &other) const {
    return Same(*this, other, 0, WordsOfTables(kPlateTables)) &&
           Same(*this, other, WordsOfTables(kTables), WordsOfTables(kPlateCounts));
}

bool ModelState::sameMesh(const ModelState &other) const {
    return Same(*this, other, WordsOfTables(kPlateTables), WordsOfTables(kMeshTables));
}

ModelDifference::ModelDifference(const ModelState &from, const ModelState &to)
    : fromSize_(from.words().size()), toSize_(to.words().size()) {
    const auto at = [](const ModelState::Words &words, std::size_t k) { return k < words.size() ? words[k] : 0; };
    const std::size_t size = std::max(fromSize_, toSize_);
    for (std::size_t k = 0; k < size; ++k) {
        const std::uint64_t change = at(from.words(), k) ^ at(to.words(), k);
        if (change == 0)
            continue;
        if (runs_.empty() || runs_.back().first + runs_.back().length != k)
            runs_.push_back({static_cast<std::uint32_t>(k), 0});
        ++runs_.back().length;
        words_.push_back(change);
    }
    runs_.shrink_to_fit();
    words_.shrink_to_fit();
}

void ModelDifference::apply(ModelState &state) const {
    ModelState::Words words = state.words();
    const std::size_t size = words.size() == fromSize_ ? toSize_ : fromSize_;
    words.resize(std::max(fromSize_, toSize_), 0);
    std::size_t taken = 0;
    for (const Run run : runs_)
        for (std::uint32_t k = 0; k < run.length; ++k)
            words[run.first + k] ^= words_[taken++];
    words.resize(size);
    state.set(std::move(words));
}

} // namespace havuz
