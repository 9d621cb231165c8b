// sin, cos, tan, pow and hypot for Windows, in place of those of its C library, which are off in the last bit too often
// for files that are the same to the byte everywhere (docs/windows.md has the counts). Extended precision (64 bits),
// rounded once: right but for one argument in some hundreds of thousands near the middle of two numbers. Arguments of
// the circle functions are reduced by pi/2 in three parts (Cody and Waite, Software Manual for the Elementary
// Functions, 1980, ch. 8).
#ifdef _WIN32
#include <cmath>

// The linker takes these before those of the library.
extern "C" {
double sin(double x);
double cos(double x);
double tan(double x);
double pow(double x, double y);
double hypot(double x, double y);
}

namespace {

struct Reduced {
    long double rest; // -pi/4 .. pi/4
    int quarter;      // 0 .. 3
};

// Beyond 2^31 quarter turns nothing of an angle is left that this program could mean.
Reduced Reduce(double x) {
    // pi/2 = kFirst + kSecond + kThird; the first two have 32 bits, so that their multiples are exact.
    constexpr long double kFirst = 0x1.921fb544p+0L, kSecond = 0x1.0b4611a6p-34L, kThird = 0x1.3198a2e03707344ap-69L;
    const long double turns = nearbyintl(static_cast<long double>(x) * 0.63661977236758134308L);
    const long double rest = ((static_cast<long double>(x) - turns * kFirst) - turns * kSecond) - turns * kThird;
    return {rest, static_cast<int>(static_cast<long long>(turns) & 3)};
}

long double SinOf(const Reduced &r, int shift) {
    const int quarter = (r.quarter + shift) & 3;
    const long double value = quarter % 2 == 0 ? sinl(r.rest) : cosl(r.rest);
    return quarter < 2 ? value : -value;
}

} // namespace

double sin(double x) { return x == 0.0 ? x : static_cast<double>(SinOf(Reduce(x), 0)); }

double cos(double x) { return static_cast<double>(SinOf(Reduce(x), 1)); }

double tan(double x) {
    const Reduced r = Reduce(x);
    return x == 0.0 ? x : static_cast<double>(SinOf(r, 0) / SinOf(r, 1));
}

double pow(double x, double y) { return static_cast<double>(powl(x, y)); }

double hypot(double x, double y) {
    const long double a = x, b = y;
    return static_cast<double>(sqrtl(a * a + b * b)); // a double's square does not overflow here
}
#endif
