#include "cli/CRenderCommand.h"

#include <cmath>
#include <filesystem>
#include <memory>
#include <ostream>

#include "cli/CConsoleUserInterface.h"
#include "compare/CLayoutDiff.h"
#include "core/modPaths.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "nodes/LayoutLookup.h"
#include "plan/CDiffOverlay.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CTerrainBitmaps.h"

namespace kavrin {

namespace {
constexpr int kMaxPixels = 16384;

// A number as typed on the command line: "." or "," as decimal separator.
bool ReadNumber(std::string text, double& value) {
    for (char& c : text)
        if (c == ',')
            c = '.';
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return !text.empty() && end == text.c_str() + text.size() && std::isfinite(value);
}

bool ReadSize(const std::string& text, int& width, int& height) {
    size_t x = text.find_first_of("xX");
    double w = 0, h = 0;
    if (x == std::string::npos || !ReadNumber(text.substr(0, x), w) || !ReadNumber(text.substr(x + 1), h))
        return false;
    if (w < 1 || h < 1 || w > kMaxPixels || h > kMaxPixels || w != std::floor(w) || h != std::floor(h))
        return false;
    width = static_cast<int>(w);
    height = static_cast<int>(h);
    return true;
}

// "X;Y" in metres (the comma may be the decimal separator, so the pair uses a semicolon; a
// single comma between two plain numbers is read as the pair separator too).
bool ReadCentre(const std::string& text, std::pair<double, double>& centre) {
    size_t split = text.find(';');
    if (split == std::string::npos && std::count(text.begin(), text.end(), ',') == 1)
        split = text.find(',');
    return split != std::string::npos && ReadNumber(text.substr(0, split), centre.first) &&
           ReadNumber(text.substr(split + 1), centre.second);
}

// "UNTEN:OBEN" in metres; either side may be left empty.
bool ReadBand(const std::string& text, std::optional<double>& bottom, std::optional<double>& top) {
    size_t colon = text.find(':');
    if (colon == std::string::npos)
        return false;
    std::string low = text.substr(0, colon), high = text.substr(colon + 1);
    double value = 0;
    if (!low.empty()) {
        if (!ReadNumber(low, value))
            return false;
        bottom = value;
    }
    if (!high.empty()) {
        if (!ReadNumber(high, value))
            return false;
        top = value;
    }
    return bottom || top;
}
} // namespace

const char* CRenderCommand::Usage() {
    return "  kavrin-cli render EIN BILD.png|BILD.svg [Optionen]\n"
           "                               den Plan der Anlage EIN als PNG-Bild speichern,\n"
           "                               als SVG (Vektorgrafik), wenn der Name auf .svg endet:\n"
           "    --groesse BxH              Bildgröße in Pixeln (Vorgabe 1920x1080)\n"
           "    --zoom F                   Zoomfaktor; 1 zeigt die ganze Anlage (Vorgabe)\n"
           "    --mitte X;Y                Bildmitte in Metern (wirkt bei Zoom über 1)\n"
           "    --inhalt                   den Inhalt der Anlage bildfüllend zeigen statt der\n"
           "                               ganzen Anlage (nicht mit --zoom und --mitte)\n"
           "    --hoehe UNTEN:OBEN         Höhenfilter in Metern; eine Seite darf fehlen\n"
           "    --vergleich ALT            die Änderungen gegenüber der Anlage ALT zeigen: neu grün,\n"
           "                               entfernt rot, verschoben oder geändert orange\n"
           "    --namen  --signale  --gleis-ids\n"
           "                               Namen, Signale und Kontakte, Gleis-IDs zeigen\n"
           "                               Farben und Sichtbarkeit: die Ansicht-Optionen des Editors\n";
}

bool CRenderCommand::Parse(const std::vector<std::string>& args, Request& request, std::string& problem) {
    std::vector<std::string> files;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        bool hasValue = i + 1 < args.size();
        if (arg == "--namen") {
            request.names = true;
        } else if (arg == "--signale") {
            request.signals = true;
        } else if (arg == "--gleis-ids") {
            request.trackIds = true;
        } else if (arg == "--inhalt") {
            request.content = true;
        } else if (arg == "--vergleich") {
            if (!hasValue)
                return problem = FormatMessage("Zur Option '%1' fehlt der Wert.", arg), false;
            request.compareWith = args[++i];
        } else if (arg == "--groesse" || arg == "--zoom" || arg == "--mitte" || arg == "--hoehe") {
            if (!hasValue) {
                problem = FormatMessage("Zur Option '%1' fehlt der Wert.", arg);
                return false;
            }
            const std::string& value = args[++i];
            double zoom = 0;
            std::pair<double, double> centre;
            bool ok = arg == "--groesse" ? ReadSize(value, request.width, request.height)
                      : arg == "--zoom"  ? ReadNumber(value, zoom) && zoom >= 1 && zoom <= 65536
                      : arg == "--mitte" ? ReadCentre(value, centre)
                                         : ReadBand(value, request.bottom, request.top);
            if (!ok) {
                problem = FormatMessage("Ungültiger Wert '%1' für '%2'.", value, arg);
                return false;
            }
            if (arg == "--zoom")
                request.zoom = static_cast<float>(zoom);
            if (arg == "--mitte")
                request.centre = centre;
        } else if (arg.size() > 1 && arg[0] == '-') {
            problem = FormatMessage("Unbekannte Option '%1'.", arg);
            return false;
        } else {
            files.push_back(arg);
        }
    }
    if (files.size() != 2) {
        problem = FormatMessage("Falsche Anzahl von Argumenten für '%1'.", "render");
        return false;
    }
    if (request.content && (request.zoom != 1 || request.centre)) {
        problem = FormatMessage("'--inhalt' lässt sich nicht mit '--zoom' oder '--mitte' verbinden.");
        return false;
    }
    if (request.bottom && request.top && *request.bottom > *request.top) {
        problem = FormatMessage("Die untere Sichtgrenze kann nicht größer als die obere sein...");
        return false;
    }
    request.in = files[0];
    request.out = files[1];
    return true;
}

int CRenderCommand::Run(const Request& request) {
    CAnlage anlage;
    if (!anlage.Load(request.in)) {
        err_ << ConsoleText(FormatMessage("Die Anlage wurde nicht geladen.")) << '\n';
        return 1;
    }
    // The old layout only lends its removed objects to the picture; it stays as it is on disk.
    CAnlage alt;
    std::unique_ptr<CLayoutDiff> diff;
    if (!request.compareWith.empty()) {
        if (!alt.Load(request.compareWith)) {
            err_ << ConsoleText(FormatMessage("Die Anlage%n%1%nwurde nicht geladen.", request.compareWith))
                 << '\n';
            return 1;
        }
        diff = std::make_unique<CLayoutDiff>(alt, anlage);
    }
    CPlanView view;
    if (!CPlanPainter::InitView(view, anlage)) {
        err_ << ConsoleText(
                    FormatMessage("Die Anlage hat keine Ausdehnung; es gibt keinen Plan zu zeichnen."))
             << '\n';
        return 1;
    }
    view.SetClientSize(request.width, request.height);
    if (request.content) {
        CPlanPainter::FitToContent(view, anlage);
    } else {
        view.SetZoom(request.zoom);
        if (request.centre && request.zoom > 1)
            view.SetCentre(request.centre->first * 100, request.centre->second * 100);
    }
    if (request.bottom)
        anlage.HoehenFilter().SetBottomLine(static_cast<float>(*request.bottom * 100));
    if (request.top)
        anlage.HoehenFilter().SetTopLine(static_cast<float>(*request.top * 100));
    CTerrainBitmaps bitmaps;
    if (const CNodeLandschaft* terrain = FindTerrain(anlage))
        bitmaps.Check(*terrain,
                      Utf8FromPath(std::filesystem::absolute(PathFromUtf8(request.in)).parent_path()));

    CViewOptions options = options_;
    options.SetGleisId(request.trackIds);
    CPlanPainter painter(anlage, view, options);
    painter.WithNames = request.names;
    painter.WithSignals = request.signals;
    painter.Background = &bitmaps.Background();
    std::string error;
    bool drawn = false;
    auto draw = [&](Canvas& canvas) {
        drawn = painter.DrawAll(canvas);
        if (drawn && diff)
            CDiffOverlay(*diff).Draw(canvas);
        return drawn;
    };
    if (!writer_ || !writer_(request.width, request.height, draw, request.out, error)) {
        err_ << ConsoleText(error.empty() ? FormatMessage("Das Bild konnte nicht erstellt werden.") : error)
             << '\n';
        return 1;
    }
    out_ << ConsoleText(FormatMessage("Der Plan wurde als%n%1%ngespeichert (%2 x %3 Pixel).", request.out,
                                      request.width, request.height))
         << '\n';
    return drawn ? 0 : 1;
}

} // namespace kavrin
