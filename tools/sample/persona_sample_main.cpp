// persona-sample: writes the generated sample personality file. Without options it writes the
// bundled sample exactly as checked in as examples/sample.pers.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>

#include <persona/io/personality_file.h>
#include "sample/sample_personality.h"

int main(int argc, char** argv) {
  persona::SampleSpec shape;
  std::string output;
  CLI::App app{
      "Writes the sample personality: every system kind, every set kind and every option "
      "record, with realistic names and values. The same options always give the same file."};
  app.add_option("-o,--output", output, "File to write (atomically)")->required();
  app.add_option("--channels", shape.conventionalChannels, "Conventional channels in all")
      ->capture_default_str()
      ->check(CLI::Range(0, 1000000));
  app.add_option("--per-set", shape.channelsPerSet, "Conventional channels per set (1 to 4096)")
      ->capture_default_str()
      ->check(CLI::Range(1, 4096));
  app.add_option("--radio-type", shape.radioType, "Radio type of the model defaults")
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  try {
    auto personality = persona::BuildSamplePersonality(shape);
    persona::SavePersonalityFile(output, *personality);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "persona-sample: %s\n", e.what());
    return 3;
  }
  return 0;
}
