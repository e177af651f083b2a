#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/CError.h"

namespace kavrin {

// The value of an owned attribute at write time; it is turned into file text by NumberToText.
using Variant = std::variant<std::monostate, bool, int16_t, int32_t, int64_t, float, double, std::string>;

inline constexpr const char* kProgramName = "Kavrin";
inline constexpr const char* kLineBreak = "\r\n";

// Message formatting: %1..%9 arguments, %n line break, %m empty line, %t tab,
// any other character after % stands for itself, a final lone % is dropped.
std::string FormatMessageV(std::string_view templ, const std::vector<std::string>& args);

std::string ArgText(const std::string& v);
std::string ArgText(std::string_view v);
std::string ArgText(const char* v);
std::string ArgText(double v);
std::string ArgText(bool v);
template <typename T>
requires std::is_integral_v<T> std::string ArgText(T v) {
    return std::to_string(v);
}

template <typename... Args> std::string FormatMessage(std::string_view templ, const Args&... args) {
    return FormatMessageV(templ, std::vector<std::string>{ArgText(args)...});
}

// Separators of numbers shown to the user (not of numbers in layout files).
struct UserNumberFormat {
    char decimal = ',';
    char thousands = '.';
};
void SetUserNumberFormat(UserNumberFormat format);
UserNumberFormat GetUserNumberFormat();

// Numbers shown to the user in their format: "#,##0" and "#,##0.00" (with `decimals` places).
// Without grouping (`grouped` false) for a text the user may edit and the program read back.
std::string WholeNumberText(int64_t value);
std::string DecimalText(double value, int decimals, bool grouped = true);
// The remainder of a division with the sign of the dividend (400 and 360 give 40, -400 gives -40).
double Remainder(double dividend, double divisor);
// The largest magnitude the layout-file number format writes so that it reads back as a number;
// a value beyond it (or infinity) the format cannot carry.
inline constexpr double kLargestFileNumber = 1.79769313486231e308;
inline bool FileNumberFits(double value) {
    return value >= -kLargestFileNumber && value <= kLargestFileNumber;
}

// Layout-file number format: "." always; 0 -> "0"; magnitudes below 0.034 as "0.######E-00".
// Values beyond the format's range are written as its largest number (never "inf" or "nan",
// which would read back as 0).
std::string NumberToText(double value);
std::string NumberToText(float value);
std::string NumberToText(const Variant& value);

// A zero-terminated name (as the XML parser hands them out) compared without measuring it first.
inline bool NameIs(const char* name, std::string_view expected) {
    for (char c : expected)
        if (*name++ != c)
            return false;
    return *name == '\0';
}

// Locale-independent prefix conversion of layout files: leading blanks skipped, the longest
// numeric prefix read, anything unreadable gives 0.
double TextToNumber(std::string_view text);

// The run-time's 32- and 16-bit conversions: whole text must be a number (error 13),
// rounded half to even, out of range is an overflow (error 6).
int32_t TextToLong(std::string_view text);
int16_t TextToInteger(std::string_view text);
// A number as a 32-bit integer without undefined behaviour: the fraction cut off, values beyond
// the range clamped to its ends, a value that is no number (NaN) 0.
int32_t ClampedInteger(double value);
// Whether the whole (trimmed) text of a file number reads as `value`: false where only a prefix
// is a number or where the value kept is not the one the text names (rounded, split, clamped).
// `exact` for integers; a floating value may differ by the file format's precision.
bool NumberTextReadsAs(std::string_view text, double value, bool exact);
// TextToLong without an error: false where it would raise one.
bool TryTextToLong(std::string_view text, int32_t& out);

// Dialog input: trimmed, empty gives 0.
double TextToDouble(std::string_view text); // "," or "." as decimal separator; error 13 if no number
int32_t TextToInt(std::string_view text);   // prefix conversion, rounded half to even

std::string_view Trim(std::string_view text);

// A German description of a system error number (errno).
std::string SystemErrorText(int errorNumber);

bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);
std::string NameWithoutExtension(const std::string& path);

// The single filter entry of the save dialog for an extension (with its dot), Windows style.
std::string SaveFileFilter(const std::string& extension);

void ErrorBox(const std::string& text);
// How many error boxes were shown so far (so a caller can tell whether a failure was reported).
long ErrorBoxesShown();
void InfoBox(const std::string& text);
bool Ask(const std::string& text);
// The common error report: caller's text (or the default), the procedure and the failure.
void ReportError(std::string_view procedure, const CError& failure, std::string_view text = {});
// Same, for the failure currently being handled in a catch block.
void ReportCurrentError(std::string_view procedure, std::string_view text = {});
void AddParseHint(const std::string& text);

} // namespace kavrin
