#pragma once

namespace kavrin::gen {

/// Longest text formatLayoutNumber writes, without terminator.
inline constexpr int kMaxNumberLength = 16;

/// Writes v as the simulator writes its single-precision values: at most seven significant digits,
/// "0" for zero, "." as decimal point, magnitudes below 0.034 as mantissa and exponent ("1.5E-03").
/// Returns the number of characters written to out (no terminator).
int formatLayoutNumber(double v, char* out);

} // namespace kavrin::gen
