#include "model/options.h"

#include "model/code_page.h"
#include "model/field_reader.h"
#include "model/files.h"
#include "model/platform.h"

#include <array>
#include <cmath>
#include <filesystem>

namespace havuz {

std::string ProgramDizini, CalismaDizini;
Row<double, 5> BetonTablosu, CelikTablosu;
double YukFaktorG, YukFaktorP;
const double kPi = 4.0 * std::atan(1.0);
std::map<int, FontRange> FontTablosu;

void ResetOptions() {
    ProgramDizini.clear();
    CalismaDizini.clear();
    BetonTablosu = {};
    CelikTablosu = {};
    YukFaktorG = YukFaktorP = 0.0;
    FontTablosu.clear();
}

static std::string WithoutClosingSeparator(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string FindProgramDirectory(const std::string &executable) {
    std::string found;
    const std::string home = platform::Environment("HAVUZ_HOME");
    const std::filesystem::path own = std::filesystem::path(executable).parent_path();
    if (!home.empty())
        found = LocalPath(home);
    else if (FileExists((own / "VEKCARD.OPS").generic_string()))
        found = own.generic_string();
    else
        found = (own.parent_path() / "share" / "havuz").generic_string();
    if (found.find("/VBVEK") != std::string::npos)
        found = LocalPath("C:\\VEK9V12");
    return WithoutClosingSeparator(found);
}

static FieldReader OpenOption(const std::string &directory, const char *name) {
    const std::string path = FindFile(directory + "/" + name);
    return {path, ReadWholeFile(path)};
}

std::string WorkingDirectoryField(const std::string &programDirectory) {
    std::string field;
    if (!FileExists(programDirectory + "/WORKING.DIR"))
        return field;
    FieldReader reader = OpenOption(programDirectory, "WORKING.DIR");
    if (!reader.atEnd())
        reader.read([&] { field = reader.bytes(Thing::Directory); });
    // a name of this system as it stands, else one of the code page
    return DirectoryExists(LocalPath(field)) ? field : FromCodePage(field);
}

void ReadWorkingDirectory() {
    CalismaDizini = WithoutClosingSeparator(LocalPath(WorkingDirectoryField(ProgramDizini)));
    if (CalismaDizini.empty() || !DirectoryExists(CalismaDizini))
        CalismaDizini = ProgramDizini + "/VEK9DATA"; // neither made nor tested
}

namespace {

// The records of VEKCARD.OPS: how many fields each has, and where two of them are kept.
struct CardRecord {
    int fields;
    Row<double, 5> *kept = nullptr;
};

} // namespace

void ReadCard() {
    const std::array<CardRecord, 19> records = {{
        {1},
        {7},
        {5},
        {5, &BetonTablosu},
        {5, &CelikTablosu},
        {7},
        {10},
        {10},
        {11},
        {11},
        {12},
        {15},
        {12},
        {10},
        {7},
        {8},
        {12},
        {1},
        {1},
    }};
    FieldReader reader = OpenOption(ProgramDizini, "VEKCARD.OPS");
    reader.read([&] {
        int no = 0;
        for (const CardRecord &record : records) {
            if (reader.atEnd())
                return;
            reader.enterRecord(Thing::CardRecord, ++no);
            for (int k = 1; k <= record.fields; ++k) {
                if (record.kept != nullptr)
                    (*record.kept)[k] = reader.number(Thing::Value);
                else
                    reader.text(Thing::Text); // whatever it is: nothing uses it
            }
        }
    });
}

void ReadWorkingFile() {
    FieldReader reader = OpenOption(CalismaDizini, "WORKING");
    if (!reader.atEnd())
        reader.read([&reader] { reader.text(Thing::Text); });
}

void ReadDimensions() {
    FieldReader reader = OpenOption(ProgramDizini, "DIMS.OPS");
    if (!reader.atEnd())
        reader.read([&reader] {
            for (int k = 1; k <= 9; ++k)
                reader.text(Thing::Text); // nothing uses them
        });
}

// A file with its first record alone keeps 0 in both factors, since 1.4 and 1.6 stand for a missing file only: wanted.
void ReadLoadFactors() {
    if (!FileExists(ProgramDizini + "/VEK9.COD")) {
        YukFaktorG = 1.4;
        YukFaktorP = 1.6;
        return;
    }
    YukFaktorG = YukFaktorP = 0.0;
    FieldReader reader = OpenOption(ProgramDizini, "VEK9.COD");
    reader.read([&reader] {
        if (reader.atEnd())
            return;
        reader.text(Thing::Text);
        if (reader.atEnd())
            return;
        YukFaktorG = reader.number("YukFaktorG");
        YukFaktorP = reader.number("YukFaktorP");
        for (int k = 3; k <= 5; ++k)
            reader.text(Thing::Text); // nothing uses them
    });
}

// 6-byte records, the least significant byte first; a rest of fewer bytes is no record.
void ReadFont() {
    FontTablosu.clear();
    if (!FileExists(ProgramDizini + "/ROMANS.FON"))
        return;
    const std::string bytes = ReadWholeFile(FindFile(ProgramDizini + "/ROMANS.FON"));
    const auto records = static_cast<int>(bytes.size() / 6);
    for (int i = 0; i < records; ++i) {
        const auto at = static_cast<std::size_t>(i) * 6;
        const unsigned low = static_cast<unsigned char>(bytes[at]);
        const unsigned high = static_cast<unsigned char>(bytes[at + 1]);
        const int code = static_cast<std::int16_t>(low | high << 8);
        FontRange &range = FontTablosu[code];
        if (range.first == 0)
            range.first = i + 1;
        range.last = i + 1;
    }
}

} // namespace havuz
