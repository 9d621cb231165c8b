#include "ui/window/recovery.h"

#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/store.h"
#include "model/write_file.h"

#include <array>
#include <filesystem>
#include <string_view>

namespace havuz {

static constexpr std::array kRecoveryNames = {"KURTARMA", "KURTARMA2"};

static std::string RecoveryPath(std::string_view name) { return CalismaDizini + "/" + std::string(name); }

std::string WriteRecoveryFile() {
    const bool open = std::filesystem::path(ProjeAdi).filename() == kRecoveryNames[0];
    const std::string path = RecoveryPath(kRecoveryNames[open ? 1 : 0]) + ".POL";
    WriteWholeFile(path, ProjectText());
    return path;
}

std::string RecoveryPrompt() {
    for (const char *name : kRecoveryNames)
        if (FileExists(RecoveryPath(name) + ".POL"))
            return "ONCEKI CALISMA HATA ILE SONLANDI, MODEL " + std::string(name) + ".POL DOSYASINDA";
    return "";
}

} // namespace havuz
