#include "model/code_page.h"

#include <array>
#include <cstddef>
#include <map>
#include <utility>

namespace havuz {

// Where Windows-1254 is not Latin-1 (Unicode's table CP1254.TXT).
static constexpr std::array kLetters = {
    std::pair(0x80, "€"), std::pair(0x82, "‚"), std::pair(0x83, "ƒ"), std::pair(0x84, "„"), std::pair(0x85, "…"),
    std::pair(0x86, "†"), std::pair(0x87, "‡"), std::pair(0x88, "ˆ"), std::pair(0x89, "‰"), std::pair(0x8A, "Š"),
    std::pair(0x8B, "‹"), std::pair(0x8C, "Œ"), std::pair(0x91, "‘"), std::pair(0x92, "’"), std::pair(0x93, "“"),
    std::pair(0x94, "”"), std::pair(0x95, "•"), std::pair(0x96, "–"), std::pair(0x97, "—"), std::pair(0x98, "˜"),
    std::pair(0x99, "™"), std::pair(0x9A, "š"), std::pair(0x9B, "›"), std::pair(0x9C, "œ"), std::pair(0x9F, "Ÿ"),
    std::pair(0xD0, "Ğ"), std::pair(0xDD, "İ"), std::pair(0xDE, "Ş"), std::pair(0xF0, "ğ"), std::pair(0xFD, "ı"),
    std::pair(0xFE, "ş")};

// UTF-8 text of each of the 256 bytes.
static std::array<std::string, 256> MakeBytes() {
    std::array<std::string, 256> text;
    for (unsigned b = 0; b < text.size(); ++b)
        text[b] = b < 0x80 ? std::string(1, static_cast<char>(b))
                           : std::string{static_cast<char>(0xC0 | b >> 6), static_cast<char>(0x80 | (b & 0x3F))};
    for (const auto &[byte, letter] : kLetters)
        text[static_cast<std::size_t>(byte)] = letter;
    return text;
}

static const std::array<std::string, 256> &Bytes() {
    static const std::array<std::string, 256> bytes = MakeBytes();
    return bytes;
}

std::string FromCodePage(std::string_view bytes) {
    std::string text;
    for (const char c : bytes)
        text += Bytes()[static_cast<unsigned char>(c)];
    return text;
}

// Length of the UTF-8 character at the start of s; 0 when the bytes are none.
static std::size_t CharacterLength(std::string_view s) {
    const auto lead = static_cast<unsigned char>(s[0]);
    const std::size_t n = lead < 0x80                   ? 1
                          : lead >= 0xC2 && lead < 0xE0 ? 2
                          : lead >= 0xE0 && lead < 0xF0 ? 3
                          : lead >= 0xF0 && lead < 0xF5 ? 4
                                                        : 0;
    if (n == 0 || s.size() < n)
        return 0;
    for (std::size_t i = 1; i < n; ++i)
        if ((static_cast<unsigned char>(s[i]) & 0xC0) != 0x80)
            return 0;
    return n;
}

std::string ToCodePage(std::string_view utf8) {
    static const std::map<std::string, char> byteOf = [] {
        std::map<std::string, char> m;
        for (unsigned b = 0; b < 256; ++b)
            m[Bytes()[b]] = static_cast<char>(b);
        return m;
    }();
    std::string bytes;
    while (!utf8.empty()) {
        const std::size_t n = CharacterLength(utf8);
        const auto found = n == 0 ? byteOf.end() : byteOf.find(std::string(utf8.substr(0, n)));
        bytes += found == byteOf.end() ? '?' : found->second;
        utf8.remove_prefix(n == 0 ? 1 : n);
    }
    return bytes;
}

} // namespace havuz
