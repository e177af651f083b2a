#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace kavrin {

// "kavrin-cli diff ALT NEU": what changed from one layout to the other, by object, in German
// or as JSON. Exit status as diff(1): 0 equal, 1 different, 2 trouble.
class CDiffCommand {
public:
    struct Request {
        std::string alt;
        std::string neu;
        bool json = false;
        bool summaryOnly = false;
    };

    static bool Parse(const std::vector<std::string>& args, Request& request, std::string& problem);

    CDiffCommand(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}
    int Run(const Request& request);

    static const char* Usage();

    static constexpr int kEqual = 0;
    static constexpr int kDifferent = 1;
    static constexpr int kTrouble = 2;

private:
    std::ostream& out_;
    std::ostream& err_;
};

} // namespace kavrin
