// The radio model catalogue: one row per radio type code that the library's records know,
// with a neutral display name, a model class code and a short family key. The personality
// report prints a personality's radio types through it.
#pragma once

#include <persona/export.h>

#include <cstddef>

#include <persona/framework/types.h>

namespace persona {

// Model classes, by what the model can run (the pruning rules of the library follow the same
// lines).
enum RadioModelClass : BYTE {
  kMultiModeModel = 0,     // trunked and conventional systems
  kTrunkedOnlyModel = 1,   // trunked systems only; conventional systems and sets are removed
  kMessagingModel = 2,     // also runs the messaging system
  kConventionalModel = 3,  // conventional only; trunked systems are removed
  kP25ConvModel = 4,       // also P25 conventional and extended-addressing trunked systems
  kP25TrunkedModel = 5,    // also P25 trunked systems and their wide-area networks
};

struct PERSONA_EXPORT RadioModel {
  const char* displayName;  // at most 24 characters
  BYTE modelClass;          // a RadioModelClass
  DWORD radioType;          // the radio type code
  const char* familyKey;    // short lower-case key
};

// Returns the catalogue row of radioType, or null when the code is not in the catalogue.
PERSONA_EXPORT const RadioModel* FindRadioModel(DWORD radioType);

// The whole catalogue, ordered by radio type code; *count receives the number of rows.
PERSONA_EXPORT const RadioModel* RadioModelCatalogue(std::size_t* count);

}  // namespace persona
