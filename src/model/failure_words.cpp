// The words of failures: every thing, kind, fault and reason of the system in English and in Turkish, and the sentences
// made of them. The switches have no default: the compiler asks for the words of whatever is new.
#include "model/failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace havuz {

namespace {

enum class Language { English, Turkish };

struct Words {
    const char *english, *turkish;
    const char *in(Language language) const { return language == Language::English ? english : turkish; }
};

constexpr Words Same(const char *name) { return {name, name}; }

Words WordsOf(Thing thing) {
    switch (thing) {
    case Thing::Nothing:
        return Same("");
    case Thing::NoktaTable:
        return Same("NoktaTable");
    case Thing::MeshTable:
        return Same("MeshTable");
    case Thing::PanelTable:
        return Same("PanelTable");
    case Thing::PlakTable:
        return Same("PlakTable");
    case Thing::NokYukTable:
        return Same("NokYukTable");
    case Thing::DortluTable:
        return Same("DortluTable");
    case Thing::BantTable:
        return Same("BantTable");
    case Thing::Rhs:
        return Same("Rhs");
    case Thing::YukDurum:
        return Same("YukDurum");
    case Thing::YukKombinasyon:
        return Same("YukKombinasyon");
    case Thing::DonatiCaplari:
        return Same("DonatiCaplari");
    case Thing::KenarMesnet:
        return Same("KenarMesnet");
    case Thing::Plate:
        return {"plate", "PLAK"};
    case Thing::Panel:
        return {"panel", "PANEL"};
    case Thing::Wall:
        return {"wall", "DUVAR"};
    case Thing::Edge:
        return {"edge", "KENAR"};
    case Thing::Node:
        return {"node", "NOKTA"};
    case Thing::Equation:
        return {"equation", "DENKLEM"};
    case Thing::RowElement:
        return {"element ", "ELEMAN "};
    case Thing::OutlinePoint:
        return {"outline point", "PLAK NOKTASI"};
    case Thing::MeshPoint:
        return {"point", "NOKTA"};
    case Thing::WorkingCopy:
        return {"working copy, PlakTable", "CALISMA KOPYASI, PlakTable"};
    case Thing::GridStep:
        return {"grid step", "IZGARA ADIMI"};
    case Thing::GridDurum:
        return {"grid Durum", "IZGARA Durum"};
    case Thing::GridGridNo:
        return {"grid GridNo", "IZGARA GridNo"};
    case Thing::GridHucre:
        return {"grid Hucre", "IZGARA Hucre"};
    case Thing::WallColumn:
        return {"column", "KOLON"};
    case Thing::NodeRow:
        return {"node row", "NOKTA SIRASI"};
    case Thing::NodeUnderWall:
        return {"node under a wall", "DUVAR ALTI NOKTASI"};
    case Thing::DisplacementColumn:
        return {"displacement column ", "DEPLASMAN KOLONU "};
    case Thing::PlakKodu:
        return Same("PlakKodu");
    case Thing::MeshGenisligi:
        return Same("MeshGenisligi");
    case Thing::PanelNx:
        return Same("Nx");
    case Thing::PanelNy:
        return Same("Ny");
    case Thing::PlateSlope:
        return {"slope of a plate", "PLAK EGIMI"};
    case Thing::PlateView:
        return {"plate view", "PLAK GORUNUSU"};
    case Thing::MeshView:
        return {"mesh view", "MESH GORUNUSU"};
    case Thing::Zoom:
        return {"zoom", "ZOOM"};
    case Thing::Projection:
        return {"projection", "IZDUSUM"};
    case Thing::Overview:
        return {"overview", "DINAMIK GORUNUS"};
    case Thing::PointLoadArrow:
        return {"point load arrow", "YUK OKU"};
    case Thing::NodeMove:
        return {"node move", "NOKTA KAYDIRMA"};
    case Thing::MatrixInvert:
        return {"MatrixInvert", "MATRIS TERSI"};
    case Thing::PlaneD:
        return Same("PlaneD");
    case Thing::TriangleMembrane:
        return {"TriangleMembrane", "UCGEN MEMBRAN"};
    case Thing::TriangleBending:
        return {"TriangleBending", "UCGEN EGILME"};
    case Thing::TriangleAxes:
        return {"TriAxes", "UCGEN EKSENLERI"};
    case Thing::QuadBasis:
        return {"QuadBasis", "DORTGEN EKSENLERI"};
    case Thing::QuadStress:
        return {"QuadShellStress", "DORTGEN GERILMESI"};
    case Thing::RectStress:
        return {"RectShellStress", "DIKDORTGEN GERILMESI"};
    case Thing::RectStiffness:
        return {"RectShellStiffness", "DIKDORTGEN RIJITLIGI"};
    case Thing::TitleRecord:
        return {"title", "BASLIK"};
    case Thing::CountRecord:
        return {"counts", "SAYILAR"};
    case Thing::SoilRecord:
        return {"soil", "ZEMIN"};
    case Thing::PoolRecord:
        return {"pool", "HAVUZ"};
    case Thing::LoadRecord:
        return {"load situations", "YUK DURUMLARI"};
    case Thing::CombinationRecord:
        return {"cell combinations", "HUCRE KOMBINASYONLARI"};
    case Thing::MaterialRecord:
        return {"materials", "MALZEME"};
    case Thing::DiameterRecord:
        return {"diameters", "DONATI CAPLARI"};
    case Thing::CardRecord:
        return {"record", "KAYIT"};
    case Thing::EndLine:
        return {"end line", "SON SATIR"};
    case Thing::Value:
        return {"value", "DEGER"};
    case Thing::Text:
        return {"text", "METIN"};
    case Thing::Directory:
        return {"directory", "DIZIN"};
    case Thing::Form:
        return {"form", "PENCERE"};
    case Thing::WindowElement:
        return {"element", "PENCERE ELEMANI"};
    case Thing::Tool:
        return {"tool", "KOMUT"};
    case Thing::DiameterButton:
        return {"button for the bar diameter", "DONATI CAPI DUGMESI"};
    }
    return Same("");
}

// Things that stand with their number in brackets in a place: "NoktaTable(7)", not "NoktaTable 7".
bool IsTable(Thing thing) { return thing >= Thing::NoktaTable && thing <= Thing::KenarMesnet; }

// %p place and ": ", %P the place alone, %t thing, %n number, %l the same as a length, %f first, %b bound, %x text, %r
// reason in brackets.
Words SentenceOf(Fault fault) {
    switch (fault) {
    case Fault::OutsideBounds:
        return {"%p%t(%n) lies outside %f..%b", "%p%t(%n) SINIR %f..%b"};
    case Fault::NamesOutside:
        return {"%P names node %n outside %f..%b", "%P: NOKTA(%n) SINIR %f..%b"};
    case Fault::NodeHeld:
        return {"%t(%n): %P is held against translation and %b load columns are asked for; it goes with %f at most",
                "%t(%n): %P MESNETLI, YUK KOLONU %b, SINIR %f"};
    case Fault::NodeUnused:
        return {"%t(%n): %P has a point load and no active mesh uses it, and %b load columns are asked for; it goes "
                "with 1 at most",
                "%t(%n): %P YUKLU AMA HICBIR ACIK MESHTE DEGIL, YUK KOLONU %b"};
    case Fault::JoinsTooMany:
        return {"%P joins more than %f meshes: %t(%n) holds %b entries",
                "%P NOKTASINDA BIRLESEN MESH SINIRI %f: %t(%n) SINIR %b KOMSU"};
    case Fault::TooManyEquations:
        return {"%n equations: ProfileDiag ends at %b", "%n DENKLEM: ProfileDiag SINIR %b"};
    case Fault::ProfileTooLong:
        return {"%n equations with a profile of %f cells: S ends at %b", "%n DENKLEM, PROFIL %f: S SINIR %b"};
    case Fault::TooManyRhsCells:
        return {"%n equations with %f load columns: Rhs ends at %b", "%n DENKLEM, YUK KOLONU %f: Rhs SINIR %b"};
    case Fault::MeshTooFine:
        return {
            "mesh width %x m is too fine for the tables of %f nodes and %b meshes; the least width that fits is %l m",
            "MESH GENISLIGI %x COK KUCUK, SINIR %f NOKTA VE %b MESH; SIGAN EN KUCUK GENISLIK %l"};
    case Fault::NoWidthFits:
        return {"the model needs more than the %f nodes and %b meshes of the tables at any mesh width",
                "MODEL HICBIR MESH GENISLIGI ILE %f NOKTA VE %b MESHE SIGMIYOR"};
    case Fault::Unknown:
        return {"no %t %x", "%t %x YOK"};
    case Fault::Past16Bits:
        return {"%pa 16-bit field cannot hold %n", "%p16 BITLIK ALANA SIGMAYAN SAYI %n"};
    case Fault::Past32Bits:
        return {"%pa 32-bit field cannot hold %n", "%p32 BITLIK ALANA SIGMAYAN SAYI %n"};
    case Fault::CountPast16Bits:
        return {"%pthe count %n leaves the 16-bit range", "%pSAYI %n 16 BITE SIGMIYOR"};
    case Fault::WholePast32Bits:
        return {"%pthe whole number %n leaves the 32-bit range", "%pSAYI %n 32 BITE SIGMIYOR"};
    case Fault::NumberTooLarge:
        return {"%pthe number %x is too large", "%pSAYI %x COK BUYUK"};
    case Fault::CodePast16Bits:
        return {"%p%t %n leaves the 16-bit range, plates are meshed up to number %b",
                "%p%t %n 16 BITE SIGMIYOR, PLAK SINIRI %b"};
    case Fault::SolutionTooLarge:
        return {"%pthe solution leaves the 32-bit range", "%pCOZUM 32 BITE SIGMIYOR"};
    case Fault::PictureTooLarge:
        return {"%pa picture of %nx%b pixels", "%pRESIM %nX%b"};
    case Fault::Divided:
        return {"%p%t: division by zero", "%p%t"};
    case Fault::DividedBy:
        return {"%P %t: division by zero", "%P %t"};
    case Fault::NoLengthOfFoot:
        return {"%pits foot has no length", "%pALT KENARI SIFIR BOYDA"};
    case Fault::NoLengthOfSlope:
        return {"%pits line of steepest slope has no length", "%pEGIM DOGRUSU SIFIR BOYDA"};
    case Fault::NoPlanExtent:
        return {"%pits outline has no width or no height in plan", "%pPLANDA GENISLIGI YA DA YUKSEKLIGI YOK"};
    case Fault::NoPlanLength:
        return {"%pa wall without length in plan: division by zero", "%pDUVARIN PLANDA BOYU YOK"};
    case Fault::NoExtent:
        return {"%P has no extent or no area: division by zero", "%P: BOYU YA DA ALANI YOK"};
    case Fault::NoSide:
        return {"%p%t: a side of length 0", "%p%t: SIFIR BOYDA KENAR"};
    case Fault::NoLocalArea:
        return {"%p%t: the corners span no local area in either order", "%p%t: KOSELERIN ALANI YOK"};
    case Fault::NotANumber:
        return {"%p\"%x\" is not a number", "%p\"%x\""};
    case Fault::NoMeshWidth:
        return {"%t: %x m is no mesh width", "%t: %x BIR UZUNLUK DEGIL"};
    case Fault::NoRowHeight:
        return {"foot: %x m is no height of a row", "DUVAR DIBI SIRASI: %x BIR UZUNLUK DEGIL"};
    case Fault::OutlineCrosses:
        return {"%pits outline crosses itself near %x", "%pKENARLARI KESISIYOR, YERI %x"};
    case Fault::OutlineTouches:
        return {"%pits outline touches itself near %x", "%pKENARLARI BIRBIRINE DEGIYOR, YERI %x"};
    case Fault::FewCorners:
        return {"%pits outline has fewer than three corners", "%pUCTEN AZ KOSESI VAR"};
    case Fault::NoPlanArea:
        return {"%pits outline has no area in plan", "%pPLANDA ALANI YOK"};
    case Fault::RimNotEven:
        return {"%pa circular floor needs an even number of four nodes or more on its rim",
                "%pDAIRESEL TABANIN CEVRESINDE DORT YA DA DAHA COK, CIFT SAYIDA NOKTA GEREKIR"};
    case Fault::EndsInLine:
        return {"%pthe file ends inside a line", "%pDOSYA SATIR ORTASINDA BITIYOR"};
    case Fault::IsDirectory:
        return {"%x: is a directory", "%x: DOSYA DEGIL DIZIN"};
    case Fault::NotOurs:
        return {"%x: is no file of this program%r", "%x: BU PROGRAMIN DOSYASI DEGIL%r"};
    case Fault::CannotOpen:
        return {"%x: cannot be opened%r", "%x: ACILAMADI%r"};
    case Fault::CannotRead:
        return {"%x: cannot be read%r", "%x: OKUNAMADI%r"};
    case Fault::CannotReadRecord:
        return {"%x: record %n cannot be read%r", "%x: KAYIT %n OKUNAMADI%r"};
    case Fault::CannotCreate:
        return {"%x: cannot be created%r", "%x: YARATILAMADI%r"};
    case Fault::CannotCreateScratch:
        return {"%x: cannot take the scratch folder of the run%r", "%x: GECICI DIZIN YARATILAMADI%r"};
    case Fault::CannotWrite:
        return {"%x: cannot be written%r", "%x: YAZILAMADI%r"};
    case Fault::CannotRemove:
        return {"%x: cannot be removed%r", "%x: SILINEMEDI%r"};
    case Fault::CannotStart:
        return {"%x: cannot be started%r", "%x: BASLATILAMADI%r"};
    case Fault::ReadOnly:
        return {"%x: is read-only", "%x: YALNIZ OKUNUR"};
    case Fault::NoPlainFile:
        return {"%x: is no plain file", "%x: DUZ DOSYA DEGIL"};
    case Fault::AlreadyAnalysed:
        return {"%x: is being analysed by process %n", "%x: %n NUMARALI SUREC SIMDI COZUYOR"};
    case Fault::IsTheProject:
        return {"%x: is the project itself", "%x: PROJENIN KENDISI"};
    case Fault::NoPicture:
        return {"the picture cannot be made a PNG", "RESIM PNG YAPILAMADI"};
    case Fault::NothingToDraw:
        return {"the model has no meshes to draw", "MODELDE CIZILECEK MESH YOK"};
    case Fault::NothingToExport:
        return {"the model has no nodes or no meshes to export; mesh it first",
                "MODELDE AKTARILACAK NOKTA YA DA MESH YOK"};
    }
    return Same("");
}

// The reasons that a file can meet; "" for any other.
const char *ReasonInTurkish(int reason) {
    switch (reason) {
    case ENOENT:
        return "BOYLE BIR DOSYA YA DA DIZIN YOK";
    case EACCES:
    case EPERM:
        return "IZIN YOK";
    case EISDIR:
        return "DOSYA DEGIL DIZIN";
    case ENOTDIR:
        return "DIZIN DEGIL";
    case EEXIST:
        return "DOSYA ZATEN VAR";
    case ENOSPC:
        return "DISK DOLU";
#ifdef EDQUOT
    case EDQUOT:
        return "DISK KOTASI DOLU";
#endif
    case EFBIG:
        return "DOSYA COK BUYUK";
    case EROFS:
        return "DISK YALNIZ OKUNUR";
    case EIO:
        return "DISK HATASI";
    case EMFILE:
    case ENFILE:
        return "COK FAZLA ACIK DOSYA";
    case ENAMETOOLONG:
        return "DOSYA ADI COK UZUN";
    case ELOOP:
        return "BAGLANTI DONGUSU";
    case EBUSY:
    case ETXTBSY:
        return "DOSYA KULLANIMDA";
    case ENOMEM:
        return "BELLEK YETMEDI";
    default:
        return "";
    }
}

const char *KindInTurkish(FailureKind kind) {
    switch (kind) {
    case Subscript:
        return "TABLO SINIRI ASILDI";
    case Overflow:
        return "SAYI ALANINA SIGMIYOR";
    case DivisionByZero:
        return "SIFIRA BOLME";
    case BadNumber:
        return "SAYI DEGIL";
    case BadShape:
        return "SEKIL UYGUN DEGIL";
    case File:
        break;
    }
    return "DOSYA HATASI";
}

std::string TextOf(const Amount &n) {
    if (n.whole)
        return std::to_string(static_cast<long long>(n.value));
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", n.value);
    return text;
}

// Up to six decimals, no zeros behind.
std::string LengthText(double length) {
    std::string text = std::to_string(length);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

// " (Permission denied)"; nothing where the system gave no reason.
std::string ReasonText(int reason, Language language) {
    if (reason == 0)
        return "";
    std::string words = language == Language::English ? std::strerror(reason) : ReasonInTurkish(reason);
    if (words.empty())
        words = "SISTEM HATASI " + std::to_string(reason);
    return " (" + words + ")";
}

std::string Numbered(std::string words, long long no) {
    return words.append("(").append(std::to_string(no)).append(")");
}

std::string SpotText(const Spot &spot, Language language) {
    const std::string words = WordsOf(spot.thing).in(language);
    return IsTable(spot.thing) ? Numbered(words, spot.no) : words + " " + std::to_string(spot.no);
}

std::string WhereText(const Spots &where, Language language) {
    std::string text;
    for (const Spot &spot : where)
        text += (text.empty() ? "" : ", ") + SpotText(spot, language);
    return text;
}

std::string LabelText(const Label &label, Language language) {
    return label.name != nullptr ? label.name : WordsOf(label.thing).in(language);
}

// "X.POL: line 3, field 2 (NoktaTable(7) Z): "
std::string FileFieldText(const FileField &f, Language language) {
    std::string record = LabelText(f.record, language);
    if (f.recordNo != 0)
        record = Numbered(record, f.recordNo);
    if (!record.empty())
        record += " ";
    const bool english = language == Language::English;
    return f.path + (english ? ": line " : ": SATIR ") + std::to_string(f.line) + (english ? ", field " : ", ALAN ") +
           std::to_string(f.field) + " (" + record + LabelText(f.fieldName, language) + "): ";
}

std::string PartText(char mark, const FailureParts &parts, Language language) {
    switch (mark) {
    case 'p':
        return parts.where.empty() ? "" : WhereText(parts.where, language) + ": ";
    case 'P':
        return WhereText(parts.where, language);
    case 't':
        return WordsOf(parts.thing).in(language);
    case 'n':
        return TextOf(parts.number);
    case 'l':
        return LengthText(parts.number.value);
    case 'f':
        return std::to_string(parts.first);
    case 'b':
        return std::to_string(parts.bound);
    case 'x':
        return parts.text;
    case 'r':
        return ReasonText(parts.reason, language);
    default:
        return {};
    }
}

std::string Sentence(const FailureParts &parts, Language language) {
    std::string text = parts.inFile ? FileFieldText(*parts.inFile, language) : "";
    for (std::string_view rest = SentenceOf(parts.fault).in(language); !rest.empty();) {
        const std::size_t mark = rest.find('%');
        text += rest.substr(0, mark);
        if (mark == std::string_view::npos)
            break;
        text += PartText(rest[mark + 1], parts, language);
        rest.remove_prefix(mark + 2);
    }
    return text;
}

} // namespace

std::string FailureInEnglish(const FailureParts &parts) { return Sentence(parts, Language::English); }

std::string FailureInTurkish(const RuntimeFailure &failure) {
    return std::string(KindInTurkish(failure.kind())) + ": " + Sentence(failure.parts(), Language::Turkish);
}

} // namespace havuz
