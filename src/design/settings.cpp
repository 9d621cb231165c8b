#include "design/settings.h"

#include "design/failure.h"
#include "model/failure.h"
#include "model/files.h"
#include "model/write_file.h"

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

namespace havuz::design {

using nlohmann::json;

namespace {

// Every number of the file once: its name, its place, the range in which it is taken.
struct Number {
    const char *name;
    double Settings::*value;
    double least, greatest;
};
constexpr std::array kNumbers = {
    Number{"coverInner", &Settings::coverInner, 0.5, 20.0},
    Number{"coverOuter", &Settings::coverOuter, 0.5, 20.0},
    Number{"spacingLeast", &Settings::spacingLeast, 1.0, 100.0},
    Number{"spacingGreatest", &Settings::spacingGreatest, 1.0, 100.0},
    Number{"leastTotal", &Settings::leastTotal, 0.0, .05},
    Number{"crackLimit", &Settings::crackLimit, 0.0, 2.0},
    Number{"flotationLimit", &Settings::flotationLimit, 0.5, 10.0},
    Number{"shearSafety", &Settings::shearSafety, 1.0, 5.0},
    Number{"allowableSteel", &Settings::allowableSteel, 0.0, 20000.0},
    Number{"allowableConcrete", &Settings::allowableConcrete, 0.0, 2000.0},
    Number{"saturatedDensity", &Settings::saturatedDensity, 0.0, 5.0},
    Number{"surcharge", &Settings::surcharge, 0.0, 1000.0},
};

// What stands in the file is no value of its kind.
struct Wrong {
    std::string name;
};

void TakeNumber(const json &file, const Number &n, Settings &settings) {
    const auto found = file.find(n.name);
    if (found == file.end())
        return;
    if (!found->is_number())
        throw Wrong{n.name};
    const double value = found->get<double>();
    if (!(value >= n.least && value <= n.greatest))
        throw Wrong{n.name};
    settings.*n.value = value;
}

DesignCombination ReadCombination(const json &entry) {
    if (!entry.is_object() || !entry.contains("key") || !entry["key"].is_string() || !entry.contains("factors") ||
        !entry["factors"].is_object())
        throw Wrong{"combinations"};
    DesignCombination c;
    c.sum.key = entry["key"].get<std::string>();
    c.factored = entry.value("factored", false);
    if (c.sum.key.empty() || c.sum.key.find_first_of(",;\"\n") != std::string::npos)
        throw Wrong{"combinations"};
    for (const consistent::Case kase : consistent::kAllCases) {
        const auto factor = entry["factors"].find(std::string(consistent::NameOf(kase).key));
        if (factor == entry["factors"].end())
            continue;
        if (!factor->is_number() || !(std::fabs(factor->get<double>()) <= 100.0))
            throw Wrong{"combinations " + c.sum.key};
        c.sum.factor.at(static_cast<std::size_t>(kase)) = factor->get<double>();
    }
    return c;
}

void TakeCombinations(const json &file, Settings &settings) {
    const auto found = file.find("combinations");
    if (found == file.end())
        return;
    if (!found->is_array() || found->size() > 100)
        throw Wrong{"combinations"};
    for (const json &entry : *found) {
        settings.combinations.push_back(ReadCombination(entry));
        for (std::size_t i = 0; i + 1 < settings.combinations.size(); ++i)
            if (settings.combinations[i].sum.key == settings.combinations.back().sum.key)
                throw Wrong{"combinations " + settings.combinations[i].sum.key};
    }
}

void TakeTexts(const json &file, Settings &settings) {
    const auto found = file.find("texts");
    if (found == file.end())
        return;
    if (!found->is_object())
        throw Wrong{"texts"};
    for (const auto &[name, text] : found->items()) {
        if (!text.is_string())
            throw Wrong{"texts " + name};
        settings.texts[name] = text.get<std::string>();
    }
}

Settings FromJson(const json &file) {
    Settings settings;
    for (const Number &n : kNumbers)
        TakeNumber(file, n, settings);
    if (settings.spacingLeast > settings.spacingGreatest)
        throw Wrong{"spacingLeast"};
    TakeCombinations(file, settings);
    TakeTexts(file, settings);
    return settings;
}

json CombinationsJson(const std::vector<DesignCombination> &combinations) {
    json list = json::array();
    for (const DesignCombination &c : combinations) {
        json factors = json::object();
        for (const consistent::Case kase : consistent::kAllCases)
            if (const double factor = c.sum.factor.at(static_cast<std::size_t>(kase)); factor != 0.0)
                factors[std::string(consistent::NameOf(kase).key)] = factor;
        list.push_back({{"key", c.sum.key}, {"factored", c.factored}, {"factors", factors}});
    }
    return list;
}

void Damage(SettingsFile &found, const std::string &path, const std::string &english, const std::string &turkish) {
    found.state = SettingsFile::Damaged;
    found.settings = {};
    found.english = path + ": " + english + "; the usual values are taken, the file stays as it is";
    found.turkish = path + ": " + turkish + "; olağan değerler alındı, dosyaya dokunulmadı";
}

void Interpret(SettingsFile &found, const std::string &path) {
    const json file = json::parse(found.kept, nullptr, false);
    const bool versioned = file.is_object() && file.contains("version") && file["version"].is_number_integer();
    if (!versioned)
        return Damage(found, path, "not a settings file of the report", "rapor ayar dosyası değil");
    if (file["version"].get<long long>() > kSettingsVersion) {
        found.state = SettingsFile::Newer;
        found.english = path + ": written by a newer program; the usual values are taken, the file stays as it is";
        found.turkish = path + ": daha yeni bir programla yazılmış; olağan değerler alındı, dosyaya dokunulmadı";
        return;
    }
    try {
        found.settings = FromJson(file);
        found.state = SettingsFile::Read;
    } catch (const Wrong &wrong) {
        Damage(found, path, "\"" + wrong.name + "\" is not a value for it", "\"" + wrong.name + "\" değeri geçersiz");
    } catch (const json::exception &) {
        Damage(found, path, "not a settings file of the report", "rapor ayar dosyası değil");
    }
}

} // namespace

SettingsFile ReadSettings(const std::string &path) {
    SettingsFile found;
    const std::string file = FindFile(path);
    if (!FileExists(file))
        return found;
    try {
        found.kept = ReadWholeFile(file);
    } catch (const RuntimeFailure &) {
        Damage(found, path, "cannot be read", "okunamıyor");
        return found;
    }
    Interpret(found, path);
    return found;
}

void WriteSettings(const std::string &path, const Settings &settings) {
    const SettingsFile old = ReadSettings(path);
    if (old.state == SettingsFile::Damaged || old.state == SettingsFile::Newer)
        throw DesignFailure(old.english, old.turkish);
    json file = old.state == SettingsFile::Read ? json::parse(old.kept) : json::object();
    file["version"] = kSettingsVersion;
    for (const Number &n : kNumbers)
        file[n.name] = settings.*n.value;
    file.erase("combinations");
    if (!settings.combinations.empty())
        file["combinations"] = CombinationsJson(settings.combinations);
    file["texts"] = settings.texts;
    WriteWholeFile(FindFile(path), file.dump(2, ' ', false, json::error_handler_t::replace) + "\n");
}

} // namespace havuz::design
