// Test helpers for failures: the exception a piece of code throws, for checks of its cause,
// offset and message; and the matchers that look for text inside a message.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
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

}  // namespace persona::test
