#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kavrin {

class CAnlage;
class IPaint;

// Finds objects of a layout for "Suchen": tracks by id, switches and signals by key id, signals
// and buildings by model name and contacts by Lua function (a part of the name or function is
// enough, upper and lower case alike).
class CObjectSearch {
public:
    enum class Kind { Track, Switch, Signal, Contact, Building };

    struct Hit {
        Kind kind;
        // How the list names the object ("Gleis 12 [Eisenbahn]").
        std::string text;
        // Where it stands on the plan (world units).
        double x = 0;
        double y = 0;
        // The object itself, for whatever the window does with it.
        IPaint* node = nullptr;
        // Not shown on the plan: its kind is hidden or it lies outside the height filter.
        bool hidden = false;
    };

    explicit CObjectSearch(CAnlage& anlage) : anlage_(anlage) {}

    // The hits for a query, ids first, at most `limit` of them; an empty query finds nothing.
    std::vector<Hit> Find(std::string_view query, size_t limit = 500) const;

    // Whether `text` contains `part`, ignoring case (ASCII and the German umlauts).
    static bool ContainsIgnoringCase(std::string_view text, std::string_view part);

private:
    CAnlage& anlage_;
};

} // namespace kavrin
