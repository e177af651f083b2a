#include "cli/CEditCommand.h"

#include <cmath>
#include <ostream>

#include "cli/CConsoleUserInterface.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CDeleteEdit.h"
#include "edit/CEditHistory.h"
#include "edit/CKeyIdRenumbering.h"
#include "edit/CSelectionEdit.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanObjects.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
// The options and how many numbers their value holds (-1: none, 0: a value of its own form).
struct OptionKind {
    const char* name;
    int numbers;
};
constexpr OptionKind kOptions[] = {
    {"--alles", -1},      {"--keine", -1},           {"--bereich", 4},           {"--gleise", 0},
    {"--verschieben", 3}, {"--drehen", 3},           {"--loesen", -1},           {"--rueckgaengig", -1},
    {"--loeschen", -1},   {"--signale-loeschen", 0}, {"--kontakte-loeschen", 0}, {"--nummerieren", -1},
};

bool IsSelectionOption(const std::string& name) {
    return name == "--alles" || name == "--keine" || name == "--bereich" || name == "--gleise";
}

// "A;B;C": the items of a list separated by ";", without blanks around them.
std::vector<std::string> ListItems(const std::string& text) {
    std::vector<std::string> items;
    size_t start = 0;
    while (true) {
        size_t end = text.find(';', start);
        items.emplace_back(Trim(std::string_view(text).substr(start, end - start)));
        if (end == std::string::npos)
            return items;
        start = end + 1;
    }
}

const OptionKind* FindOption(const std::string& name) {
    for (const OptionKind& kind : kOptions)
        if (name == kind.name)
            return &kind;
    return nullptr;
}

// "1,5;-2;0": numbers separated by ";", with a decimal point or comma.
bool ReadNumbers(const std::string& text, size_t count, std::vector<double>& numbers) {
    numbers.clear();
    size_t start = 0;
    while (true) {
        size_t end = text.find(';', start);
        std::string_view item = Trim(std::string_view(text).substr(start, end - start));
        double value = 0;
        try {
            if (item.empty())
                return false;
            value = TextToDouble(item);
        } catch (const CError&) {
            return false;
        }
        numbers.push_back(value);
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return numbers.size() == count;
}

// The layout's plan as the editor shows it with the default view options, everything drawn.
constexpr int kConsiderMode = 2;
} // namespace

const char* CEditCommand::Usage() {
    return "  kavrin-cli edit EIN AUS OPTION...\n"
           "                               Anlage EIN bearbeiten und als AUS speichern; die Optionen\n"
           "                               gelten der Reihe nach (Zahlen in Metern und Grad, mit ';'\n"
           "                               getrennt, Dezimalpunkt oder -komma):\n"
           "      --alles                  alle Gleise (Gleissysteme 1-4), Immobilien und Güter auswählen\n"
           "      --bereich X1;Y1;X2;Y2    was im Rechteck liegt, dazu auswählen\n"
           "      --gleise SYS:LISTE       Gleise eines Gleissystems auswählen, z. B. 3:12,40..55,-3\n"
           "      --keine                  Auswahl leeren\n"
           "      --verschieben DX;DY;DZ   Auswahl verschieben\n"
           "      --drehen GRAD;CX;CY      Auswahl um (CX, CY) drehen, positiv gegen den Uhrzeigersinn\n"
           "      --loesen                 Gleisverbindungen zwischen Auswahl und Rest lösen\n"
           "      --loeschen               Auswahl löschen, mit allem, was auf sie verweist\n"
           "                               (Kontakte, Signale, Züge auf den Gleisen ...)\n"
           "      --signale-loeschen NAME[;NAME...]\n"
           "                               alle Signale dieser Modelle löschen, ein Signal ohne Namen\n"
           "                               heißt \"** <Signal ohne Namen>\"\n"
           "      --kontakte-loeschen ART[;ART...]\n"
           "                               Kontakte dieser Arten (0 Signal/Weiche, 512 Kamera ...)\n"
           "                               auf den ausgewählten Gleisen löschen\n"
           "      --nummerieren            Key-IDs der Weichen und Signale lückenlos neu nummerieren\n"
           "                               (braucht keine Auswahl; gibt die Tabelle alt -> neu aus)\n"
           "      --rueckgaengig           die Aktionen seit dem Anfang oder dem letzten\n"
           "                               --rueckgaengig rückgängig machen\n"
           "  kavrin-cli info --loeschen-vorschau DATEI AUSWAHL-OPTION...\n"
           "                               zeigen, was --loeschen mit der Auswahl entfernen würde\n";
}

bool CEditCommand::Parse(const std::vector<std::string>& args, Request& request, std::string& problem) {
    if (args.size() < 3) {
        problem = FormatMessage(args.size() < 2 ? "'edit' braucht EIN und AUS."
                                                : "'edit' braucht mindestens eine Option.");
        return false;
    }
    request.in = args[0];
    request.out = args[1];
    for (size_t i = 2; i < args.size(); ++i) {
        const OptionKind* kind = FindOption(args[i]);
        if (!kind) {
            problem = FormatMessage("Unbekannte Option '%1'.", args[i]);
            return false;
        }
        Option option;
        option.name = args[i];
        if (kind->numbers >= 0) {
            // The next argument is the value, even when it begins with "-".
            if (i + 1 >= args.size()) {
                problem = FormatMessage("Der Option '%1' fehlt ihr Wert.", args[i]);
                return false;
            }
            option.value = args[++i];
        }
        request.options.push_back(std::move(option));
    }
    return true;
}

bool CEditCommand::CheckValues(Request& request, std::string& problem) {
    for (Option& option : request.options) {
        const OptionKind* kind = FindOption(option.name);
        if (kind->numbers > 0 &&
            !ReadNumbers(option.value, static_cast<size_t>(kind->numbers), option.numbers)) {
            problem =
                FormatMessage("Ungültiger Wert '%1' für %2: erwartet werden %3 Zahlen, durch ';' getrennt.",
                              option.value, option.name, kind->numbers);
            return false;
        }
        const std::vector<double>& n = option.numbers;
        std::string refused;
        if (option.name == "--verschieben")
            refused = CSelectionEdit::CheckMove(n[0] * 100, n[1] * 100, n[2] * 100);
        else if (option.name == "--drehen")
            refused = CSelectionEdit::CheckRotate(n[0], n[1] * 100, n[2] * 100);
        else if (option.name == "--bereich")
            for (double value : n)
                if (refused.empty() && !(std::fabs(value) * 100 <= CSelectionEdit::kMaxDistance))
                    refused =
                        FormatMessage("Die Koordinate %1 liegt nicht innerhalb von 100 km.", option.value);
        if (!refused.empty()) {
            problem = FormatMessage("%1: %2", option.name, refused);
            return false;
        }
        if (option.name == "--kontakte-loeschen")
            for (const std::string& item : ListItems(option.value)) {
                int32_t kind = 0;
                if (!TryTextToLong(item, kind)) {
                    problem = FormatMessage("Ungültiger Wert '%1' für --kontakte-loeschen: erwartet werden "
                                            "Kontakt-Arten (Zahlen), durch ';' getrennt.",
                                            option.value);
                    return false;
                }
                option.kinds.push_back(kind);
            }
        if (option.name == "--gleise") {
            size_t colon = option.value.find(':');
            int32_t system = 0;
            std::string error;
            if (colon == std::string::npos || !TryTextToLong(option.value.substr(0, colon), system) ||
                system < 0 || system > 32767) {
                problem = FormatMessage(
                    "Ungültiger Wert '%1' für --gleise: erwartet wird SYS:LISTE, z. B. 3:12,40..55.",
                    option.value);
                return false;
            }
            if (!option.ids.Parse(option.value.substr(colon + 1), error)) {
                problem = FormatMessage("--gleise: %1", error);
                return false;
            }
            option.system = static_cast<int16_t>(system);
        }
    }
    return true;
}

bool CEditCommand::Fail(const std::string& text) {
    err_ << ConsoleText(text) << '\n';
    return false;
}

void CEditCommand::PrintCounts(const CSelection& selection) {
    out_ << ConsoleText(FormatMessage("Auswahl: %1", selection.CountsText())) << '\n';
}

bool CEditCommand::CheckAndLoad(Request& request, CAnlage& anlage) {
    std::string problem;
    if (!CheckValues(request, problem))
        return Fail(problem);
    if (!anlage.Load(request.in))
        return Fail(FormatMessage("Die Anlage wurde nicht geladen."));
    return true;
}

bool CEditCommand::RunOptions(const Request& request, CAnlage& anlage, CSelection& selection,
                              CEditHistory& history) {
    size_t undoMark = 0;
    for (const Option& option : request.options)
        if (!RunOption(option, anlage, selection, history, undoMark))
            return false;
    return true;
}

int CEditCommand::Run(Request& request) {
    CAnlage anlage;
    if (!CheckAndLoad(request, anlage))
        return 1;
    CSelection selection;
    CEditHistory history(anlage);
    bool ok = RunOptions(request, anlage, selection, history);
    // The selection names nodes of this layout: it goes first.
    selection.Clear();
    if (!ok || !anlage.Save(request.out))
        return 1;
    out_ << ConsoleText(FormatMessage("Die Anlage wurde als%n%1%ngespeichert.", request.out)) << '\n';
    return 0;
}

bool CEditCommand::RenumberKeyIds(CAnlage& anlage, CEditHistory& history) {
    CKeyIdRenumbering renumbering(anlage);
    if (renumbering.ChangedCount() == 0) {
        out_ << ConsoleText(FormatMessage("Die Key-IDs sind bereits lückenlos von 1 an nummeriert; "
                                          "nichts geändert."))
             << '\n';
        return true;
    }
    out_ << ConsoleText(FormatMessage("Hinweis: %1", CKeyIdRenumbering::WarningText())) << '\n';
    if (renumbering.DanglingReferences() > 0)
        out_ << ConsoleText(FormatMessage("Hinweis: %1", renumbering.DanglingText())) << '\n';
    out_ << ConsoleText(renumbering.TableText());
    if (!renumbering.Run(history))
        return false; // reported
    out_ << ConsoleText(FormatMessage(
                "%1 Key-IDs neu nummeriert (%2 Weichen und Signale, %3 Verweise angepasst).",
                WholeNumberText(renumbering.ChangedCount()), WholeNumberText(renumbering.ChangedObjects()),
                WholeNumberText(renumbering.ChangedReferences())))
         << '\n';
    return true;
}

bool CEditCommand::RunOption(const Option& option, CAnlage& anlage, CSelection& selection,
                             CEditHistory& history, size_t& undoMark) {
    const CViewOptions options;
    CPlanObjects objects(anlage, options);
    CSelectionEdit edit(selection, history);
    const std::string& name = option.name;
    const std::vector<double>& n = option.numbers;
    bool isAction = name == "--verschieben" || name == "--drehen" || name == "--loesen" ||
                    name == "--loeschen" || name == "--kontakte-loeschen";
    if (isAction) {
        PrintCounts(selection);
        if (selection.Empty())
            return Fail(FormatMessage("%1: Die Auswahl ist leer.", name));
    }
    if (name == "--alles") {
        objects.SelectAll(selection, kConsiderMode);
    } else if (name == "--keine") {
        selection.Clear();
    } else if (name == "--bereich") {
        objects.SelectInRect(selection, CRect(n[0] * 100, n[1] * 100, n[2] * 100, n[3] * 100), kConsiderMode,
                             CPlanObjects::How::Add);
    } else if (name == "--gleise") {
        CNodeGleisSys* system = FindGleisSys(anlage, option.system);
        if (!system)
            return Fail(
                FormatMessage("--gleise: Das Gleissystem %1 gibt es in dieser Anlage nicht.", option.system));
        std::vector<std::string> missing = option.ids.Select(selection, *system, 1);
        if (!missing.empty()) {
            std::string list;
            for (const std::string& item : missing)
                list += (list.empty() ? "" : ", ") + item;
            return Fail(FormatMessage("--gleise: Im Gleissystem %1 gibt es diese Gleise nicht: %2",
                                      option.system, list));
        }
    } else if (name == "--verschieben") {
        if (CSelectionEdit::GoesFurtherOut(selection, anlage,
                                           CPlacementChange::Transform::Move(n[0] * 100, n[1] * 100, 0)))
            out_ << ConsoleText(FormatMessage("Hinweis: Teile der Auswahl befinden sich nach dem Verschieben "
                                              "außerhalb der Anlage."))
                 << '\n';
        edit.Move(n[0] * 100, n[1] * 100, n[2] * 100);
        out_ << ConsoleText(FormatMessage("Verschoben um %1 m nach Osten, %2 m nach Norden, %3 m nach oben.",
                                          DecimalText(n[0], 2), DecimalText(n[1], 2), DecimalText(n[2], 2)))
             << '\n';
    } else if (name == "--drehen") {
        if (CSelectionEdit::GoesFurtherOut(selection, anlage,
                                           CPlacementChange::Transform::Rotate(n[0], n[1] * 100, n[2] * 100)))
            out_ << ConsoleText(FormatMessage("Hinweis: Teile der Auswahl befinden sich nach dem Drehen "
                                              "außerhalb der Anlage."))
                 << '\n';
        edit.Rotate(n[0], n[1] * 100, n[2] * 100);
        out_ << ConsoleText(FormatMessage("Gedreht um %1 Grad um den Punkt (%2 m, %3 m).", ArgText(n[0]),
                                          DecimalText(n[1], 2), DecimalText(n[2], 2)))
             << '\n';
    } else if (name == "--loesen") {
        size_t cut = edit.CutSelection();
        out_ << ConsoleText(
                    FormatMessage(cut == 1 ? "%1 Gleisverbindung gelöst." : "%1 Gleisverbindungen gelöst.",
                                  WholeNumberText(static_cast<int64_t>(cut))))
             << '\n';
    } else if (name == "--loeschen") {
        return PrintDeletion(CDeleteEdit(anlage, selection, history).DeleteSelection(), name);
    } else if (name == "--signale-loeschen") {
        CDeleteEdit::Result result =
            CDeleteEdit(anlage, selection, history).DeleteSignals(ListItems(option.value));
        if (!result.failed && result.counts.signale == 0)
            return Fail(FormatMessage(
                "--signale-loeschen: Signale dieser Namen gibt es in der Anlage nicht: %1", option.value));
        return PrintDeletion(result, name);
    } else if (name == "--kontakte-loeschen") {
        return PrintDeletion(CDeleteEdit(anlage, selection, history).DeleteContacts(option.kinds), name);
    } else if (name == "--nummerieren") {
        return RenumberKeyIds(anlage, history);
    } else if (name == "--rueckgaengig") {
        size_t undone = 0;
        while (history.Done() > undoMark && history.Undo())
            ++undone;
        if (history.Done() > undoMark)
            return false; // reported by the history
        undoMark = history.Done();
        out_ << ConsoleText(FormatMessage(undone == 1 ? "%1 Aktion rückgängig gemacht."
                                                      : "%1 Aktionen rückgängig gemacht.",
                                          WholeNumberText(static_cast<int64_t>(undone))))
             << '\n';
    }
    if (!isAction && name != "--rueckgaengig")
        PrintCounts(selection);
    return true;
}

bool CEditCommand::PrintDeletion(const CDeleteEdit::Result& result, const std::string& name) {
    if (result.failed)
        return false; // reported by the deletion
    out_ << ConsoleText(FormatMessage(result.done ? "%1: gelöscht:" : "%1: nichts gelöscht.", name)) << '\n';
    for (const std::string& line : CDeleteEdit::SummaryLines(result))
        out_ << "  " << ConsoleText(line) << '\n';
    for (const std::string& report : result.reports)
        out_ << ConsoleText(report) << '\n';
    return true;
}

int CEditCommand::Preview(Request& request) {
    for (const Option& option : request.options)
        if (!IsSelectionOption(option.name)) {
            Fail(FormatMessage("--loeschen-vorschau nimmt nur Optionen der Auswahl, nicht '%1'.",
                               option.name));
            return 2;
        }
    CAnlage anlage;
    if (!CheckAndLoad(request, anlage))
        return 1;
    CSelection selection;
    CEditHistory history(anlage);
    bool ok = RunOptions(request, anlage, selection, history);
    if (ok) {
        CDeleteEdit edit(anlage, selection, history);
        for (const CDeleteEdit::Train& train : CDeleteEdit::AffectedTrains(anlage))
            out_ << ConsoleText(FormatMessage("Zugverband: %1 (%2 Stück)", train.name, train.vehicles))
                 << '\n';
        CDeleteEdit::Result result = edit.Preview();
        ok = !result.failed;
        if (ok) {
            out_ << ConsoleText(FormatMessage(result.done ? "Löschen würde entfernen:"
                                                          : "Löschen würde nichts entfernen."))
                 << '\n';
            for (const std::string& line : CDeleteEdit::SummaryLines(result))
                out_ << "  " << ConsoleText(line) << '\n';
            for (const std::string& report : result.reports)
                out_ << ConsoleText(report) << '\n';
        }
    }
    selection.Clear();
    return ok ? 0 : 1;
}

} // namespace kavrin
