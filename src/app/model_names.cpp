#include "app/model_names.h"

#include "app/cli.h"
#include "model/number_text.h"
#include "model/store.h"

#include <algorithm>
#include <map>

namespace havuz {

namespace {

const std::map<std::string, double *> kScalars = {
    {"HavuzTip", &HavuzTip},
    {"HucreTip", &HucreTip},
    {"ZeminKo", &ZeminKo},
    {"ZeminGzem", &ZeminGzem},
    {"ZeminKa", &ZeminKa},
    {"ZeminYogunluk", &ZeminYogunluk},
    {"SiviYogunluk", &SiviYogunluk},
    {"YeraltiSuKotu", &YeraltiSuKotu},
    {"BolumX", &BolumX},
    {"BolumY", &BolumY},
    {"Lx", &Lx},
    {"Ly", &Ly},
    {"KenarKalinlik", &KenarKalinlik},
    {"AltKalinlik", &AltKalinlik},
    {"UstKot", &UstKot},
    {"AltKot", &AltKot},
    {"SiviKotu", &SiviKotu},
    {"ToprakKotu", &ToprakKotu},
    {"Bk", &Bk},
    {"Fck", &Fck},
    {"Fyk", &Fyk},
    {"HesapYontem", &HesapYontem},
    {"MeshGenisligi", &MeshGenisligi},
};

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
int PlaceOf(const Assignment &a, std::size_t which, std::size_t count, int first, int last, const char *table) {
    if (a.places.size() != count)
        throw UsageError(a.name + " takes " + std::to_string(count) + (count == 1 ? " place" : " places") +
                         " in brackets");
    const int place = a.places[which];
    if (place < first || place > last)
        throw RuntimeFailure(Subscript, std::string(table) + "(" + std::to_string(place) + ") lies outside " +
                                            std::to_string(first) + ".." + std::to_string(last));
    return place;
}

bool SetScalar(const Assignment &a) {
    if (a.name == "ProjeIsmi") {
        if (!a.places.empty() || a.value.find_first_of("\r\n") != std::string::npos)
            throw UsageError("ProjeIsmi is one line of text");
        ProjeIsmi = a.value;
        return true;
    }
    const auto found = kScalars.find(a.name);
    if (found == kScalars.end())
        return false;
    if (!a.places.empty())
        throw UsageError(a.name + " takes no place in brackets");
    *found->second = NumberOf(a);
    return true;
}

// Each returns false when the name is no field of its table.

bool SetNode(const Assignment &a) {
    const std::map<std::string, Float32 NoktaRecord::*> coordinates = {
        {"X", &NoktaRecord::X}, {"Y", &NoktaRecord::Y}, {"Z", &NoktaRecord::Z}};
    const auto found = coordinates.find(a.name);
    if (found == coordinates.end() && a.name != "Mesnet")
        return false;
    NoktaRecord &node = NoktaTable[PlaceOf(a, 0, 1, 1, NoktaCount, "NoktaTable")];
    if (found != coordinates.end())
        node.*found->second = NumberOf(a);
    else
        node.Mesnet = NumberOf(a);
    return true;
}

bool SetLoad(const Assignment &a) {
    const std::map<std::string, Float32 NokYukRecord::*> forces = {
        {"FX", &NokYukRecord::FX}, {"FY", &NokYukRecord::FY}, {"FZ", &NokYukRecord::FZ}};
    const auto found = forces.find(a.name);
    if (found == forces.end())
        return false;
    const int no = PlaceOf(a, 0, 1, 1, NoktaCount, "NokYukTable");
    NokYukTable[no].Nokta = no;
    NokYukTable[no].*found->second = NumberOf(a);
    return true;
}

bool SetMesh(const Assignment &a) {
    if (a.name != "Sil")
        return false;
    MeshTable[PlaceOf(a, 0, 1, 1, MeshCount, "MeshTable")].Sil = NumberOf(a);
    return true;
}

bool SetPanel(const Assignment &a) {
    const std::map<std::string, Float32 PanelRecord::*> numbers = {
        {"D", &PanelRecord::D}, {"G", &PanelRecord::G}, {"P", &PanelRecord::P}};
    const std::map<std::string, Int16 PanelRecord::*> wholes = {
        {"Nx", &PanelRecord::Nx}, {"Ny", &PanelRecord::Ny}, {"Tip", &PanelRecord::Tip}};
    const auto number = numbers.find(a.name);
    const auto whole = wholes.find(a.name);
    const bool edge = a.name == "KenarMesnet";
    if (number == numbers.end() && whole == wholes.end() && !edge)
        return false;
    PanelRecord &panel = PanelTable[PlaceOf(a, 0, edge ? 2 : 1, 1, PanelCount, "PanelTable")];
    if (edge)
        panel.KenarMesnet[PlaceOf(a, 1, 2, 1, 4, "KenarMesnet")] = NumberOf(a);
    else if (number != numbers.end())
        panel.*number->second = NumberOf(a);
    else
        panel.*whole->second = NumberOf(a);
    return true;
}

bool SetPlak(const Assignment &a) {
    if (a.name != "Kalinlik")
        return false;
    PlakTable[PlaceOf(a, 0, 1, 1, PlakCount, "PlakTable")].Kalinlik = NumberOf(a);
    return true;
}

std::vector<int> ParsePlaces(const std::string &text, const std::string &whole) {
    std::vector<int> places;
    std::size_t at = 0;
    while (at <= text.size()) {
        const std::size_t end = std::min(text.find(',', at), text.size());
        const std::string part = text.substr(at, end - at);
        if (part.empty() || part.size() > 6 || part.find_first_not_of("0123456789") != std::string::npos)
            throw UsageError("\"" + whole + "\" is not NAME=VALUE");
        places.push_back(std::stoi(part));
        at = end + 1;
    }
    return places;
}

} // namespace

Assignment ParseAssignment(const std::string &text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw UsageError("\"" + text + "\" is not NAME=VALUE");
    Assignment a;
    a.name = text.substr(0, equals);
    a.value = text.substr(equals + 1);
    if (const std::size_t open = a.name.find('('); open != std::string::npos) {
        if (a.name.back() != ')')
            throw UsageError("\"" + text + "\" is not NAME=VALUE");
        a.places = ParsePlaces(a.name.substr(open + 1, a.name.size() - open - 2), text);
        a.name.erase(open);
    }
    return a;
}

bool SetParameter(const Assignment &a) {
    if (a.name == "YukDurum")
        YukDurum[PlaceOf(a, 0, 1, 0, kYukDurumLast, "YukDurum")] = NumberOf(a);
    else if (a.name == "YukKombinasyon")
        YukKombinasyon[PlaceOf(a, 0, 1, 0, kYukKombinasyonLast, "YukKombinasyon")] = NumberOf(a);
    else if (a.name == "DonatiCaplari")
        DonatiCaplari[PlaceOf(a, 0, 1, 1, 13, "DonatiCaplari")] = NumberOf(a);
    else
        return SetScalar(a);
    return true;
}

void SetModelValue(const Assignment &a) {
    if (!(SetParameter(a) || SetNode(a) || SetLoad(a) || SetMesh(a) || SetPanel(a) || SetPlak(a)))
        throw UsageError("\"" + a.name + "\" is no parameter or field of the model");
}

} // namespace havuz
