// A first program with the persona library: open a personality file, list its systems, change
// the receive frequency of a conventional channel, check the result and save it.
//
//     first_program IN.pers OUT.pers [RX_MHZ]
//
// Everything the library offers is reached through the umbrella header; the JSON layer has
// its own (<persona/json.h>, linked with persona::json). The library's functions state in
// their headers what they return, what they own and how they fail.
#include <persona/json.h>
#include <persona/persona.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

// The word for a system kind, as a user would say it.
const char* KindName(persona::SystemType type) {
  switch (type) {
    case persona::TrunkedSystemType:
      return "trunked";
    case persona::ConvSystemType:
      return "conventional";
    case persona::PlmSystemType:
      return "messaging";
    case persona::P25ConvSystemType:
      return "P25 conventional";
    case persona::EaSystemType:
      return "extended addressing";
    case persona::P25TrkSystemType:
      return "P25 trunked";
  }
  return "unknown";
}

const char* SeverityName(persona::Finding::Severity severity) {
  switch (severity) {
    case persona::Finding::Error:
      return "error";
    case persona::Finding::Warning:
      return "warning";
    case persona::Finding::Info:
      return "info";
  }
  return "?";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3 || argc > 4) {
    std::fprintf(stderr, "usage: first_program IN.pers OUT.pers [RX_MHZ]\n");
    return 64;
  }
  const std::string in = argv[1];
  const std::string out = argv[2];
  const double rxMhz = argc == 4 ? std::atof(argv[3]) : 851.5125;
  std::printf("persona %s\n", persona::Version());

  // Every failure of the library is an exception derived from std::exception whose message
  // names the file and, for a damaged file, the byte offset: print it and stop.
  try {
    // 1. Open. The caller owns the personality that comes back (a unique_ptr); a file that
    //    cannot be read or is damaged raises and hands over nothing.
    persona::LoadedPersonality loaded = persona::LoadPersonalityFile(in);
    persona::CPersonality& personality = *loaded.personality;

    // 2. List the systems. The personality keeps ownership of what its getters return.
    std::printf("%s: %d systems\n", in.c_str(), personality.GetNumSystems());
    for (int i = 0; i < personality.GetNumSystems(); ++i) {
      const persona::CSystem* system = personality.GetSystemAt(i);
      std::printf("  %-16s %s\n", system->GetName().c_str(), KindName(system->GetSysType()));
    }

    // 3. Change a channel: the first channel of the first conventional set. Sets are held by
    //    kind; a set of the conventional kind is a CConvSet.
    auto* set = dynamic_cast<persona::CConvSet*>(personality.GetSetAt(0, persona::ConvSetType));
    persona::CConvChannel* channel = set != nullptr ? set->GetChannelAt(0) : nullptr;
    if (channel == nullptr) {
      std::fprintf(stderr, "%s: no conventional channel to change\n", in.c_str());
      return 1;
    }
    std::printf("channel %s of set %s: receive %.5f MHz -> %.5f MHz\n", channel->GetName().c_str(),
                set->GetName().c_str(), channel->GetRxFreq(), rxMhz);
    channel->SetRxFreq(rxMhz);
    // The record as JSON, through the JSON layer.
    std::printf("%s\n", persona::JsonExporter().Export(*channel).dump().c_str());

    // 4. Check. Each finding has a stable code, a severity, the path of the field and a
    //    message; an empty list means the personality is consistent.
    const std::vector<persona::Finding> findings = persona::CheckPersonality(personality);
    int errors = 0;
    for (const persona::Finding& finding : findings) {
      std::printf("%s %s %s: %s\n", SeverityName(finding.severity), finding.code.c_str(),
                  finding.path.c_str(), finding.message.c_str());
      if (finding.severity == persona::Finding::Error) ++errors;
    }
    if (errors > 0) {
      std::fprintf(stderr, "%d errors: not saved\n", errors);
      return 1;
    }

    // 5. Save. The file is written atomically: when saving fails, the file that was there is
    //    left as it was.
    persona::SavePersonalityFile(out, personality);
    std::printf("saved %s\n", out.c_str());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 2;
  }
  return 0;
}
