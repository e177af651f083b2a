#include "cli/CDiffCommand.h"

#include <ostream>

#include "cli/CConsoleUserInterface.h"
#include "compare/CDiffReport.h"
#include "compare/CLayoutDiff.h"
#include "core/modTools.h"
#include "document/CAnlage.h"

namespace kavrin {

bool CDiffCommand::Parse(const std::vector<std::string>& args, Request& request, std::string& problem) {
    std::vector<std::string> files;
    for (const std::string& arg : args) {
        if (arg == "--json")
            request.json = true;
        else if (arg == "--zusammenfassung")
            request.summaryOnly = true;
        else if (arg.size() > 2 && arg.starts_with("--"))
            return problem = FormatMessage("Unbekannte Option '%1' für 'diff'.", arg), false;
        else
            files.push_back(arg);
    }
    if (files.size() != 2) {
        problem = FormatMessage("'diff' braucht zwei Anlagen: die alte und die neue.");
        return false;
    }
    request.alt = files[0];
    request.neu = files[1];
    return true;
}

const char* CDiffCommand::Usage() {
    return "  kavrin-cli diff ALT NEU [--json] [--zusammenfassung]\n"
           "                               vergleicht zwei Anlagen Objekt für Objekt: hinzugefügt,\n"
           "                               entfernt, verschoben, gedreht, geändert (Rückgabewert\n"
           "                               0 gleich, 1 verschieden, 2 Anlage nicht lesbar)\n";
}

int CDiffCommand::Run(const Request& request) {
    CAnlage alt;
    CAnlage neu;
    for (auto [anlage, path] : {std::pair(&alt, &request.alt), std::pair(&neu, &request.neu)}) {
        if (!anlage->Load(*path)) {
            err_ << ConsoleText(FormatMessage("Die Anlage%n%1%nwurde nicht geladen.", *path)) << '\n';
            return kTrouble;
        }
    }
    CLayoutDiff diff(alt, neu);
    CDiffReport report(diff);
    if (request.json) {
        out_ << report.Json(!request.summaryOnly);
    } else {
        out_ << ConsoleText(FormatMessage("Vergleich von%n  %1%nmit%n  %2", request.alt, request.neu)) << '\n'
             << report.Summary();
        if (!request.summaryOnly)
            out_ << report.Details();
    }
    return diff.Equal() ? kEqual : kDifferent;
}

} // namespace kavrin
