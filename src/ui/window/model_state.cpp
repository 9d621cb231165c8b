#include "ui/window/model_state.h"

#include "model/store.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>

namespace havuz {

namespace {

using Bytes = std::span<std::byte>;

// The parts of a state: five tables, the values, the title.
constexpr std::size_t kTables = 5, kValues = kTables, kTitle = kTables + 1;
static_assert(kTitle + 1 == ModelState::kParts);

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
    std::size_t record = 1; // size of one
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

std::array<Region, kTables> Tables() {
    return {TableRegion(PlakTable, {}), TableRegion(PanelTable, kPanelGaps), TableRegion(MeshTable, kMeshGaps),
            TableRegion(NoktaTable, kNoktaGaps), TableRegion(NokYukTable, kYukGaps)};
}

// Counts, those of the plates first, and parameters.
const std::vector<Region> &Values() {
    static const std::vector<Region> values = [] {
        std::vector<Region> made;
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
    return values;
}

constexpr std::size_t kWord = sizeof(std::uint64_t);
std::size_t WordsOf(std::size_t bytes) { return (bytes + kWord - 1) / kWord; }

// Bytes of the region up to its last record that is not blank.
std::size_t UsedBytes(const Region &region) {
    static constexpr std::array<std::byte, 4096> blank{};
    std::size_t used = region.bytes.size();
    while (used > 0) {
        const std::size_t piece = std::min(used, blank.size());
        if (std::memcmp(region.bytes.data() + used - piece, blank.data(), piece) != 0)
            break;
        used -= piece;
    }
    while (used > 0 && region.bytes[used - 1] == std::byte{0})
        --used;
    return (used + region.record - 1) / region.record * region.record;
}

// Calls job(at, length) for each gap of the records in the first bytes of a region.
template <class Job>
void ForGaps(const Region &region, std::size_t bytes, Job job) {
    for (std::size_t record = 0; !region.gaps.empty() && record < bytes; record += region.record)
        for (const Gap gap : region.gaps)
            job(record + gap.at, gap.length);
}

void TakeBytes(ModelState::Words &words, const std::byte *from, std::size_t size) {
    words.resize(WordsOf(size));
    if (size == 0)
        return;
    words.back() = 0; // behind the last byte
    std::memcpy(words.data(), from, size);
}

void CutBlanks(ModelState::Words &words) {
    while (!words.empty() && words.back() == 0)
        words.pop_back();
}

void TakeTable(ModelState::Words &words, const Region &table) {
    const std::size_t used = UsedBytes(table);
    TakeBytes(words, table.bytes.data(), used);
    auto *to = reinterpret_cast<std::byte *>(words.data());
    ForGaps(table, used, [to](std::size_t at, std::size_t length) { std::memset(to + at, 0, length); });
    CutBlanks(words);
}

// Over what was there, blank records included.
void PutTable(const ModelState::Words &words, const Region &table) {
    const std::size_t kept = std::min(words.size() * kWord, table.bytes.size());
    std::vector<std::byte> merged(std::max((kept + table.record - 1) / table.record * table.record, UsedBytes(table)));
    std::copy_n(reinterpret_cast<const std::byte *>(words.data()), kept, merged.begin());
    ForGaps(table, merged.size(), [&](std::size_t at, std::size_t length) {
        std::memcpy(merged.data() + at, table.bytes.data() + at, length);
    });
    std::copy(merged.begin(), merged.end(), table.bytes.begin());
}

// The title has its length in the first word.
void TakeTitle(ModelState::Words &words) {
    TakeBytes(words, reinterpret_cast<const std::byte *>(ProjeIsmi.data()), ProjeIsmi.size());
    words.insert(words.begin(), ProjeIsmi.size());
    CutBlanks(words);
}

void PutTitle(ModelState::Words words) {
    const std::size_t length = words.empty() ? 0 : words[0];
    words.resize(1 + WordsOf(length));
    ProjeIsmi.assign(reinterpret_cast<const char *>(words.data() + 1), length);
}

} // namespace

void ModelState::take() {
    const auto tables = Tables();
    for (std::size_t k = 0; k < kTables; ++k)
        TakeTable(parts_[k], tables[k]);
    Words &values = parts_[kValues];
    values.clear();
    for (const Region &value : Values()) {
        values.resize(values.size() + WordsOf(value.bytes.size()), 0);
        std::memcpy(&values[values.size() - WordsOf(value.bytes.size())], value.bytes.data(), value.bytes.size());
    }
    TakeTitle(parts_[kTitle]);
}

void ModelState::put() const {
    if (parts_[kValues].empty())
        return;
    const auto tables = Tables();
    for (std::size_t k = 0; k < kTables; ++k)
        PutTable(parts_[k], tables[k]);
    const std::uint64_t *from = parts_[kValues].data();
    for (const Region &value : Values()) {
        std::memcpy(value.bytes.data(), from, value.bytes.size());
        from += WordsOf(value.bytes.size());
    }
    PutTitle(parts_[kTitle]);
}

bool ModelState::samePlates(const ModelState &other) const {
    constexpr std::ptrdiff_t kPlateCounts = 2;
    const Words &values = parts_[kValues], &others = other.parts_[kValues];
    return parts_[0] == other.parts_[0] && parts_[1] == other.parts_[1] && values.empty() == others.empty() &&
           (values.empty() || std::equal(values.begin(), values.begin() + kPlateCounts, others.begin()));
}

bool ModelState::sameMesh(const ModelState &other) const {
    return parts_[2] == other.parts_[2] && parts_[3] == other.parts_[3];
}

namespace {

std::uint64_t WordAt(const ModelState::Words &words, std::size_t k) { return k < words.size() ? words[k] : 0; }

} // namespace

ModelDifference::ModelDifference(const ModelState &from, const ModelState &to) {
    for (std::size_t no = 0; no < ModelState::kParts; ++no) {
        const ModelState::Words &a = from.part(no), &b = to.part(no);
        if (a == b)
            continue;
        Part part{no, a.size(), b.size(), {}, {}};
        for (std::size_t k = 0; k < std::max(a.size(), b.size()); ++k) {
            const std::uint64_t change = WordAt(a, k) ^ WordAt(b, k);
            if (change == 0)
                continue;
            if (part.runs.empty() || part.runs.back().first + part.runs.back().length != k)
                part.runs.push_back({static_cast<std::uint32_t>(k), 0});
            ++part.runs.back().length;
            part.words.push_back(change);
        }
        part.runs.shrink_to_fit();
        part.words.shrink_to_fit();
        parts_.push_back(std::move(part));
    }
}

void ModelDifference::apply(ModelState &state) const {
    for (const Part &part : parts_) {
        ModelState::Words &words = state.part(part.no);
        const std::size_t size = words.size() == part.fromSize ? part.toSize : part.fromSize;
        words.resize(std::max(part.fromSize, part.toSize), 0);
        std::size_t taken = 0;
        for (const Run run : part.runs)
            for (std::uint32_t k = 0; k < run.length; ++k)
                words[run.first + k] ^= part.words[taken++];
        words.resize(size);
    }
}

std::size_t ModelDifference::bytes() const {
    std::size_t sum = 0;
    for (const Part &part : parts_)
        sum += sizeof(Part) + part.runs.size() * sizeof(Run) + part.words.size() * sizeof(std::uint64_t);
    return sum;
}

} // namespace havuz
