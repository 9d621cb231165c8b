#include "ui/window/failure_words.h"

#include <cctype>
#include <string_view>

namespace havuz {

static std::string_view KindInTurkish(FailureKind kind) {
    switch (kind) {
    case Subscript:
        return "TABLO SINIRI ASILDI";
    case Overflow:
        return "SAYI ALANINA SIGMIYOR";
    case DivisionByZero:
        return "SIFIRA BOLME";
    case BadNumber:
        return "SAYI DEGIL";
    case File:
        break;
    }
    return "DOSYA HATASI";
}

struct Phrase {
    std::string_view english, turkish;
};

// The words of the failures that meshing, plate editing and drawing can end with. A phrase stands before its parts.
// clang-format off
static constexpr Phrase kPhrases[] = {
    {" lies outside 0..", " SINIR 0.."},
    {"a 16-bit field cannot hold", "16 BITLIK ALANA SIGMAYAN SAYI"},
    {"a 32-bit field cannot hold", "32 BITLIK ALANA SIGMAYAN SAYI"},
    {" leaves the 16-bit range", " 16 BITE SIGMIYOR"},
    {" leaves the 32-bit range", " 32 BITE SIGMIYOR"},
    {": division by zero", ""},
    {": its line of steepest slope has no length", ": EGIM DOGRUSU SIFIR BOYDA"},
    {": its outline has no width or no height in plan", ": PLANDA GENISLIGI YA DA YUKSEKLIGI YOK"},
    {": its foot has no length", ": ALT KENARI SIFIR BOYDA"},
    {"node under a wall", "DUVAR ALTI NOKTASI"},
    {"node row", "NOKTA SIRASI"},
    {"node move", "NOKTA KAYDIRMA"},
    {"outline point", "PLAK NOKTASI"},
    {"grid step", "IZGARA ADIMI"},
    {"slope of a plate", "PLAK EGIMI"},
    {"point load arrow", "YUK OKU"},
    {"the pixel position", "EKRAN NOKTASI"},
    {"the whole number", "SAYI"},
    {"the count", "SAYI"},
    {"plate view", "PLAK GORUNUSU"},
    {"mesh view", "MESH GORUNUSU"},
    {"projection", "IZDUSUM"},
    {"joins more than", "NOKTASINDA BIRLESEN MESH SINIRI"},
    {"meshes", "MESH"},
    {"holds", "SINIR"},
    {"entries", "KOMSU"},
    {"column", "KOLON"},
    {"element", "ELEMAN"},
    {"plate", "PLAK"},
    {"panel", "PANEL"},
    {"wall", "DUVAR"},
    {"edge", "KENAR"},
    {"node", "NOKTA"},
    {"point", "NOKTA"},
    {"grid", "IZGARA"},
    {"zoom", "ZOOM"},
};
// clang-format on

static bool IsLetter(std::string_view text, std::size_t at) {
    return at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) != 0;
}

// Replaces a phrase where it stands as whole words.
static void Replace(std::string &text, const Phrase &phrase) {
    const bool wordFirst = IsLetter(phrase.english, 0);
    const bool wordLast = IsLetter(phrase.english, phrase.english.size() - 1);
    for (std::size_t at = 0; (at = text.find(phrase.english, at)) != std::string::npos;) {
        const std::size_t end = at + phrase.english.size();
        if ((wordFirst && at > 0 && IsLetter(text, at - 1)) || (wordLast && IsLetter(text, end))) {
            at = end;
            continue;
        }
        text.replace(at, phrase.english.size(), phrase.turkish);
        at += phrase.turkish.size();
    }
}

std::string FailureInTurkish(const RuntimeFailure &failure) {
    std::string where = failure.what();
    for (const Phrase &phrase : kPhrases)
        Replace(where, phrase);
    return std::string(KindInTurkish(failure.kind())) + ": " + where;
}

} // namespace havuz
