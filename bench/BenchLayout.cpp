#include "BenchLayout.h"

#include <benchmark/benchmark.h>

#include <iostream>

#include "document/CAnlage.h"
#include "document/CRecordingUserInterface.h"

namespace kavrin::bench {

namespace {

void RunBenchmarks(char* program, const std::vector<char*>& options) {
    std::vector<char*> args{program};
    args.insert(args.end(), options.begin(), options.end());
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}

} // namespace

int RunOnLayout(int argc, char** argv, const char* program, const Prepare& prepare) {
    if (argc < 2 || argv[1][0] == '-') {
        std::cerr << "Aufruf: " << program << " DATEI.anl3 [Benchmark-Optionen]\n";
        return 2;
    }
    CRecordingUserInterface ui;
    SetUI(&ui);
    int status = 0;
    {
        CAnlage anlage;
        if (anlage.Load(argv[1])) {
            std::vector<char*> options(argv + 2, argv + argc);
            if (prepare)
                prepare(anlage, options);
            RunBenchmarks(argv[0], options);
        } else {
            std::cerr << "Die Anlage wurde nicht geladen.\n";
            status = 1;
        }
    }
    SetUI(nullptr);
    return status;
}

} // namespace kavrin::bench
