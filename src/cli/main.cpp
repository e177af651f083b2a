#include <iostream>

#include "cli/CCommandLine.h"

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    kavrin::CCommandLine commandLine(std::cout, std::cerr);
    return commandLine.Run(args);
}
