#include "cli/CCommandLine.h"

#include <ostream>

#include "cli/CConsoleUserInterface.h"
#include "cli/CDiffCommand.h"
#include "cli/CEditCommand.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/CSaveTarget.h"
#include "nodes/CLayoutStatistics.h"
#include "plan/CLayoutInventory.h"

namespace kavrin {

namespace {

// Installs a console port for the lifetime of one command.
class ConsoleScope {
public:
    ConsoleScope(std::ostream& out, std::ostream& err) : ui_(out, err), previous_(SetUI(&ui_)) {}
    ~ConsoleScope() { SetUI(previous_); }
    CConsoleUserInterface& ui() { return ui_; }

private:
    CConsoleUserInterface ui_;
    IUserInterface* previous_;
};

} // namespace

// Nothing a command raises ends the program: it is reported on standard error and the command
// has failed.
int CCommandLine::Run(const std::vector<std::string>& args) {
    try {
        return Dispatch(args);
    } catch (...) {
        ConsoleScope console(out_, err_);
        ReportCurrentError(std::string("kavrin-cli.") + (args.empty() ? std::string() : args[0]));
        return kFailed;
    }
}

int CCommandLine::Dispatch(const std::vector<std::string>& args) {
    if (args.empty())
        return Usage(FormatMessage("Es fehlt der Befehl."));
    const std::string& command = args[0];
    if (command == "--help" || command == "-h" || command == "help") {
        Help();
        return kOk;
    }
    if (command == "--version") {
        out_ << kProgramName << " " << KAVRIN_VERSION << '\n';
        return kOk;
    }
    if (command == "info" && args.size() >= 3 && args[1] == "--loeschen-vorschau")
        return DeletionPreview(std::vector<std::string>(args.begin() + 2, args.end()));
    if (command == "info" && args.size() == 2)
        return Info(args[1]);
    if (command == "info" && args.size() == 3 && (args[1] == "--inventar" || args[2] == "--inventar"))
        return Inventory(args[1] == "--inventar" ? args[2] : args[1]);
    if (command == "check" && args.size() == 2)
        return Check(args[1]);
    if (command == "save" && args.size() == 3)
        return Save(args[1], args[2]);
    if (command == "render")
        return Render(std::vector<std::string>(args.begin() + 1, args.end()));
    if (command == "diff")
        return Diff(std::vector<std::string>(args.begin() + 1, args.end()));
    if (command == "edit")
        return Edit(std::vector<std::string>(args.begin() + 1, args.end()));
    if (command == "info" || command == "check" || command == "save")
        return Usage(FormatMessage("Falsche Anzahl von Argumenten für '%1'.", command));
    return Usage(FormatMessage("Unbekannter Befehl '%1'.", command));
}

int CCommandLine::Usage(const std::string& problem) {
    err_ << ConsoleText(problem) << '\n' << "Aufruf: kavrin-cli --help\n";
    return kUsage;
}

void CCommandLine::Help() {
    out_ << "Kavrin " << KAVRIN_VERSION << " - Bearbeitung von EEP-Anlagen (.anl3) ohne Fenster\n\n"
         << "Aufruf:\n"
         << "  kavrin-cli info DATEI        Version, Abschnitte, Elemente je Name und Hinweise der Anlage\n"
         << "  kavrin-cli info --inventar DATEI\n"
         << "                               Inventar: Gleise, Weichen, Signale, Kontakte, Immobilien\n"
         << "                               und Züge mit ihrer Anzahl (wie Anlage > Inventar im Editor)\n"
         << "  kavrin-cli check DATEI       Anlage laden; Hinweise auf der Standardausgabe\n"
         << "  kavrin-cli save EIN AUS      Anlage EIN laden und als AUS speichern\n"
         << CRenderCommand::Usage() << CEditCommand::Usage() << CDiffCommand::Usage()
         << "  kavrin-cli --help            diese Hilfe\n"
         << "  kavrin-cli --version         Versionsnummer\n\n"
         << "Rückgabewert: 0 erfolgreich, 1 fehlgeschlagen, 2 falscher Aufruf (diff: siehe oben).\n";
}

int CCommandLine::Info(const std::string& path) {
    ConsoleScope console(out_, err_);
    CAnlage anlage;
    out_ << "Anlage: " << path << '\n';
    if (!anlage.Load(path)) {
        err_ << ConsoleText(FormatMessage("Die Anlage wurde nicht geladen.")) << '\n';
        return kFailed;
    }
    out_ << "Version: " << anlage.Version().Text() << '\n';
    out_ << "Abschnitte:";
    for (const std::string& name : anlage.FoundChapter().FoundNames())
        out_ << ' ' << name;
    out_ << '\n';
    CLayoutStatistics statistics(anlage);
    PrintContent(statistics);
    out_ << "Elemente je Name (" << statistics.TotalElements() << " insgesamt):\n";
    for (const auto& [name, count] : statistics.ElementCounts())
        out_ << "  " << name << ": " << count << '\n';
    out_ << "Hinweise: " << console.ui().ParseLog().Hints().size() << '\n';
    return kOk;
}

int CCommandLine::Inventory(const std::string& path) {
    ConsoleScope console(out_, err_);
    CAnlage anlage;
    if (!anlage.Load(path)) {
        err_ << ConsoleText(FormatMessage("Die Anlage wurde nicht geladen.")) << '\n';
        return kFailed;
    }
    out_ << "Anlage: " << path << '\n' << ConsoleText(CLayoutInventory(anlage).Text());
    return kOk;
}

void CCommandLine::PrintContent(const CLayoutStatistics& statistics) {
    out_ << "Gleise je Gleissystem:\n";
    for (const auto& system : statistics.TrackSystems())
        out_ << "  " << system.id << " " << system.name << ": " << system.tracks << " Gleise, davon "
             << system.switches << " Weichen\n";
    out_ << "Immobilien je Gebäudesammlung:\n";
    for (const auto& collection : statistics.Collections())
        out_ << "  " << collection.id << " " << collection.name << ": " << collection.buildings << '\n';
    out_ << "Güter: " << statistics.Goods() << '\n';
    out_ << "Kontakte je Art:";
    if (statistics.ContactsByKind().empty())
        out_ << " keine";
    out_ << '\n';
    for (const auto& [kind, count] : statistics.ContactsByKind())
        out_ << "  " << kind << ": " << count << '\n';
    out_ << "Signale: " << statistics.Signals() << '\n';
    out_ << "Züge: " << statistics.Trains() << '\n';
}

int CCommandLine::Check(const std::string& path) {
    ConsoleScope console(out_, err_);
    CAnlage anlage;
    if (!anlage.Load(path)) {
        err_ << ConsoleText(FormatMessage("Die Anlage wurde nicht geladen.")) << '\n';
        return kFailed;
    }
    const auto hints = static_cast<long>(console.ui().ParseLog().Hints().size());
    out_ << ConsoleText(FormatMessage(hints == 1 ? "Die Anlage wurde geladen (1 Hinweis)."
                                                 : "Die Anlage wurde geladen (%1 Hinweise).",
                                      hints))
         << '\n';
    if (anlage.ChangedWhileLoading())
        out_ << ConsoleText(FormatMessage("Beim Laden wurde die Anlage repariert; gespeichert wird sie so, "
                                          "wie die Hinweise es nennen."))
             << '\n';
    return kOk;
}

// A write-protected file is not replaced from the command line: there is nobody to ask.
int CCommandLine::Save(const std::string& in, const std::string& outPath) {
    ConsoleScope console(out_, err_);
    if (CSaveTarget target(outPath); target.WriteProtected()) {
        err_ << ConsoleText(FormatMessage(
                    "Die Datei%n%1%nist schreibgeschützt; kavrin-cli ersetzt sie nicht.", target.Path()))
             << '\n';
        return kFailed;
    }
    CAnlage anlage;
    if (!anlage.Load(in)) {
        err_ << ConsoleText(FormatMessage("Die Anlage wurde nicht geladen.")) << '\n';
        return kFailed;
    }
    if (!anlage.Save(outPath))
        return kFailed;
    out_ << ConsoleText(FormatMessage("Die Anlage wurde als%n%1%ngespeichert.", outPath)) << '\n';
    return kOk;
}

int CCommandLine::Render(const std::vector<std::string>& args) {
    CRenderCommand::Request request;
    std::string problem;
    if (!CRenderCommand::Parse(args, request, problem))
        return Usage(problem);
    ConsoleScope console(out_, err_);
    if (!imageWriter_) {
        err_ << ConsoleText(
                    FormatMessage("Dieses Programm wurde ohne Qt gebaut; Pläne kann es nicht zeichnen."))
             << '\n';
        return kFailed;
    }
    CViewOptions options = viewOptions_ ? viewOptions_() : CViewOptions();
    return CRenderCommand(out_, err_, imageWriter_, options).Run(request);
}

// The file and the selection options, read as "edit" reads them (with no output file).
int CCommandLine::DeletionPreview(const std::vector<std::string>& args) {
    std::vector<std::string> editArgs{args[0], std::string()};
    editArgs.insert(editArgs.end(), args.begin() + 1, args.end());
    if (editArgs.size() < 3)
        return Usage(FormatMessage("--loeschen-vorschau braucht mindestens eine Option der Auswahl."));
    CEditCommand::Request request;
    std::string problem;
    if (!CEditCommand::Parse(editArgs, request, problem))
        return Usage(problem);
    ConsoleScope console(out_, err_);
    int result = CEditCommand(out_, err_).Preview(request);
    return result == 0 ? kOk : result == 2 ? kUsage : kFailed;
}

int CCommandLine::Edit(const std::vector<std::string>& args) {
    CEditCommand::Request request;
    std::string problem;
    if (!CEditCommand::Parse(args, request, problem))
        return Usage(problem);
    ConsoleScope console(out_, err_);
    return CEditCommand(out_, err_).Run(request) == 0 ? kOk : kFailed;
}

// Hints of the loads would mix with the report (and spoil the JSON): only errors are shown.
int CCommandLine::Diff(const std::vector<std::string>& args) {
    CDiffCommand::Request request;
    std::string problem;
    if (!CDiffCommand::Parse(args, request, problem))
        return Usage(problem);
    ConsoleScope console(out_, err_);
    console.ui().SetHintsShown(false);
    return CDiffCommand(out_, err_).Run(request);
}

} // namespace kavrin
