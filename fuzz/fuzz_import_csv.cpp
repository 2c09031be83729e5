// Fuzz target: set CSV from untrusted hands. The first byte picks the set kind and whether the
// export writes words; the rest is the CSV. Import must fail cleanly (a CSV failure) or succeed;
// what it made must export and import again without a change.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <persona/io/csv/set_csv.h>
#include <persona/personality/personality.h>

using namespace persona;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto type = static_cast<SetType>(data[0] % kNumSetTypes);
  const std::string_view csv(reinterpret_cast<const char*>(data + 1), size - 1);
  CPersonality p(103, 0);
  try {
    ImportSetCsv(p, type, "FUZZ", csv);
  } catch (const CException&) {
    return 0;
  }
  const CSet* set = p.GetSet(CString("FUZZ"), type);
  if (set == nullptr) std::abort();  // an import that succeeded made no set
  CsvExportOptions options;
  options.words = (data[0] / kNumSetTypes) % 2 == 1;
  const CsvImportResult again = ImportSetCsv(p, type, "FUZZ", ExportSetCsv(*set, options));
  if (again.added + again.changed + again.removed != 0 || again.reordered) std::abort();
  return 0;
}
