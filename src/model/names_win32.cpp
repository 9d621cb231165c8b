// Names on Windows: UTF-8 in the program, UTF-16 for the system. std::filesystem makes its paths of the multibyte
// letters of the C library, which are of the machine's code page: here they are UTF-8. Letters beyond U+FFFF lead to
// nothing there.
#ifdef _WIN32
#include "model/platform_win32.h"

#include <cwchar>
#include <windows.h>

namespace havuz::platform {

std::wstring Wide(const std::string &utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Narrow(const std::wstring &utf16) {
    const int size = static_cast<int>(utf16.size());
    std::string text(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    return text;
}

} // namespace havuz::platform

// A byte that is no UTF-8 is a letter that no file has in its name: such a path leads to nothing, and nothing throws.
static std::size_t Stranger(wchar_t *letter) {
    if (letter != nullptr)
        *letter = 0xFFFD;
    return 1;
}

// The linker takes these before those of the library.
extern "C" {

std::size_t mbrtowc(wchar_t *letter, const char *text, std::size_t size, std::mbstate_t *) {
    if (text == nullptr)
        return 0;
    if (size == 0)
        return static_cast<std::size_t>(-2);
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xC2 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : 0;
    unsigned code = length == 1 ? lead : length == 2 ? lead & 0x1FU : lead & 0x0FU;
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= size)
            return Stranger(letter);
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80U)
            return Stranger(letter);
        code = code << 6U | (next & 0x3FU);
    }
    if (length == 0)
        return Stranger(letter);
    if (letter != nullptr)
        *letter = static_cast<wchar_t>(code);
    return code == 0 ? 0 : length;
}

std::size_t mbrlen(const char *text, std::size_t size, std::mbstate_t *state) {
    return mbrtowc(nullptr, text, size, state);
}

std::size_t mbsrtowcs(wchar_t *letters, const char **text, std::size_t size, std::mbstate_t *state) {
    std::size_t count = 0;
    for (const char *at = *text; letters == nullptr || count < size; ++count) {
        wchar_t letter = 0;
        const std::size_t length = mbrtowc(&letter, at, 4, state);
        if (letters != nullptr) {
            letters[count] = letter;
            *text = length == 0 ? nullptr : at + length;
        }
        if (length == 0)
            return count;
        at += length;
    }
    return count;
}
}
#endif
