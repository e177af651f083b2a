#include "NumberFormat.h"

#include <cmath>
#include <cstdint>

namespace kavrin::gen {
namespace {

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kSignificantDigits = 7;
constexpr std::int64_t kDigitLimit = 10000000; // 10^7: one digit too many
constexpr double kScientificBelow = 0.034;
// Far below single precision's smallest value; keeps the scaling below finite.
constexpr double kSmallestWritten = 1e-300;

// Division by an exact power of ten rounds better than multiplying by its inexact reciprocal.
double scaleByPowerOfTen(double v, int exponent) {
    if (exponent >= 0) {
        return exponent < 23 ? v * kPowersOfTen[exponent] : v * std::pow(10.0, exponent);
    }
    return -exponent < 23 ? v / kPowersOfTen[-exponent] : v * std::pow(10.0, exponent);
}

int writeUnsigned(std::uint64_t n, char* out) {
    char digits[24];
    int count = 0;
    do {
        digits[count++] = static_cast<char>('0' + n % 10);
        n /= 10;
    } while (n != 0);
    for (int i = 0; i < count; ++i) {
        out[i] = digits[count - 1 - i];
    }
    return count;
}

// Seven significant digits of v (> 0) as an integer in [10^6, 10^7), with v's decimal exponent.
std::int64_t sevenDigits(double v, int& exponent) {
    exponent = static_cast<int>(std::floor(std::log10(v)));
    auto digits = std::llround(scaleByPowerOfTen(v, kSignificantDigits - 1 - exponent));
    if (digits >= kDigitLimit) { // rounding carried into a new digit, or log10 was one too small
        ++exponent;
        digits = std::llround(scaleByPowerOfTen(v, kSignificantDigits - 1 - exponent));
    } else if (digits < kDigitLimit / 10) { // log10 was one too large
        --exponent;
        digits = std::llround(scaleByPowerOfTen(v, kSignificantDigits - 1 - exponent));
    }
    return digits;
}

// "d.dddddd" with trailing zeros (and a bare point) dropped.
int writeMantissa(std::int64_t digits, char* out) {
    char text[8];
    writeUnsigned(static_cast<std::uint64_t>(digits), text);
    int length = kSignificantDigits;
    while (length > 1 && text[length - 1] == '0') {
        --length;
    }
    int n = 0;
    out[n++] = text[0];
    if (length > 1) {
        out[n++] = '.';
        for (int i = 1; i < length; ++i) {
            out[n++] = text[i];
        }
    }
    return n;
}

int writeExponent(int exponent, bool alwaysSigned, char* out) {
    int n = 0;
    out[n++] = 'E';
    if (exponent < 0) {
        out[n++] = '-';
    } else if (alwaysSigned) {
        out[n++] = '+';
    }
    const int magnitude = exponent < 0 ? -exponent : exponent;
    if (magnitude < 10) {
        out[n++] = '0';
    }
    return n + writeUnsigned(static_cast<std::uint64_t>(magnitude), out + n);
}

int writeScientific(double v, bool alwaysSignedExponent, char* out) {
    int exponent = 0;
    const auto digits = sevenDigits(v, exponent);
    const int n = writeMantissa(digits, out);
    return n + writeExponent(exponent, alwaysSignedExponent, out + n);
}

// Plain positional form for 0.034 <= v < 10^7.
int writePositional(double v, char* out) {
    int exponent = 0;
    const auto digits = sevenDigits(v, exponent);
    if (exponent >= kSignificantDigits) {
        return writeScientific(v, true, out);
    }
    char text[8];
    writeUnsigned(static_cast<std::uint64_t>(digits), text);
    int last = kSignificantDigits; // one past the last significant (non-zero) fraction digit
    const int integerDigits = exponent + 1;
    while (last > integerDigits && last > 0 && text[last - 1] == '0') {
        --last;
    }
    int n = 0;
    if (integerDigits <= 0) {
        out[n++] = '0';
        out[n++] = '.';
        for (int i = 0; i < -integerDigits; ++i) {
            out[n++] = '0';
        }
        for (int i = 0; i < last; ++i) {
            out[n++] = text[i];
        }
        return n;
    }
    for (int i = 0; i < integerDigits; ++i) {
        out[n++] = text[i];
    }
    if (last > integerDigits) {
        out[n++] = '.';
        for (int i = integerDigits; i < last; ++i) {
            out[n++] = text[i];
        }
    }
    return n;
}

} // namespace

int formatLayoutNumber(double v, char* out) {
    if (!std::isfinite(v) || std::abs(v) < kSmallestWritten) {
        out[0] = '0';
        return 1;
    }
    int n = 0;
    if (v < 0) {
        out[n++] = '-';
        v = -v;
    }
    if (v < kScientificBelow) {
        return n + writeScientific(v, false, out + n);
    }
    if (v < static_cast<double>(kDigitLimit) && v == std::floor(v)) { // most coordinates: whole centimetres
        return n + writeUnsigned(static_cast<std::uint64_t>(v), out + n);
    }
    return n + writePositional(v, out + n);
}

} // namespace kavrin::gen
