#include "app/model_names.h"

#include "app/cli.h"
#include "model/number_text.h"
#include "model/parameters.h"
#include "model/store.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <optional>
#include <utility>

namespace havuz {

namespace {

// Numbers as a person types them, but strict: text that is no number is refused here.
double NumberOf(const Assignment &a) {
    std::string text = a.value;
    if (const std::size_t comma = text.find(','); comma != std::string::npos)
        text[comma] = '.';
    if (const auto value = ReadNumberField(text))
        return *value;
    throw UsageError(a.name + ": \"" + a.value + "\" is not a number");
}

// The one place of a name such as Mesnet(17), within first..last of the table or list named.
int PlaceOf(const Assignment &a, std::size_t which, std::size_t count, int first, int last, Thing table) {
    if (a.places.size() != count)
        throw UsageError(a.name + " takes " + std::to_string(count) + (count == 1 ? " place" : " places") +
                         " in brackets");
    const int place = a.places[which];
    if (place < first || place > last)
        throw RuntimeFailure({.thing = table, .number = place, .first = first, .bound = last});
    return place;
}

// One number of the model, to be read and to be written.
struct Slot {
    std::function<std::string()> text;
    std::function<void(double)> write;
};

std::string TextOf(double value) { return NumberText(value); }
std::string TextOf(Float32 value) { return NumberText(value); }
std::string TextOf(Int16 value) { return std::to_string(value); }

// The field outlives the slot: all are the store's.
template <class Field>
Slot SlotOf(Field &field) {
    return {[&field] { return TextOf(field); }, [&field](double value) { field = value; }};
}

// The field of a record that a name stands for; nothing when it is none of them.
template <class Record, class Field>
using Fields = std::initializer_list<std::pair<const char *, Field Record::*>>;

template <class Record, class Field>
Field Record::*FieldCalled(const std::string &name, Fields<Record, Field> fields) {
    for (const auto &[word, field] : fields)
        if (name == word)
            return field;
    return nullptr;
}

// Each gives nothing when the name is no field of its table.

std::optional<Slot> ParameterSlot(const Assignment &a) {
    if (a.name == "YukDurum")
        return SlotOf(YukDurum[PlaceOf(a, 0, 1, 0, kYukDurumLast, Thing::YukDurum)]);
    if (a.name == "YukKombinasyon")
        return SlotOf(YukKombinasyon[PlaceOf(a, 0, 1, 0, kYukKombinasyonLast, Thing::YukKombinasyon)]);
    if (a.name == "DonatiCaplari")
        return SlotOf(DonatiCaplari[PlaceOf(a, 0, 1, 1, 13, Thing::DonatiCaplari)]);
    const Parameter *found = FindParameter(a.name);
    if (found == nullptr)
        return {};
    if (!a.places.empty())
        throw UsageError(a.name + " takes no place in brackets");
    return SlotOf(*found->value);
}

std::optional<Slot> NodeSlot(const Assignment &a) {
    const auto coordinate = FieldCalled<NoktaRecord, Float32>(
        a.name, {{"X", &NoktaRecord::X}, {"Y", &NoktaRecord::Y}, {"Z", &NoktaRecord::Z}});
    if (coordinate == nullptr && a.name != "Mesnet")
        return {};
    NoktaRecord &node = NoktaTable[PlaceOf(a, 0, 1, 1, NoktaCount, Thing::NoktaTable)];
    return coordinate != nullptr ? SlotOf(node.*coordinate) : SlotOf(node.Mesnet);
}

// A load that is written belongs to its node from then on.
std::optional<Slot> LoadSlot(const Assignment &a) {
    const auto force = FieldCalled<NokYukRecord, Float32>(
        a.name, {{"FX", &NokYukRecord::FX}, {"FY", &NokYukRecord::FY}, {"FZ", &NokYukRecord::FZ}});
    if (force == nullptr)
        return {};
    const int no = PlaceOf(a, 0, 1, 1, NoktaCount, Thing::NokYukTable);
    return Slot{[no, force] { return TextOf(NokYukTable[no].*force); },
                [no, force](double value) {
                    NokYukTable[no].Nokta = no;
                    NokYukTable[no].*force = value;
                }};
}

std::optional<Slot> MeshSlot(const Assignment &a) {
    if (a.name != "Sil")
        return {};
    return SlotOf(MeshTable[PlaceOf(a, 0, 1, 1, MeshCount, Thing::MeshTable)].Sil);
}

std::optional<Slot> PanelSlot(const Assignment &a) {
    const auto number = FieldCalled<PanelRecord, Float32>(
        a.name, {{"D", &PanelRecord::D}, {"G", &PanelRecord::G}, {"P", &PanelRecord::P}});
    const auto whole = FieldCalled<PanelRecord, Int16>(
        a.name, {{"Nx", &PanelRecord::Nx}, {"Ny", &PanelRecord::Ny}, {"Tip", &PanelRecord::Tip}});
    const bool edge = a.name == "KenarMesnet";
    if (number == nullptr && whole == nullptr && !edge)
        return {};
    PanelRecord &panel = PanelTable[PlaceOf(a, 0, edge ? 2 : 1, 1, PanelCount, Thing::PanelTable)];
    if (edge)
        return SlotOf(panel.KenarMesnet[PlaceOf(a, 1, 2, 1, 4, Thing::KenarMesnet)]);
    return number != nullptr ? SlotOf(panel.*number) : SlotOf(panel.*whole);
}

std::optional<Slot> PlakSlot(const Assignment &a) {
    if (a.name != "Kalinlik")
        return {};
    return SlotOf(PlakTable[PlaceOf(a, 0, 1, 1, PlakCount, Thing::PlakTable)].Kalinlik);
}

// True when the name is one of that table, also when its place is outside.
bool Takes(std::optional<Slot> (*slotOf)(const Assignment &), const Assignment &a) {
    try {
        return slotOf(a).has_value();
    } catch (const RuntimeFailure &) {
        return true;
    }
}

Slot SlotCalled(const Assignment &a) {
    for (const auto slotOf : {ParameterSlot, NodeSlot, LoadSlot, MeshSlot, PanelSlot, PlakSlot})
        if (std::optional<Slot> slot = slotOf(a))
            return *slot;
    throw UsageError("\"" + a.name + "\" is no parameter or field of the model");
}

// The one parameter that is text.
bool SetTitle(const Assignment &a) {
    if (a.name != "ProjeIsmi")
        return false;
    if (!a.places.empty() || a.value.find_first_of("\r\n") != std::string::npos)
        throw UsageError("ProjeIsmi is one line of text");
    ProjeIsmi = a.value;
    return true;
}

std::vector<int> ParsePlaces(const std::string &text, const std::string &refused) {
    std::vector<int> places;
    std::size_t at = 0;
    while (at <= text.size()) {
        const std::size_t end = std::min(text.find(',', at), text.size());
        const std::string part = text.substr(at, end - at);
        if (part.empty() || part.size() > 6 || part.find_first_not_of("0123456789") != std::string::npos)
            throw UsageError(refused);
        places.push_back(std::stoi(part));
        at = end + 1;
    }
    return places;
}

// NAME or NAME(place,...), without a value.
Assignment ParseName(const std::string &text, const std::string &refused) {
    Assignment a{text, {}, ""};
    if (const std::size_t open = text.find('('); open != std::string::npos) {
        if (text.back() != ')')
            throw UsageError(refused);
        a.places = ParsePlaces(text.substr(open + 1, text.size() - open - 2), refused);
        a.name.erase(open);
    }
    return a;
}

} // namespace

Assignment ParseAssignment(const std::string &text) {
    const std::string refused = "\"" + text + "\" is not NAME=VALUE";
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw UsageError(refused);
    Assignment a = ParseName(text.substr(0, equals), refused);
    a.value = text.substr(equals + 1);
    return a;
}

bool SetParameter(const Assignment &a) {
    if (SetTitle(a))
        return true;
    const std::optional<Slot> slot = ParameterSlot(a);
    if (slot)
        slot->write(NumberOf(a));
    return slot.has_value();
}

void SetModelValue(const Assignment &a) {
    if (!SetTitle(a))
        SlotCalled(a).write(NumberOf(a));
}

ModelPart PartOfModel(const Assignment &a) {
    if (a.name == "ProjeIsmi" || Takes(ParameterSlot, a))
        return ModelPart::Parameter;
    if (Takes(PanelSlot, a) || Takes(PlakSlot, a))
        return ModelPart::ShapePart;
    if (Takes(NodeSlot, a) || Takes(LoadSlot, a) || Takes(MeshSlot, a))
        return ModelPart::MeshPart;
    throw UsageError("\"" + a.name + "\" is no parameter or field of the model");
}

Assignment ParseModelName(const std::string &text) { return ParseName(text, "\"" + text + "\" is no name of a value"); }

std::string ModelValueText(const std::string &name) {
    const Assignment a = ParseModelName(name);
    return a.name == "ProjeIsmi" ? ProjeIsmi : SlotCalled(a).text();
}

} // namespace havuz
