// Deep-copying owned element lists and the radio type lists of the model defaults.
#include <persona/options/option_record.h>

#include <memory>
#include <vector>

namespace persona {

CDeepObList::CDeepObList(const CDeepObList& src) : COwnedObList(src.GetElementClass()) {
  AppendCopiesOf(src);
}

CDeepObList& CDeepObList::operator=(const CDeepObList& src) {
  if (this != &src) {
    CDeepObList copy(src);  // built first: a failing copy leaves this list as it was
    COwnedObList::operator=(std::move(copy));
  }
  return *this;
}

void CDeepObList::AppendCopiesOf(const COwnedObList& src) {
  // Copies are made first, so that appending a list to itself copies each element once.
  std::vector<std::unique_ptr<CObject>> copies;
  copies.reserve(static_cast<std::size_t>(src.GetCount()));
  for (CObject* e : src) {
    copies.emplace_back(e == nullptr ? nullptr : e->GetRuntimeClass()->CopyObject(*e));
  }
  Reserve(static_cast<std::size_t>(GetCount()) + copies.size());
  for (auto& c : copies) Add(std::move(c));
}

bool IsRadioTypeSetA(unsigned short radioType) {
  return IsRadioTypeIn(
      radioType, {68, 69, 70, 80, 88, 89, 90, 92, 94, 95, 96, 97, 101, 102, 103, 104, 105, 106});
}

bool IsRadioTypeSetB(unsigned short radioType) {
  return IsRadioTypeIn(radioType, {59, 64, 65, 66, 67, 72, 73, 74, 75, 77, 81, 82, 84, 85, 86});
}

}  // namespace persona
