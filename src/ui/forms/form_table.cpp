#include "ui/forms/form_table.h"

#include "model/failure.h"

namespace havuz {

static constexpr Place kToolPlace{800.0, 900.0};  // dialogs of the main tools
static constexpr Place kNodePlace{950.0, 1100.0}; // dialogs of the pointer
static constexpr Element kNoTool{};
static constexpr FormKind kDialog = FormKind::Dialog, kTable = FormKind::Table, kPalette = FormKind::Palette;
static constexpr Modality kModal = Modality::Modal, kModeless = Modality::Modeless;

// clang-format off
static constexpr FormRow kForms[] = {
    {"POOLGEN",  "HAVUZ  GENEL  BİLGİSİ",                    "",               kDialog,  kGeneralDataTool, kToolPlace, kModal,    false, true},
    {"donsec",   "HAVUZ  MALZEME SECIMI",                    "",               kDialog,  kMaterialTool,    kToolPlace, kModeless, true,  false},
    {"POOLlib",  "HAVUZ  PARAMETRİK  TASARIM   KÜTÜPHANESİ", "",               kDialog, kLibraryTool,  kToolPlace, kModeless, true,  true},
    {"FEAPLAK",  "HAVUZ  PANEL  BİLGİSİ",                    "",               kTable,   kPanelTableTool,  kToolPlace, kModeless, true,  true},
    {"MESHBIL",  "MESH BILGISI",                             "",               kTable,   kMeshTableTool,   kToolPlace, kModeless, true,  true},
    {"KOORBIL",  "KOORDINAT BILGISI",                        "",               kTable,   kNodeTableTool,   kToolPlace, kModeless, true,  true},
    {"TOOL",     "",                                         "TABLO SATIRI",   FormKind::Popup,  kNoTool,          {},         kModeless, false, false},
    {"BILGI",    "FEA DOSYA ISMINI VERIN",                   "",               kDialog,  kSaveTool,        kToolPlace, kModeless, true,  false},
    {"LOADFILE", "HAVUZ  DOSYASI OKUMA",                     "",               kDialog,  kOpenTool,        kToolPlace, kModal,    false, false},
    {"ENDKONT",  "Program end",                              "PROGRAM SONU",   kDialog,  kNoTool,          {},         kModeless, true,  false},
    {"MESTIP",   "",                                         "MESNET",         kDialog,  kNoTool,          kNodePlace, kModeless, true,  false},
    {"NOKYUK",   "",                                         "NOKTA YUKU",     kDialog,  kNoTool,          kNodePlace, kModeless, true,  false},
    {"yesno",    "POLIGON HAVUZU ONAYLIYORMUSUNUZ",          "POLIGON HAVUZU", kDialog,  kNoTool,          kNodePlace, kModeless, true,  false},
    {"MESHRAP",  "MESH UYARILARI",                            "MESH UYARILARI", kDialog,  kNoTool,          kToolPlace, kModeless, false, false},
    {"KURTAR",   "KURTARILAN ÇALIŞMALAR",                     "KURTARMA",       kDialog,  kNoTool,          kToolPlace, kModeless, false, false},
    {kTool1,     "",                                         "PALET",          kPalette, kNoTool,          {},         kModeless, false, false},
    {kTool2,     "",                                         "PALET",          kPalette, kNoTool,          {},         kModeless, false, false},
    {kTool3,     "",                                         "PALET",          kPalette, kNoTool,          {},         kModeless, false, false},
};
// clang-format on

const FormRow &RowOfForm(std::string_view name) {
    for (const FormRow &row : kForms)
        if (row.name == name)
            return row;
    throw RuntimeFailure({.fault = Fault::Unknown, .thing = Thing::Form, .text = std::string(name)});
}

} // namespace havuz
