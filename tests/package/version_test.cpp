// The version a program is compiled against and the one it runs with, through the umbrella
// headers an application includes.
#include <gtest/gtest.h>

#include <string>

#include <persona/json.h>
#include <persona/persona.h>

namespace persona {
namespace {

TEST(Version, MacrosAndLinkedLibraryAgree) {
  const std::string fromParts = std::to_string(PERSONA_VERSION_MAJOR) + "." +
                                std::to_string(PERSONA_VERSION_MINOR) + "." +
                                std::to_string(PERSONA_VERSION_PATCH);
  EXPECT_EQ(fromParts, PERSONA_VERSION_STRING);
  EXPECT_EQ(fromParts, Version());
  EXPECT_EQ(PERSONA_VERSION,
            PERSONA_VERSION_MAJOR * 10000 + PERSONA_VERSION_MINOR * 100 + PERSONA_VERSION_PATCH);
  static_assert(PERSONA_VERSION_MAJOR == 0 && PERSONA_VERSION_MINOR >= 2, "0.2 or later");
}

}  // namespace
}  // namespace persona
