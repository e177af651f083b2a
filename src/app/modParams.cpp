#include "app/modParams.h"

#include "core/modTools.h"

namespace kavrin {

std::vector<std::string> SplitParams(std::string_view commandLine) {
    std::vector<std::string> names;
    std::string_view rest = Trim(commandLine);
    while (!rest.empty()) {
        if (rest.front() == '"') {
            size_t close = rest.find('"', 1);
            if (close == std::string_view::npos)
                break;
            names.emplace_back(rest.substr(1, close - 1));
            rest = rest.substr(close + 1);
            while (!rest.empty() && rest.front() == ' ')
                rest.remove_prefix(1);
            continue;
        }
        size_t blank = rest.find(' ');
        if (blank == std::string_view::npos) {
            names.emplace_back(rest);
            break;
        }
        names.emplace_back(rest.substr(0, blank));
        rest = rest.substr(blank + 1);
    }
    return names;
}

std::string JoinArguments(const std::vector<std::string>& arguments) {
    std::string line;
    for (const std::string& argument : arguments) {
        if (!line.empty())
            line += ' ';
        bool quote = argument.find(' ') != std::string::npos && argument.find('"') == std::string::npos;
        line += quote ? '"' + argument + '"' : argument;
    }
    return line;
}

} // namespace kavrin
