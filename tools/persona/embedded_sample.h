// The bundled sample personality (examples/sample.pers), compiled into the tool.
#pragma once

#include <cstddef>

namespace persona {
extern const unsigned char kEmbeddedSample[];
extern const std::size_t kEmbeddedSampleSize;
}  // namespace persona
