#include "model/code_page.h"

#include <array>
#include <cstddef>
#include <iconv.h>
#include <map>
#include <stdexcept>

namespace havuz {

// UTF-8 text of each of the 256 bytes, asked of iconv once.
static std::array<std::string, 256> MakeBytes() {
    std::array<std::string, 256> text;
    const iconv_t converter = iconv_open("UTF-8", "WINDOWS-1254");
    if (converter == iconv_t(-1)) // NOLINT(performance-no-int-to-ptr): how iconv tells a failure
        throw std::runtime_error("iconv knows no Windows-1254");
    for (unsigned b = 0; b < text.size(); ++b) {
        char in = static_cast<char>(b);
        std::array<char, 8> out{};
        char *from = &in;
        char *to = out.data();
        std::size_t left = 1;
        std::size_t room = out.size();
        if (iconv(converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) {
            iconv(converter, nullptr, nullptr, nullptr, nullptr);
            text[b] = {static_cast<char>(0xC2), in}; // U+0081 .. U+009E
        } else {
            text[b].assign(out.data(), out.size() - room);
        }
    }
    iconv_close(converter);
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
