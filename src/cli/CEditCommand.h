#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "edit/CDeleteEdit.h"
#include "plan/CGleisIdList.h"

namespace kavrin {

class CAnlage;
class CEditHistory;
class CSelection;

// "kavrin-cli edit EIN AUS OPTION…": selects and edits a layout by the options, left to right,
// with the editor's own selection and edits, and writes AUS only when every option succeeded.
// Selection options add to the selection (--alles, --bereich, --gleise; --keine empties it);
// actions work on it (--verschieben, --drehen, --loesen) or on the whole layout (--nummerieren),
// or undo the actions since the start or the previous --rueckgaengig.
class CEditCommand {
public:
    struct Option {
        std::string name;
        std::string value;
        std::vector<double> numbers; // metres and degrees as given
        int16_t system = 0;          // --gleise
        CGleisIdList ids;            // --gleise
        std::vector<int32_t> kinds;  // --kontakte-loeschen
    };
    struct Request {
        std::string in;
        std::string out;
        std::vector<Option> options;
    };

    // The arguments after "edit". False when the call itself is wrong (`problem` says why,
    // exit 2); a value that is not usable is found by CheckValues.
    static bool Parse(const std::vector<std::string>& args, Request& request, std::string& problem);
    // Reads the numbers and id lists of the options; false with the reason (exit 1).
    static bool CheckValues(Request& request, std::string& problem);
    static const char* Usage();

    CEditCommand(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}
    // 0 done and written, 1 failed (nothing written).
    int Run(Request& request);
    // "info --loeschen-vorschau": selects by the options (selection options only) and prints
    // what deleting the selection would remove; nothing is written. 0, 1 failed, 2 wrong option.
    int Preview(Request& request);

private:
    // Checks the option values and loads EIN; false (reported) when either fails.
    bool CheckAndLoad(Request& request, CAnlage& anlage);
    // The options in their order; false at the first that fails.
    bool RunOptions(const Request& request, CAnlage& anlage, CSelection& selection, CEditHistory& history);
    bool RunOption(const Option& option, CAnlage& anlage, CSelection& selection, CEditHistory& history,
                   size_t& undoMark);
    // --nummerieren: the warning and the table old -> new, then the renumbering.
    bool RenumberKeyIds(CAnlage& anlage, CEditHistory& history);
    bool Fail(const std::string& text);
    bool PrintDeletion(const CDeleteEdit::Result& result, const std::string& name);
    void PrintCounts(const CSelection& selection);

    std::ostream& out_;
    std::ostream& err_;
};

} // namespace kavrin
