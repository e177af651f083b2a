#include "CommandLine.h"

#include <charconv>
#include <string_view>

namespace kavrin::gen {
namespace {
// Far beyond any benchmark, yet small enough that coordinates stay below 10^7 cm, where seven
// significant digits still resolve whole centimetres.
constexpr double kMaxMegabytes = 2000;
constexpr long long kMaxCount = 5000000;

template <typename T> bool parseNumber(std::string_view text, T& value) {
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    return result.ec == std::errc() && result.ptr == end;
}

class Parser {
public:
    Parser(int argc, const char* const* argv, std::string& error) : argc_(argc), argv_(argv), error_(error) {}

    std::optional<GeneratorOptions> run() {
        for (index_ = 1; index_ < argc_; ++index_) {
            if (!handle(argv_[index_])) {
                return std::nullopt;
            }
        }
        return check() ? std::optional(options_) : std::nullopt;
    }

private:
    bool handle(std::string_view arg) {
        if (arg == "--help" || arg == "-h") {
            options_.help = true;
            return true;
        }
        if (arg == "--demo") {
            options_.demo = true;
            return true;
        }
        if (arg == "--size") {
            return value(arg) && readSize();
        }
        if (arg == "--tracks") {
            return value(arg) && readCount(arg, options_.tracks);
        }
        if (arg == "--buildings") {
            return value(arg) && readCount(arg, options_.buildings);
        }
        if (arg == "--format") {
            return value(arg) && readFormat();
        }
        if (arg == "--seed") {
            return value(arg) &&
                   (parseNumber(current_, options_.seed) || fail("ungültiger Startwert '", arg));
        }
        if (arg.size() > 1 && arg[0] == '-') {
            return fail("unbekannte Option '", arg);
        }
        if (!options_.output.empty()) {
            return fail("mehr als eine Ausgabedatei angegeben: '", arg);
        }
        options_.output = std::string(arg);
        return true;
    }

    bool value(std::string_view option) {
        if (index_ + 1 >= argc_) {
            error_ = "Option " + std::string(option) + " erwartet einen Wert";
            return false;
        }
        current_ = argv_[++index_];
        return true;
    }

    bool readSize() {
        double megabytes = 0;
        if (!parseNumber(current_, megabytes) || !(megabytes > 0) || megabytes > kMaxMegabytes) {
            return fail("ungültige Größe in MB (erlaubt: über 0 bis 2000): '", current_);
        }
        options_.sizeMegabytes = megabytes;
        return true;
    }

    bool readCount(std::string_view option, long long& count) {
        if (!parseNumber(current_, count) || count < 0 || count > kMaxCount) {
            error_ = "ungültige Anzahl für " + std::string(option) + " (erlaubt: 0 bis 5000000): '" +
                     std::string(current_) + "'";
            return false;
        }
        return true;
    }

    bool readFormat() {
        if (current_ == "classic") {
            options_.format = TrackFormat::Classic;
        } else if (current_ == "new") {
            options_.format = TrackFormat::New;
        } else {
            return fail("unbekanntes Format (erlaubt: classic, new): '", current_);
        }
        return true;
    }

    bool check() {
        if (options_.help) {
            return true;
        }
        if (options_.sizeMegabytes > 0 && options_.tracks >= 0) {
            error_ = "--size und --tracks schließen sich aus";
            return false;
        }
        if (options_.demo &&
            (options_.sizeMegabytes > 0 || options_.tracks >= 0 || options_.buildings >= 0)) {
            error_ = "--demo verträgt sich nicht mit --size, --tracks oder --buildings";
            return false;
        }
        if (options_.output.empty()) {
            error_ = "keine Ausgabedatei angegeben";
            return false;
        }
        return true;
    }

    bool fail(std::string_view message, std::string_view arg) {
        error_ = std::string(message) + std::string(arg) + "'";
        return false;
    }

    int argc_;
    const char* const* argv_;
    std::string& error_;
    int index_ = 1;
    std::string_view current_;
    GeneratorOptions options_;
};
} // namespace

std::optional<GeneratorOptions> parseCommandLine(int argc, const char* const* argv, std::string& error) {
    return Parser(argc, argv, error).run();
}

const char* usageText() {
    return "Aufruf: kavrin-gen [--size MB | --tracks N] [--buildings N] [--format classic|new]\n"
           "                  [--seed S] [--demo] AUSGABE.anl3\n"
           "\n"
           "Schreibt eine synthetische EEP-Anlage mit dem Aufbau echter Anlagen: zweigleisige Hauptbahn\n"
           "mit Bahnhof, Straßenbahn, Straße, Kanal, Gebäude, Kontakte, Signale und Züge. Große Anlagen\n"
           "bestehen aus vielen solchen Kacheln.\n"
           "\n"
           "  --size MB        Anlage von etwa MB Megabyte (1 MB = 1 048 576 Byte)\n"
           "  --tracks N       genau N Gleise (alle Gleissysteme zusammen)\n"
           "  --buildings N    genau N Immobilien (alle Gebäudesammlungen zusammen)\n"
           "  --format classic Gleise im Format bis EEP 15 (Dreibein, Charakteristik) - Vorgabe\n"
           "  --format new     Gleise im Format ab EEP 17 (Frame, Interval, Curve, Twist)\n"
           "  --seed S         Startwert des Zufallsgenerators (Vorgabe 1); gleicher Startwert,\n"
           "                   gleiche Datei\n"
           "  --demo           die kleine Demo-Anlage\n"
           "  --help           diese Hilfe\n"
           "\n"
           "Ohne --size, --tracks und --buildings entsteht eine einzelne Kachel.\n"
           "Rückgabewert: 0 Erfolg, 1 Schreibfehler, 2 falscher Aufruf.\n";
}

} // namespace kavrin::gen
