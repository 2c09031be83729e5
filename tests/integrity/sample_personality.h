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

// Adds to p the records of text, one per line: "KIND CLASS [TYPE] field=value ..." with KIND
// system (of kind TYPE), set (in list TYPE), element (of the last set), option or wan (of the
// WAN option record). Values hold no blanks; list entries are separated by ','. Lines marked
// with a leading + are added only when withMarked.
void AddRecords(CPersonality& p, const char* text, bool withMarked = true);

// Systems T1 (trunked), C1 (conventional), P1 (P25 trunked), PC (P25 conventional), E1
// (extended addressing) and, with messaging, M1; the sets they name (TRK, GRP, P25G, EAG, CONV,
// P25C, PH, IC, SP, and PLMG, PLMSP with messaging) with their channels and groups; the option
// records CGenRadioOpts, CVantorOpts, CConvScanOpts, CLumoConvScanOpts, CPowerUpOpts and
// CP25tWanOpts (WAN1). Last radio 101, default band limits, channels inside them.
std::unique_ptr<CPersonality> SamplePersonality(bool withMessaging = true);

}  // namespace persona::test
