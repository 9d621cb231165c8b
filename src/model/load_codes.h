// Codes of load columns, as YukListesi holds them: filling i of the cells (YukKombinasyon) is 11 + i, situation i
// (YukDurum) is 1 + i, and 0 stands for column 1, own weight and point loads.
#pragma once

namespace havuz {

constexpr int kFirstFillingCode = 11;
constexpr int kFirstSituationCode = 1;

constexpr int FillingCode(int filling) { return kFirstFillingCode + filling; }
constexpr int SituationCode(int situation) { return kFirstSituationCode + situation; }
constexpr bool IsFillingCode(int code) { return code >= kFirstFillingCode; }
constexpr int FillingOf(int code) { return code - kFirstFillingCode; }
constexpr int SituationOf(int code) { return code - kFirstSituationCode; }

} // namespace havuz
