#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "edit/CEraser.h"

namespace kavrin {

class CAnlage;
class CEditHistory;
class CSelection;
class INode;

// The deletions of a layout, each one step of the undo history: the selection (with everything
// that refers to it), signals by model name, contacts by kind on the selected tracks. The window
// and the command line both delete through it. A deletion that fails is rolled back and
// reported with the error text of the member that failed.
class CDeleteEdit {
public:
    // How a signal without a model name is listed and chosen.
    static constexpr const char* kSignalOhneNamen = "** <Signal ohne Namen>";

    struct Result {
        bool done = false;   // something was deleted (and recorded)
        bool failed = false; // rolled back after an error (reported)
        CEraser::Tally counts;
        // The contacts the clean-up removed because their target vanished, one text each.
        std::vector<std::string> reports;
    };
    // A train the deletion of the selection takes with it.
    struct Train {
        int32_t pool = 0; // the vehicle pool's id
        std::string name;
        int32_t vehicles = 0;
    };

    CDeleteEdit(CAnlage& anlage, CSelection& selection, CEditHistory& history)
        : anlage_(anlage), selection_(selection), history_(history) {}

    // Deletes the selected tracks, buildings and goods; the selection is empty afterwards.
    // Nothing happens for an empty selection. Members locked in the simulator stay.
    Result DeleteSelection();
    // What DeleteSelection would remove; the layout and the selection stay as they are.
    Result Preview();
    // Deletes every signal of these model names (kSignalOhneNamen for one without a name).
    Result DeleteSignals(const std::vector<std::string>& names);
    // Deletes the contacts of these kinds on the selected tracks.
    Result DeleteContacts(const std::vector<int32_t>& kinds);

    // Every signal model of the layout with the number of its signals, by name
    // (kSignalOhneNamen for those without one).
    static std::vector<std::pair<std::string, int32_t>> SignalsUsed(const CAnlage& anlage);
    // The contact kinds on the selected tracks with their numbers, by kind.
    static std::vector<std::pair<int32_t, int32_t>> ContactsUsed(const CSelection& selection);
    // The trains standing on selected tracks that may be deleted.
    static std::vector<Train> AffectedTrains(const CAnlage& anlage);
    // The members of the selection that stay because the simulator has them locked.
    static int32_t LockedCount(const CSelection& selection);
    // Takes out of the selection the members an undo or redo took out of the layout.
    static void ForgetRemoved(CSelection& selection, const CAnlage& anlage);
    // What a deletion removed (or would remove), one German line per kind that it touched.
    static std::vector<std::string> SummaryLines(const Result& result);

    // Runs eraser work as one step named `stepName`, then removes the references to the key ids
    // the work collected. On an error the step is rolled back and the error reported; `keep`
    // false rolls back a run that went well too (a preview).
    Result Run(const char* stepName, const std::function<void(CEraser&, CArrayOfLong&)>& work, bool keep);

private:
    CAnlage& anlage_;
    CSelection& selection_;
    CEditHistory& history_;
};

} // namespace kavrin
