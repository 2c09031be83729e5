// The sample personality of the reference maintenance tests, built from a text of one record
// per line, its fields set through their text form.
#include "integrity/sample_personality.h"

#include <gtest/gtest.h>

#include <sstream>

#include <persona/io/field_text.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/systems/system.h>

namespace persona::test {

namespace {

// Lines marked + are the messaging part. Set names ignore case: P1 names its trunk set "trk",
// CnvTestSet names "conv". CallBackMess is a message text that happens to spell a system name, not
// a reference.
constexpr const char* kSample = R"(
system CTrunkSystem 0 Name=T1 TrunkSetName=TRK GroupSetName=GRP PhoneSetName=PH iCallSetName=IC SpCallSetName=SP ScannedSystems=C1,P1 PriSys=C1 CnvPriSystem=C1 CnvPriChannel=CH2
system CConvSystem 1 Name=C1 ConvSetName=CONV PhoneSetName=PH
system CP25TrkSystem 5 Name=P1 TrunkSetName=trk GroupSetName=P25G PhoneSetName=PH iCallSetName=IC WaNetName=WAN1 HomeWanName=WAN1 ScannedSystems=T1
system CP25ConvSystem 3 Name=PC P25ConvSetName=P25C IcallSetName=IC
system CExtAddSystem 4 Name=E1 TrunkSetName=TRK GroupSetName=EAG
+system CPlmSystem 2 Name=M1 TrunkSetName=TRK GroupSetName=PLMG SpCallSetName=PLMSP ScannedSystems=T1,C1
set CTrunkSet 0 Name=TRK
set CGroupSet 2 Name=GRP HomeGrp=G1 Priority1Grp=G2 Priority2Grp=G3 PriorityTalkGrp=G2
element CGroup Name=G1
element CGroup Name=G2
element CGroup Name=G3
set CP25GroupSet 9 Name=P25G HomeGrp=PG1 Priority1Grp=PG2 Priority2Grp=PG1
element CP25Group Name=PG1
element CP25Group Name=PG2
set CExtAddGroupSet 10 Name=EAG HomeGrp=EG1
element CExtAddGroup Name=EG1
set CConvSet 1 Name=CONV HomeChan=CH1 P1Chan=CH2 P2Chan=CH3 WideScanChan=CH1 AltPttChan=CH2
element CConvChannel Name=CH1 TxFreq=810 RxFreq=855
element CConvChannel Name=CH2 TxFreq=810 RxFreq=855
element CConvChannel Name=CH3 TxFreq=810 RxFreq=855
set CP25ConvSet 8 Name=P25C P25GroupSet=P25G
element CP25ConvChannel Name=PCH1 TxFreq=810 RxFreq=855
element CP25ConvChannel Name=PCH2 TxFreq=810 RxFreq=855
set CPhoneSet 3 Name=PH
set CICallSet 4 Name=IC
element CICall Name=Desk WaNetName=WAN1
set CSpCallSet 5 Name=SP
+set CPlmGroupSet 6 Name=PLMG
+element CPlmGroup Name=MG1
+set CPlmSpCallSet 7 Name=PLMSP
option CGenRadioOpts TestUnitSystem=T1 HomeSystem=C1 CallBackMess=T1 CnvTestSet=conv
option CVantorOpts System=C1 Channel=CH3 TrkSystem=T1 Group=G3
option CConvScanOpts HomeSystem=C1 HomeChan=CH1
option CLumoConvScanOpts P1System=C1 P1Chan=CH2 P2System=PC P2Chan=PCH2
option CPowerUpOpts SystemName=P1 GroupName=PG2
option CP25tWanOpts
wan CP25TrkWan NetworkName=WAN1
)";

}  // namespace

void SetText(CObject& rec, const char* field, const char* value) {
  SetFieldText(rec, field, value);
}

std::string GetText(CObject& rec, const char* field) {
  std::string out;
  EXPECT_TRUE(GetFieldText(rec, field, out)) << rec.GetClassName() << " has no field " << field;
  return out;
}

void AddRecords(CPersonality& p, const char* text, bool withMarked) {
  std::istringstream lines(text);
  CSet* set = nullptr;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || (line[0] == '+' && !withMarked)) continue;
    std::istringstream words(line[0] == '+' ? line.substr(1) : line);
    std::string kind;
    std::string cls;
    int type = 0;
    words >> kind >> cls;
    if (kind == "system" || kind == "set") words >> type;
    CObject* rec = CRuntimeClass::FromName(cls.c_str())->CreateObject();
    for (std::string field; words >> field;) {
      SetFieldText(*rec, field.substr(0, field.find('=')), field.substr(field.find('=') + 1));
    }
    if (kind == "system") {
      static_cast<CSystem*>(rec)->SetSysType(static_cast<SystemType>(type));
      p.AddSystem(static_cast<CSystem*>(rec));
    } else if (kind == "set") {
      set = static_cast<CSet*>(rec);
      p.AddSet(set, static_cast<SetType>(type));
    } else if (kind == "element") {
      set->Add(rec);
    } else if (kind == "wan") {
      p.GetOption<CP25tWanOpts>()->AddWan(static_cast<CP25TrkWan*>(rec));
    } else {
      p.PutOption(rec);
    }
  }
}

std::unique_ptr<CPersonality> SamplePersonality(bool withMessaging) {
  auto p = std::make_unique<CPersonality>();
  p->SetLastRadio(101);
  AddRecords(*p, kSample, withMessaging);
  return p;
}

}  // namespace persona::test
