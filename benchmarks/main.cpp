// All rows in one program, so that each ratio compares times of the same run.
#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::AddCustomContext("compiler", QUILLONIC_COMPILER);
  benchmark::AddCustomContext("build", QUILLONIC_BUILD);
  benchmark::AddCustomContext("left out", QUILLONIC_LEFT_OUT);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
