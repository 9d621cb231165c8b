// The number texts of the export files.
#include "export/number_fields.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

TEST(ExportNumbers, PlainTextShowsTheDigitsOfTheWidth) {
    const std::pair<double, const char *> doubles[] = {
        {0.25, " .25"},
        {-0.25, "-.25"},
        {12, " 12"},
        {0, " 0"},
        {-0.0, " 0"},
        {1.0 / 3, " .333333333333333"},
        {1e10, " 10000000000"}, // where a project file has an exponent already
        {0.001, " .001"},
        {123456789012345.0, " 123456789012345"},
        {1e15, " 1E+15"},
        {-1.5e20, "-1.5E+20"},
        {2e-15, " .000000000000002"},
        {2e-16, " 2E-16"},
        {0.0700000010430813, " .0700000010430813"}};
    for (const auto &[value, text] : doubles)
        EXPECT_EQ(PlainNumberText(value), text) << value;
    const std::pair<double, const char *> singles[] = {
        {0.1, " .1"},    {1.0 / 3, " .3333333"},       {9999999, " 9999999"},
        {1e7, " 1E+07"}, {-12345678, "-1.234568E+07"}, {1e-7, " .0000001"},
        {1e-8, " 1E-08"}};
    for (const auto &[value, text] : singles)
        EXPECT_EQ(PlainNumberText(Float32(value)), text) << value;
    EXPECT_EQ(PlainNumberText(-7), "-7");
    EXPECT_EQ(BareNumber(12), " 12 ");
}

TEST(ExportNumbers, FieldsAreRightAlignedAndFractionsNeverCut) {
    struct Case {
        double value;
        int width, decimals;
        const char *text;
        double left; // the value afterwards
    };
    const Case cases[] = {
        {1234.5, 9, 3, " 1234.500", 1234.5},
        {0.5, 9, 3, "     .500", 0.5},
        {-0.5, 9, 3, "    -.500", -0.5},
        {0, 9, 3, "    0.000", 0},
        {12, 9, 3, "   12.000", 12},
        {-12, 9, 3, "  -12.000", -12},
        {0.0005, 9, 3, "    0.000", 0}, // a tie goes to the even thousandth
        {0.0015, 9, 3, "     .002", 0.002},
        {1.23456, 9, 3, "    1.235", 1.235},
        {999999.999, 9, 3, "999999.999", 999999.999}, // longer than its field, left as it is
        {1000000, 9, 3, "00000.000", 1000000},
        {1000000.5, 9, 3, "ì", 1000000.5},
        {-1000000.5, 9, 3, "ì", -1000000.5},
        {-12345, 9, 3, "12345.000", -12345}, // the sign is cut like a digit
        {100, 6, 3, "00.000", 100},
        {20, 6, 3, "20.000", 20},
        {12.5, 9, -3, "±12.500", 12.5},
        {12, 9, -3, "±12", 12},
    };
    for (const Case &c : cases) {
        double value = c.value;
        EXPECT_EQ(FixedField(value, c.width, c.decimals), c.text) << c.value;
        EXPECT_EQ(value, c.left) << c.value;
    }
    double wide = 1e6;
    EXPECT_EQ(FailureOf([&] { FixedField(wide, 12, 4); }).kind, Overflow);
}

TEST(ExportNumbers, NumbersOfFourPlacesLoseTheirThousands) {
    const std::pair<int, const char *> cases[] = {
        {1, "   1"}, {999, " 999"}, {1000, " 000"}, {1234, " 234"}, {4999, " 999"}};
    for (const auto &[n, text] : cases)
        EXPECT_EQ(FixedField(n, 4, 0), text) << n;
}

TEST(ExportNumbers, AStoredCoordinateIsCutToItsWidthAndShownAtSevenDigits) {
    Float32 x(12345.6789);
    EXPECT_EQ(FixedField(x, 9, 3), "12345.680");
    EXPECT_EQ(x.raw(), 12345.679F);
    Float32 whole(123456.03); // no fraction is left within seven digits
    EXPECT_EQ(FixedField(whole, 9, 3), "23456.000");
    Float32 y(0.1234567);
    EXPECT_EQ(FixedField(y, 9, 3), "     .123");
    EXPECT_EQ(y.raw(), 0.123F);
}

} // namespace havuz
