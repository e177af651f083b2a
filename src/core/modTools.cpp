#include "core/modTools.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>

#include "core/IUserInterface.h"
#include "core/modPaths.h"

namespace kavrin {

namespace {

UserNumberFormat gUserFormat;
long gErrorBoxes = 0;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Length of the longest prefix of text that reads as a decimal number with "." as point.
size_t NumericPrefixLength(std::string_view text) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    size_t digits = 0;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
        ++i;
        ++digits;
    }
    if (i < text.size() && text[i] == '.') {
        size_t j = i + 1;
        size_t fraction = 0;
        while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) {
            ++j;
            ++fraction;
        }
        if (digits + fraction > 0)
            i = j, digits += fraction;
    }
    if (digits == 0)
        return 0;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-'))
            ++j;
        size_t expDigits = 0;
        while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) {
            ++j;
            ++expDigits;
        }
        if (expDigits > 0)
            i = j;
    }
    return i;
}

double ParseDecimal(std::string_view number) {
    if (!number.empty() && number.front() == '+')
        number.remove_prefix(1);
    double value = 0;
    auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars leaves the value alone when out of range: give what the runtime gives.
        bool negative = !number.empty() && number.front() == '-';
        bool tiny =
            number.find("e-") != std::string_view::npos || number.find("E-") != std::string_view::npos;
        if (tiny)
            return negative ? -0.0 : 0.0;
        return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    }
    return value;
}

// The whole (trimmed) text as a number, or a type mismatch.
double WholeTextAsNumber(std::string_view text) {
    text = Trim(text);
    size_t length = NumericPrefixLength(text);
    if (length == 0 || length != text.size())
        throw CError::TypeMismatch();
    return ParseDecimal(text);
}

template <typename Int> Int RoundToInteger(double value) {
    if (std::isnan(value))
        throw CError::Overflow();
    double rounded = std::nearbyint(value); // default rounding mode: ties to even
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max()))
        throw CError::Overflow();
    return static_cast<Int>(rounded);
}

template <typename Int> bool TryPlainInteger(std::string_view text, Int& out) {
    // Fast path for the common case of plain decimal integers.
    const char* begin = text.data();
    const char* end = begin + text.size();
    if (begin != end && *begin == '+') {
        ++begin;
        if (begin != end && *begin == '-')
            return false; // "+-1" is no number; the full conversion refuses it
    }
    int64_t value = 0;
    auto result = std::from_chars(begin, end, value);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max())
        throw CError::Overflow();
    out = static_cast<Int>(value);
    return true;
}

template <typename Int> Int TextToRuntimeInteger(std::string_view text) {
    text = Trim(text);
    Int value{};
    if (TryPlainInteger(text, value))
        return value;
    return RoundToInteger<Int>(WholeTextAsNumber(text));
}

// "0.######E-00": one digit, up to six decimals (point kept), exponent of at least two digits.
std::string SmallNumberText(double value, int decimals) {
    char buffer[64];
    auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, decimals);
    std::string text(buffer, result.ptr);
    size_t e = text.find('e');
    std::string mantissa = text.substr(0, e);
    std::string exponent = text.substr(e + 1);
    while (!mantissa.empty() && mantissa.back() == '0')
        mantissa.pop_back();
    bool negativeExponent = exponent.front() == '-';
    std::string digits = exponent.substr(1);
    while (digits.size() > 2 && digits.front() == '0')
        digits.erase(0, 1);
    return mantissa + "E" + (negativeExponent ? "-" : "") + digits;
}

// Shortest general form with the given significant digits, exponent written as E+20.
std::string GeneralNumberText(double value, int precision) {
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, precision);
    std::string text(buffer, result.ptr);
    size_t e = text.find('e');
    if (e == std::string::npos)
        return text;
    std::string exponent = text.substr(e + 1);
    char sign = exponent.front();
    std::string digits = exponent.substr(1);
    while (digits.size() > 2 && digits.front() == '0')
        digits.erase(0, 1);
    return text.substr(0, e) + "E" + sign + digits;
}

std::string FileNumberText(double value, int precision) {
    if (value == 0 || std::isnan(value))
        return "0";
    double largest = precision >= 15 ? kLargestFileNumber : 3.402823e38;
    if (std::fabs(value) > largest)
        value = std::copysign(largest, value);
    // Whole numbers are common (directions of 1 and -1, lengths, heights): written directly.
    double digitsLimit = precision >= 15 ? 1e15 : std::pow(10.0, precision);
    if (std::fabs(value) < digitsLimit && value == std::trunc(value)) {
        char buffer[24];
        auto result = std::to_chars(buffer, buffer + sizeof buffer, static_cast<long long>(value));
        return std::string(buffer, result.ptr);
    }
    std::string text =
        std::fabs(value) < 0.034 ? SmallNumberText(value, 6) : GeneralNumberText(value, precision);
    for (char& c : text)
        if (c == ',')
            c = '.';
    return text;
}

} // namespace

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string FormatMessageV(std::string_view templ, const std::vector<std::string>& args) {
    std::string out;
    out.reserve(templ.size() + 32);
    for (size_t i = 0; i < templ.size(); ++i) {
        char c = templ[i];
        if (c != '%') {
            out += c;
            continue;
        }
        if (i + 1 >= templ.size())
            break;
        char code = templ[++i];
        if (code >= '1' && code <= '9') {
            size_t index = static_cast<size_t>(code - '1');
            if (index < args.size())
                out += args[index];
            else
                out += code;
        } else if (code == 'n') {
            out += kLineBreak;
        } else if (code == 'm') {
            out += kLineBreak;
            out += kLineBreak;
        } else if (code == 't') {
            out += '\t';
        } else {
            out += code;
        }
    }
    return out;
}

std::string ArgText(const std::string& v) {
    return v;
}
std::string ArgText(std::string_view v) {
    return std::string(v);
}
std::string ArgText(const char* v) {
    return v ? std::string(v) : std::string();
}
std::string ArgText(bool v) {
    return v ? "Wahr" : "Falsch";
}

std::string ArgText(double v) {
    std::string text = GeneralNumberText(v, 15);
    for (char& c : text)
        if (c == '.')
            c = gUserFormat.decimal;
    return text;
}

namespace {
// Thousands separators into the digits before the decimal point of a plain number text.
std::string Grouped(std::string text, char decimal, bool grouped = true) {
    size_t digitsEnd = text.find('.');
    if (digitsEnd == std::string::npos)
        digitsEnd = text.size();
    else
        text[digitsEnd] = decimal;
    size_t digitsBegin = text.front() == '-' ? 1 : 0;
    for (size_t at = digitsEnd; grouped && at > digitsBegin + 3; at -= 3)
        text.insert(at - 3, 1, gUserFormat.thousands);
    return text;
}
} // namespace

std::string WholeNumberText(int64_t value) {
    return Grouped(std::to_string(value), gUserFormat.decimal);
}

// A value that rounds to zero is shown without its sign.
std::string DecimalText(double value, int decimals, bool grouped) {
    if (!std::isfinite(value))
        return GeneralNumberText(value, 15);
    double scale = std::pow(10.0, decimals);
    if (std::fabs(value) * scale < 0.5)
        value = 0;
    char buffer[400];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
    return Grouped(std::string(buffer, result.ptr), gUserFormat.decimal, grouped);
}

double Remainder(double dividend, double divisor) {
    return std::fmod(dividend, divisor);
}

void SetUserNumberFormat(UserNumberFormat format) {
    gUserFormat = format;
}
UserNumberFormat GetUserNumberFormat() {
    return gUserFormat;
}

std::string NumberToText(double value) {
    return FileNumberText(value, 15);
}
std::string NumberToText(float value) {
    return FileNumberText(static_cast<double>(value), 7);
}

std::string NumberToText(const Variant& value) {
    struct Visitor {
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(bool v) const { return v ? "True" : "False"; }
        std::string operator()(int16_t v) const { return std::to_string(v); }
        std::string operator()(int32_t v) const { return std::to_string(v); }
        std::string operator()(int64_t v) const { return std::to_string(v); }
        std::string operator()(float v) const { return NumberToText(v); }
        std::string operator()(double v) const { return NumberToText(v); }
        std::string operator()(const std::string& v) const { return v; }
    };
    return std::visit(Visitor{}, value);
}

double TextToNumber(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    size_t length = NumericPrefixLength(text);
    return length == 0 ? 0.0 : ParseDecimal(text.substr(0, length));
}

bool NumberTextReadsAs(std::string_view text, double value, bool exact) {
    text = Trim(text);
    size_t length = NumericPrefixLength(text);
    if (length == 0 || length != text.size())
        return false;
    double read = ParseDecimal(text);
    if (read == value)
        return true;
    return !exact && std::fabs(read - value) <= 1e-6 * std::max(std::fabs(read), std::fabs(value));
}

int32_t TextToLong(std::string_view text) {
    return TextToRuntimeInteger<int32_t>(text);
}
int16_t TextToInteger(std::string_view text) {
    return TextToRuntimeInteger<int16_t>(text);
}

int32_t ClampedInteger(double value) {
    if (std::isnan(value))
        return 0;
    if (value <= static_cast<double>(std::numeric_limits<int32_t>::min()))
        return std::numeric_limits<int32_t>::min();
    if (value >= static_cast<double>(std::numeric_limits<int32_t>::max()))
        return std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(value);
}

bool TryTextToLong(std::string_view text, int32_t& out) {
    try {
        out = TextToLong(text);
        return true;
    } catch (const CError&) {
        return false;
    }
}

double TextToDouble(std::string_view text) {
    text = Trim(text);
    if (text.empty())
        return 0;
    // Comma and point are both the decimal separator, whatever the locale: users type either.
    // There is no digit grouping, so a second separator makes the text no number.
    std::string normalised;
    bool separatorSeen = false;
    for (char c : text) {
        if (c == ',' || c == '.') {
            if (separatorSeen)
                throw CError::TypeMismatch();
            separatorSeen = true;
            normalised += '.';
        } else {
            normalised += c;
        }
    }
    return WholeTextAsNumber(normalised);
}

int32_t TextToInt(std::string_view text) {
    text = Trim(text);
    if (text.empty())
        return 0;
    return RoundToInteger<int32_t>(TextToNumber(text));
}

std::string SystemErrorText(int errorNumber) {
    switch (errorNumber) {
    case EACCES:
    case EPERM:
        return "keine Berechtigung";
    case ENOENT:
        return "nicht vorhanden";
    case ENOSPC:
        return "kein Platz mehr auf dem Datenträger";
    case EROFS:
        return "Datenträger ist schreibgeschützt";
    case EISDIR:
        return "ist ein Ordner";
    case ENOTDIR:
        return "ein Teil des Pfades ist kein Ordner";
#ifdef EDQUOT
    case EDQUOT:
        return "Speicherkontingent erschöpft";
#endif
    case EIO:
        return "Ein-/Ausgabefehler";
    case EBUSY:
        return "wird gerade benutzt";
    case ENAMETOOLONG:
        return "Name zu lang";
    case EFBIG:
        return "die Datei würde größer, als das System einer Datei erlaubt (Grenze der Dateigröße)";
    case ENOMEM:
        return "nicht genügend Arbeitsspeicher";
    case ELOOP:
        return "zu viele symbolische Verknüpfungen hintereinander";
    case EMFILE:
    case ENFILE:
        return "zu viele offene Dateien";
    case ETXTBSY:
        return "die Datei wird gerade ausgeführt";
    case EXDEV:
        return "Ziel liegt auf einem anderen Datenträger";
    case EMLINK:
        return "zu viele Verknüpfungen";
    default:
        return FormatMessage("Systemfehler %1", errorNumber);
    }
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && std::filesystem::is_regular_file(PathFromUtf8(path), ec);
}

bool DirectoryExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && std::filesystem::is_directory(PathFromUtf8(path), ec);
}

std::string NameWithoutExtension(const std::string& path) {
    size_t dot = path.rfind('.');
    return dot == std::string::npos ? path : path.substr(0, dot);
}

std::string SaveFileFilter(const std::string& extension) {
    if (extension.empty())
        return FormatMessage("Alle Dateien (*.*)|*.*");
    if (extension == ".anl3")
        return FormatMessage("EEP Anlagen (*%1)|*%1", extension);
    if (extension == ".agr")
        return FormatMessage("Kavrin Gruppen (*%1)|*%1", extension);
    if (extension == ".bmp")
        return FormatMessage("Bitmaps (*.bmp)|*.bmp");
    return FormatMessage("%1-Dateien (*%1)|*%1", extension);
}

void ErrorBox(const std::string& text) {
    ++gErrorBoxes;
    UI().ErrorBox(text);
}

long ErrorBoxesShown() {
    return gErrorBoxes;
}

void InfoBox(const std::string& text) {
    UI().InfoBox(text);
}

bool Ask(const std::string& text) {
    return UI().Ask(text);
}

void ReportError(std::string_view procedure, const CError& failure, std::string_view text) {
    std::string caller = text.empty() ? FormatMessage("Es ist ein Fehler aufgetreten!") : std::string(text);
    ErrorBox(FormatMessage("%1%mProzedur: %2%mFehler %3: %4", caller, procedure, failure.Number(),
                           failure.Description()));
}

void ReportCurrentError(std::string_view procedure, std::string_view text) {
    ReportError(procedure, CError::FromCurrentException(), text);
}

} // namespace kavrin
