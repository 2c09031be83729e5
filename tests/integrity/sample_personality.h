// A personality in which every kind of name field names something that exists, for the tests
// of reference maintenance, the checker and pruning; fields are set by name through their
// text form.
#pragma once

#include <memory>
#include <string>

#include <persona/framework/object.h>
#include <persona/personality/personality.h>

namespace persona::test {

// Sets the field called field of rec from its text form (a list: entries separated by ',');
// throws when rec has no such field.
void SetText(CObject& rec, const char* field, const char* value);
// The value of a field in its text form (list entries joined with ", ").
std::string GetText(CObject& rec, const char* field);

// Systems T1 (trunked), C1 (conventional), P1 (P25 trunked), PC (P25 conventional), E1
// (extended addressing) and, with messaging, M1; the sets they name (TRK, GRP, P25G, EAG, CONV,
// P25C, PH, IC, SP, and PLMG, PLMSP with messaging) with their channels and groups; the option
// records CGenRadioOpts, CVantorOpts, CConvScanOpts, CLumoConvScanOpts, CPowerUpOpts and
// CP25tWanOpts (WAN1). Last radio 101, default band limits, channels inside them.
std::unique_ptr<CPersonality> SamplePersonality(bool withMessaging = true);

}  // namespace persona::test
