#include "LayoutRoundTrip.h"

#include <pugixml.hpp>

#include "XmlEquivalence.h"

#include "core/CStringPack.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/CFileBytes.h"
#include "document/CLayoutReader.h"
#include "document/CRecordingUserInterface.h"
#include "document/CXmlWriter.h"
#include "document/XmlParseError.h"
#include "nodes/CLayoutStatistics.h"
#include "plan/CLayoutInventory.h"
#include "plan/CNullCanvas.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CViewOptions.h"

namespace kavrin::test {

namespace {

class Port {
public:
    Port() : previous_(SetUI(&ui)) {}
    ~Port() { SetUI(previous_); }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    CRecordingUserInterface ui;

private:
    IUserInterface* previous_;
};

struct Loaded {
    bool ok = false;
    bool repaired = false;
    size_t hints = 0;
    std::string errors;
};

Loaded Load(CAnlage& anlage, std::string_view text) {
    Port port;
    Loaded result;
    result.ok = anlage.LoadFromMemory(text, "fuzz.anl3");
    result.repaired = anlage.ChangedWhileLoading();
    result.hints = port.ui.parseLog.Hints().size();
    for (const std::string& error : port.ui.errors)
        result.errors += error + "\n";
    for (const std::string& hint : port.ui.parseLog.Hints())
        result.errors += "Hinweis: " + hint + "\n";
    return result;
}

// What the editor and the command-line tool do with a loaded layout besides saving it: the
// plan with names and signals, the statistics and the inventory. They may refuse bad values
// with an error (the window reports it), but nothing else may happen.
void Use(CAnlage& anlage) {
    Port port;
    try {
        CPlanView view;
        CViewOptions options;
        if (CPlanPainter::InitView(view, anlage)) {
            view.SetClientSize(400, 300);
            view.World();
            CPlanPainter painter(anlage, view, options);
            painter.WithNames = painter.WithSignals = true;
            CNullCanvas canvas(400, 300);
            painter.DrawAll(canvas);
        }
    } catch (const CError&) {
    }
    try {
        CLayoutStatistics statistics(anlage);
        CLayoutInventory inventory(anlage);
        (void)inventory.Text();
    } catch (const CError&) {
    }
}

bool Save(CAnlage& anlage, std::string& text) {
    Port port;
    CXmlWriter writer;
    if (!anlage.WriteDocument(writer))
        return false;
    text = writer.Result();
    return true;
}

std::string Describe(const pugi::xml_node& node) {
    std::string path;
    for (pugi::xml_node at = node; at && at.type() != pugi::node_document; at = at.parent())
        path = "/" + std::string(at.type() == pugi::node_element ? at.name() : "#text") + path;
    return path;
}

// The saved element against the original: the same names, attributes and content in the same
// order; a value may only differ where both are numbers of the same value (an owned value
// re-formatted).
std::string Difference(const pugi::xml_node& original, const pugi::xml_node& saved) {
    if (original.type() != saved.type() || std::string_view(original.name()) != saved.name())
        return Describe(original) + " wurde zu " + Describe(saved);
    if (original.type() == pugi::node_pcdata) {
        if (!SameNumber(original.value(), saved.value()))
            return Describe(original) + ": Text '" + original.value() + "' wurde zu '" + saved.value() + "'";
        return {};
    }
    pugi::xml_attribute a = original.first_attribute(), b = saved.first_attribute();
    for (; a && b; a = a.next_attribute(), b = b.next_attribute())
        if (std::string_view(a.name()) != b.name() || !SameNumber(a.value(), b.value()))
            return Describe(original) + ": Attribut " + a.name() + "='" + a.value() + "' wurde zu " +
                   b.name() + "='" + b.value() + "'";
    if (a || b)
        return Describe(original) + ": Attribute fehlen oder kamen hinzu";
    pugi::xml_node x = original.first_child(), y = saved.first_child();
    for (; x && y; x = x.next_sibling(), y = y.next_sibling())
        if (std::string difference = Difference(x, y); !difference.empty())
            return difference;
    if (x || y)
        return Describe(original) + ": " +
               (x ? "Inhalt fehlt: " + Describe(x) : "Inhalt kam hinzu: " + Describe(y));
    return {};
}

std::string SilentLoss(std::string_view input, const std::string& saved) {
    pugi::xml_document original, written;
    if (!original.load_buffer(input.data(), input.size(), kLayoutParseOptions, pugi::encoding_utf8) ||
        !written.load_buffer(saved.data(), saved.size(), kLayoutParseOptions, pugi::encoding_utf8))
        return {};
    return Difference(original.document_element(), written.document_element());
}

} // namespace

void ForgetPackedTexts() {
    ElementNames().Reset();
    AttributeNames().Reset();
    ClassTexts().Reset();
    FileNames().Reset();
}

std::string RoundTripFault(std::string_view input) {
    std::string first, second;
    Loaded loaded;
    {
        CAnlage anlage;
        loaded = Load(anlage, input);
        if (!loaded.ok)
            return {};
        Use(anlage);
        if (!Save(anlage, first))
            return "Die geladene Anlage lässt sich nicht speichern.\n" + loaded.errors;
    }
    std::string problem;
    CFileBytes bytes;
    bytes.Assign(first.data(), first.size());
    if (!CLayoutReader::Check(bytes, problem))
        return "Die Prüfung beim Speichern lehnt die gespeicherte Anlage ab: " + problem + "\n" + first;
    if (!loaded.repaired && loaded.hints == 0)
        if (std::string loss = SilentLoss(input, first); !loss.empty())
            return "Ohne Hinweis verloren: " + loss + "\n" + first;
    CAnlage again;
    Loaded reloaded = Load(again, first);
    if (!reloaded.ok)
        return "Die gespeicherte Anlage lädt nicht:\n" + reloaded.errors + first;
    if (!Save(again, second))
        return "Die wieder geladene Anlage lässt sich nicht speichern.\n" + reloaded.errors;
    if (second != first)
        return "Das zweite Speichern weicht vom ersten ab:\n" + first + "\n---\n" + second;
    return {};
}

} // namespace kavrin::test
