// Test helpers for failures: the exception a piece of code throws, for checks of its cause,
// offset and message; the matchers that look for text inside a message; and a comparison of
// long texts that names where they part.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace persona::test {

using ::testing::HasSubstr;
using ::testing::StartsWith;

// Runs body and returns the E it throws. When it throws nothing the test fails there and the
// rest of it is skipped.
template <class E, class F>
E Caught(F&& body) {
  try {
    std::forward<F>(body)();
  } catch (const E& e) {
    return e;
  }
  ADD_FAILURE() << "nothing was thrown";
  throw std::logic_error("nothing was thrown");
}

// Success when text is expected; otherwise a failure naming the first byte where they differ
// and a few dozen bytes of each from there (a text of megabytes is never printed whole).
inline ::testing::AssertionResult SameText(std::string_view text, std::string_view expected) {
  if (text == expected) return ::testing::AssertionSuccess();
  const auto at = static_cast<std::size_t>(
      std::mismatch(text.begin(), text.begin() + std::min(text.size(), expected.size()),
                    expected.begin())
          .first -
      text.begin());
  return ::testing::AssertionFailure()
         << "texts of " << text.size() << " and " << expected.size() << " bytes differ at byte "
         << at << ": \"" << text.substr(at, 60) << "\" where \"" << expected.substr(at, 60)
         << "\" was expected";
}

}  // namespace persona::test
