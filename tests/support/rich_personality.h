// A personality that holds something of everything: a filled system of every registered kind, a
// set of every kind with filled elements, two key records shared by the trunk and group sets,
// and optionally every option record filled. The fuzz seeds and the integration tests start
// from it.
#pragma once

#include <memory>

#include <persona/core/set.h>
#include <persona/personality/personality.h>

namespace persona::test {

// A set of type t named name with n elements of its element class, each filled (seed + i);
// its scope is seed % 2.
std::unique_ptr<CSet> FilledSet(SetType t, const char* name, int n, int seed);

// Radio type 68, header fields filled, version 20; sets named "S0" to "S10" by kind with two
// elements each; with options, one filled record of every option class. Deterministic: the same
// seed gives the same bytes.
std::unique_ptr<CPersonality> RichPersonality(int seed, bool options);

}  // namespace persona::test
