#include "model/project_file.h"

#include "model/code_page.h"
#include "model/field_reader.h"
#include "model/files.h"
#include "model/load_codes.h"
#include "model/number_text.h"
#include "model/parameters.h"
#include "model/springs.h"
#include "model/store.h"
#include "model/write_file.h"

namespace havuz {

namespace {

// Puts fields into lines. The counterpart of Loader: both are walked through the same records below.
class Saver {
public:
    bool record(Label /*record*/, int /*no*/ = 0) { return true; }
    void number(Label /*field*/, const double &v) { put(NumberText(v)); }
    void number(Label /*field*/, const Float32 &v) { put(NumberText(v)); }
    void number(Label /*field*/, const Int16 &v) { put(std::to_string(int(v))); }
    void count(Thing /*table*/, const int &v, int /*capacity*/) { put(std::to_string(v)); }
    void line(const std::string &text) { text_ += text + "\r\n"; }
    void endLine() {
        line(fields_);
        fields_.clear();
    }
    std::string take() { return std::move(text_); }

private:
    void put(const std::string &field) { fields_ += (fields_.empty() ? "" : ",") + field; }
    std::string fields_;
    std::string text_;
};

// Takes fields from a file. record() tests for the end of the file, which stands before every record.
class Loader {
public:
    explicit Loader(FieldReader &reader) : reader_(reader) {}
    bool record(Label record, int no = 0) {
        if (reader_.atEnd())
            return false;
        reader_.enterRecord(record, no);
        return true;
    }
    template <class Field>
    void number(Label field, Field &v) {
        v = reader_.number(field);
    }
    void count(Thing table, int &v, int capacity) {
        Int16 read;
        read = reader_.number(table);
        if (read < 0 || read > capacity)
            FailSubscript(table, read, capacity);
        v = read;
    }
    void endLine() {}

private:
    FieldReader &reader_;
};

// The records of the file in their order. Channel is a Saver or a Loader; each walk returns false when the file is at
// its end, and everything behind that stays unread.

// The general parameters of a record, in the order of their table.
template <class Channel>
void WalkParametersOf(Channel &c, ParameterRecord record) {
    for (const Parameter &p : Parameters())
        if (p.record == record)
            c.number(p.name, *p.value);
}

template <class Channel>
bool WalkCounts(Channel &c) {
    if (!c.record(Thing::CountRecord))
        return false;
    c.count(Thing::PanelTable, PanelCount, kPanelCapacity);
    c.count(Thing::PlakTable, PlakCount, kPlakCapacity);
    c.count(Thing::NoktaTable, NoktaCount, kNoktaCapacity);
    c.count(Thing::MeshTable, MeshCount, kMeshCapacity);
    WalkParametersOf(c, ParameterRecord::Counts);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkSoil(Channel &c) {
    if (!c.record(Thing::SoilRecord))
        return false;
    WalkParametersOf(c, ParameterRecord::Soil);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkPool(Channel &c) {
    if (!c.record(Thing::PoolRecord))
        return false;
    WalkParametersOf(c, ParameterRecord::Pool);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkLoadSituations(Channel &c) {
    if (!c.record(Thing::LoadRecord))
        return false;
    for (int i = 0; i <= kYukDurumLast; ++i)
        c.number("YukDurum", YukDurum[i]);
    c.endLine();
    if (!c.record(Thing::CombinationRecord))
        return false;
    for (int i = 0; i <= kYukKombinasyonLast; ++i)
        c.number("YukKombinasyon", YukKombinasyon[i]);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkMaterials(Channel &c) {
    if (!c.record(Thing::MaterialRecord))
        return false;
    WalkParametersOf(c, ParameterRecord::Materials);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkPanel(Channel &c, int no) {
    if (!c.record(Thing::PanelTable, no))
        return false;
    PanelRecord &panel = PanelTable[no];
    c.number("No", panel.No);
    c.number("Nx", panel.Nx);
    c.number("Ny", panel.Ny);
    c.number("D", panel.D);
    c.number("Tip", panel.Tip);
    c.number("G", panel.G);
    c.number("P", panel.P);
    c.endLine();
    for (int k = 1; k <= 4; ++k) {
        if (!c.record(Thing::PanelTable, no))
            return false;
        c.number("X", panel.X[k]);
        c.number("Y", panel.Y[k]);
        c.number("Z", panel.Z[k]);
        c.number("KenarMesnet", panel.KenarMesnet[k]);
        c.number("KenarKomsu", panel.KenarKomsu[k]);
        c.endLine();
    }
    return true;
}

template <class Channel>
bool WalkPlak(Channel &c, int no) {
    if (!c.record(Thing::PlakTable, no))
        return false;
    PlakRecord &plak = PlakTable[no];
    c.number("NoktaSayisi", plak.NoktaSayisi);
    c.number("Kalinlik", plak.Kalinlik);
    c.endLine();
    if (plak.NoktaSayisi > 0)
        static_cast<void>(plak.X[plak.NoktaSayisi]); // refused though the file may end before that point
    for (int k = 1; k <= plak.NoktaSayisi; ++k) {
        if (!c.record(Thing::PlakTable, no))
            return false;
        c.number("X", plak.X[k]);
        c.number("Y", plak.Y[k]);
        c.number("Z", plak.Z[k]);
        c.number("KenarKodu", plak.KenarKodu[k]);
        c.endLine();
    }
    return true;
}

template <class Channel>
bool WalkMesh(Channel &c, int no) {
    if (!c.record(Thing::MeshTable, no))
        return false;
    MeshRecord &mesh = MeshTable[no];
    c.number("PanelNo", mesh.PanelNo);
    c.number("N1", mesh.N1);
    c.number("N2", mesh.N2);
    c.number("N3", mesh.N3);
    c.number("N4", mesh.N4);
    c.number("Sil", mesh.Sil);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkNokta(Channel &c, int no, NoktaRecord &node) {
    if (!c.record(Thing::NoktaTable, no))
        return false;
    c.number("PanelNo", node.PanelNo);
    c.number("X", node.X);
    c.number("Y", node.Y);
    c.number("Z", node.Z);
    c.number("Mesnet", node.Mesnet);
    c.number("AnaNo", node.AnaNo);
    c.number("YeniNo", node.YeniNo);
    c.number("Yay", node.Yay);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkDiameters(Channel &c) {
    if (!c.record(Thing::DiameterRecord))
        return false;
    for (int i = 1; i <= 13; ++i)
        c.number("DonatiCaplari", DonatiCaplari[i]);
    c.endLine();
    return true;
}

template <class Channel>
bool WalkParameters(Channel &c) {
    return WalkCounts(c) && WalkSoil(c) && WalkPool(c) && WalkLoadSituations(c) && WalkMaterials(c);
}

template <class Channel>
bool WalkShape(Channel &c) {
    for (int i = 1; i <= PanelCount; ++i)
        if (!WalkPanel(c, i))
            return false;
    for (int i = 1; i <= PlakCount; ++i)
        if (!WalkPlak(c, i))
            return false;
    for (int i = 1; i <= MeshCount; ++i)
        if (!WalkMesh(c, i))
            return false;
    return true;
}

void WriteLoads(Saver &c) {
    for (int i = 1; i <= NoktaCount; ++i) {
        const NokYukRecord &load = NokYukTable[i];
        if (HasPointLoad(load))
            c.line(std::to_string(i) + "," + NumberText(load.FX) + "," + NumberText(load.FY) + "," +
                   NumberText(load.FZ));
    }
    c.line("0,0,0,0");
}

// One load line. stop tells the end line, a first field of 0.
bool ReadLoadLine(Loader &c, bool &stop) {
    if (!c.record(Thing::NokYukTable))
        return false;
    NokYukRecord line;
    c.number("Nokta", line.Nokta);
    c.number("FX", line.FX);
    c.number("FY", line.FY);
    c.number("FZ", line.FZ);
    stop = line.Nokta == 0;
    if (!stop)
        NokYukTable[line.Nokta] = line;
    return true;
}

// At most NoktaCount lines; when that many were read, the end line behind them is read as well.
bool ReadLoads(Loader &c) {
    for (int i = 1; i <= NoktaCount; ++i) {
        bool stop = false;
        if (!ReadLoadLine(c, stop))
            return false;
        if (stop)
            return true;
    }
    NokYukRecord end;
    if (!c.record(Thing::NokYukTable))
        return false;
    c.number(Thing::EndLine, end.Nokta);
    c.number(Thing::EndLine, end.FX);
    c.number(Thing::EndLine, end.FY);
    c.number(Thing::EndLine, end.FZ);
    return true;
}

// A node passes through a blank scratch record, so that what the file does not keep is 0 afterwards.
bool ReadNodes(Loader &c) {
    for (int i = 1; i <= NoktaCount; ++i) {
        NoktaRecord scratch;
        if (!WalkNokta(c, i, scratch))
            return false;
        NoktaTable[i] = scratch;
    }
    return true;
}

void ReadRecords(FieldReader &reader) {
    Loader c(reader);
    if (!c.record(Thing::TitleRecord))
        return;
    ProjeIsmi = reader.text("ProjeIsmi");
    // The first record that meets the end of the file ends the reading.
    if (WalkParameters(c) && WalkShape(c) && ReadNodes(c) && ReadLoads(c))
        WalkDiameters(c);
}

// The list as it stands before a load, from the flags of the model before it, numbered from element 1; the analysis
// makes its own, and its codes are one higher.
void RebuildLoadList() {
    int n = 1;
    for (int i = 0; i <= 3; ++i)
        if (YukKombinasyon[i] > 0)
            YukListesi[++n - 1] = FillingCode(i) - 1;
    for (int i = 0; i <= 4; ++i)
        if (YukDurum[i] > 0)
            YukListesi[++n - 1] = SituationCode(i) - 1;
    YukSayisi = n;
}

std::string WithoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

} // namespace

std::optional<std::string> TitleAsRead() {
    const std::string nextLine = "1\r\n";
    FieldReader reader("", ToCodePage(ProjeIsmi) + "\r\n" + nextLine);
    const std::string title = reader.text("ProjeIsmi");
    const bool whole = !reader.atEnd() && reader.bytes("ProjeIsmi") == "1" && reader.atEnd();
    return whole ? std::optional(title) : std::nullopt;
}

std::string ProjectPath(const std::string &file) {
    const std::size_t name = file.rfind('/') + 1; // 0 without a directory
    return file.substr(0, name) + UpToFirstDot(file.substr(name));
}

std::string ProjectText() {
    Saver c;
    c.line(ToCodePage(ProjeIsmi)); // as it stands: a comma in it breaks the reading of the file, and is written
    WalkParameters(c);
    WalkShape(c);
    for (int i = 1; i <= NoktaCount; ++i)
        WalkNokta(c, i, NoktaTable[i]);
    WriteLoads(c);
    WalkDiameters(c);
    return c.take();
}

void SaveProject(const std::string &path, ProjectWindow &window) {
    SpringStiffness();
    if (WithoutTrailingBlanks(KartAdi).size() < 3 || KartAdi.find(".VK9") == std::string::npos)
        KartAdi = ".VK9";
    WriteWholeFile(path, ProjectText(), Backup::Kept);
    ProjeYolu = ProjectPath(path);
    window.EnableAnalysis();
    if (const std::optional<std::string> title = TitleAsRead(); title != ProjeIsmi)
        window.TellTitle(title);
}

static void ClearPanels() {
    for (int i = 1; i <= kPanelCapacity; ++i)
        PanelTable[i] = PanelTable[kPanelCapacity];
    RebuildLoadList();
}

static void TakeText(const std::string &path, const std::string &text, ProjectWindow &window) {
    FieldReader reader(path, text);
    reader.read([&reader] { ReadRecords(reader); });
    ProjeYolu = ProjectPath(path);
    window.EnableAnalysis();
    window.EnableResults(FileExists(ProjeYolu + ".SON"));
    GorunusModu = MeshCount > 0 ? 2 : 1;
    window.ShowViewPicture(GorunusModu);
}

void LoadProject(const std::string &path, ProjectWindow &window) {
    ClearPanels();
    TakeText(path, ReadWholeFile(path), window);
}

void LoadProjectText(const std::string &path, const std::string &text, ProjectWindow &window) {
    ClearPanels();
    TakeText(path, text, window);
}

} // namespace havuz
