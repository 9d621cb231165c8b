// Number text: the project file's forms, what a person types, the pictures of tables and dialogs.
#include "model/number_text.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

TEST(NumberText, FileFormsOfBothWidths) {
    const std::pair<double, const char *> doubles[] = {{0, "0"},
                                                       {-0.0, "0"},
                                                       {0.4, ".4"},
                                                       {-0.5, "-.5"},
                                                       {20, "20"},
                                                       {0.01, ".01"},
                                                       {0.0015, "1.5E-03"},
                                                       {0.00999, "9.99E-03"},
                                                       {9999999999.0, "9999999999"},
                                                       {1e10, "1E+10"},
                                                       {-1.25e10, "-1.25E+10"},
                                                       {1e100, "1E+100"},
                                                       {1.0 / 3, ".333333333333333"},
                                                       {9999999999.99999, "9999999999.99999"},
                                                       {9999999999.999999, "1E+10"},
                                                       {2e-5, "2E-05"}};
    for (const auto &[value, text] : doubles)
        EXPECT_EQ(NumberText(value), text) << value;
    const std::pair<double, const char *> singles[] = {
        {0.01, ".01"},        {0.1, ".1"},           {1.0 / 3, ".3333333"},
        {9999999, "9999999"}, {1e7, "1E+07"},        {12345678, "1.234568E+07"},
        {-2.5, "-2.5"},       {0.00125, "1.25E-03"}, {1e-30, "1E-30"}};
    for (const auto &[value, text] : singles)
        EXPECT_EQ(NumberText(Float32(value)), text) << value;
}

TEST(NumberText, TypedNumbersTakeTheLongestNumericPrefix) {
    const std::pair<const char *, double> cases[] = {
        {"12,5", 12.5}, {"12.5", 12.5}, {"1,5,2", 1.5}, {"  -3x", -3}, {"abc", 0}, {"", 0},
        {".5.5", 0.5},  {"1e3", 1000},  {"1d2", 100},   {"1e", 1},     {"2E+", 2}, {"+4", 4},
        {"-", 0},       {"1.2,3", 1.2}, {"1e-999", 0},  {"nan", 0},    {"inf", 0}, {"0x10", 0}};
    for (const auto &[text, value] : cases)
        EXPECT_EQ(ParseNumber(text), value) << text;
    EXPECT_EQ(ParsePlainNumber("12,5"), 12);
    EXPECT_EQ(FailureOf([] { ParseNumber("1e999"); }).kind, Overflow);
}

TEST(NumberText, WholeFieldsOfAFileAreNumbersOrNothing) {
    EXPECT_EQ(ReadNumberField(" 1.5D+03 "), 1500.0);
    EXPECT_EQ(ReadNumberField("-.5"), -0.5);
    for (const char *bad : {"abc", "1 2", "1.5x", "--1", "nan", "1e", "0x1p3"})
        EXPECT_EQ(ReadNumberField(bad), std::nullopt) << bad;
}

TEST(NumberText, Pictures) {
    const std::tuple<double, const char *, const char *> cases[] = {{0, "#####", ""},
                                                                    {0.4, "####", ""},
                                                                    {0.5, "####", "1"},
                                                                    {12, "#####", "12"},
                                                                    {0, "###0.###", "0"},
                                                                    {2, "####0.###", "2"},
                                                                    {2.5, "####0.###", "2.5"},
                                                                    {-0.0004, "###0.###", "0"},
                                                                    {-1.25, "####0.#", "-1.3"},
                                                                    {9.9996, "###0.###", "10"},
                                                                    {0.25, "##0.00", "0.25"},
                                                                    {3, "##0.00", "3.00"},
                                                                    {123456, "###0.##", "123456"},
                                                                    {1.005, "##0.00", "1.01"},
                                                                    {1e-9, "##0.00", "0.00"}};
    for (const auto &[value, picture, text] : cases)
        EXPECT_EQ(PictureText(value, picture), text) << value << " in " << picture;
}

} // namespace havuz
