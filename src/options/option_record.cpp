// Radio type lists of the option records' model defaults.
#include "options/option_record.h"

namespace persona {

bool IsRadioTypeSetA(unsigned short radioType) {
  return IsRadioTypeIn(
      radioType, {68, 69, 70, 80, 88, 89, 90, 92, 94, 95, 96, 97, 101, 102, 103, 104, 105, 106});
}

bool IsRadioTypeSetB(unsigned short radioType) {
  return IsRadioTypeIn(radioType, {59, 64, 65, 66, 67, 72, 73, 74, 75, 77, 81, 82, 84, 85, 86});
}

}  // namespace persona
