// The JSON layer's operations as benchmarks: the streamed export, the streamed import, and the
// parsers the import could stand on, each reading the same exported text with a handler that
// only counts its events (JsonScanner, which the import uses; nlohmann-json's SAX parser;
// RapidJSON's SAX reader when it was found at build time).
#pragma once

#include <benchmark/benchmark.h>

namespace persona::bench {

void JsonExport(benchmark::State& state, int channels);
void JsonImport(benchmark::State& state, int channels);
void JsonScanOnly(benchmark::State& state, int channels);
void JsonNlohmannSaxOnly(benchmark::State& state, int channels);
void JsonRapidjsonSaxOnly(benchmark::State& state, int channels);
// Whether RapidJSON was found when the benchmarks were built.
bool RapidjsonAvailable();

}  // namespace persona::bench
