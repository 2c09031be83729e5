// The personality report driver: title block, option blocks, system blocks, sets by kind.
#include <persona/report/personality_report.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/options/agency_data.h>
#include <persona/options/alarm_opts.h>
#include <persona/options/alert_opts.h>
#include <persona/options/coyle300_opts.h>
#include <persona/options/custom_opts.h>
#include <persona/options/data_opts.h>
#include <persona/options/diagnostic_opts.h>
#include <persona/options/display_opts.h>
#include <persona/options/dual_ctrl_opts.h>
#include <persona/options/flash_lights.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/ignition_opts.h>
#include <persona/options/keypad_ctrl_opts.h>
#include <persona/options/kw_opts.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/mms_opts.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/network_opts.h>
#include <persona/options/option_report.h>
#include <persona/options/p25_otar_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/pellam_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/prgrm_calls.h>
#include <persona/options/r917_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/siren_lights.h>
#include <persona/options/sonvra_opts.h>
#include <persona/options/speaker_opts.h>
#include <persona/options/status_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/system_scan_opts.h>
#include <persona/options/timer_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/options/vantor_opts.h>
#include <persona/options/zemo_opts.h>
#include <persona/personality/radio_models.h>
#include <persona/report/record_lines.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_set.h>

namespace persona {

namespace {

// ---- options -------------------------------------------------------------------------------

// What every option block needs from the driver. Some blocks keep the non-const personality
// parameter of their published signature; no block changes the personality.
struct OptionContext {
  CStringArray& out;
  CPersonality* personality;
  unsigned short radioType;
};

// Records whose block takes the radio type, and those whose block does not.
template <class T>
auto CallPrint(const T& rec, OptionContext& c, int)
    -> decltype(rec.printOptToBuffer(c.out, c.personality, c.radioType), void()) {
  rec.printOptToBuffer(c.out, c.personality, c.radioType);
}
template <class T>
void CallPrint(const T& rec, OptionContext& c, long) {
  rec.printOptToBuffer(c.out, c.personality);
}

template <class T>
void PrintOption(const CObject& rec, OptionContext& c) {
  CallPrint(static_cast<const T&>(rec), c, 0);
}

using OptionPrinter = void (*)(const CObject&, OptionContext&);

using OptionFactory = CObject* (*)(unsigned short);

// Records without model defaults have only the default constructor.
template <class T>
CObject* MakeOption(unsigned short radioType) {
  if constexpr (std::is_constructible_v<T, unsigned short, int>) {
    return new T(radioType, 0);
  } else {
    return new T();
  }
}

struct OptionEntry {
  const char* className;
  OptionPrinter print;  // null: printed by owner's block
  const char* owner;    // class whose block prints this record, or null
  OptionFactory make;
};

#define PERSONA_OWN_BLOCK(C) \
  { #C, &PrintOption < C>, nullptr, &MakeOption < C> }
#define PERSONA_OWNED_BY(C, Owner) \
  { #C, nullptr, #Owner, &MakeOption < C> }

const OptionEntry kOptionOrder[] = {
    PERSONA_OWN_BLOCK(CGenRadioOpts),
    PERSONA_OWN_BLOCK(CDisplayOpts),
    PERSONA_OWN_BLOCK(CAlertOpts),
    PERSONA_OWN_BLOCK(CScratchPadOpts),
    PERSONA_OWN_BLOCK(CPowerUpOpts),
    PERSONA_OWN_BLOCK(CTimerOpts),
    PERSONA_OWN_BLOCK(CKeypadCtrlOpts),
    PERSONA_OWNED_BY(CKeypadCtrlOpts_E1, CKeypadCtrlOpts),
    PERSONA_OWNED_BY(CKeypadCtrlOpts_E2, CKeypadCtrlOpts),
    PERSONA_OWN_BLOCK(CScanOpts),
    PERSONA_OWNED_BY(CConvScanOpts, CScanOpts),
    PERSONA_OWNED_BY(CLumoConvScanOpts, CScanOpts),
    PERSONA_OWN_BLOCK(CSystemScanOpts),
    PERSONA_OWN_BLOCK(CSonvraOpts),
    PERSONA_OWN_BLOCK(CNetworkOpts),
    PERSONA_OWNED_BY(CMultipleRadioSonvraOpts, CNetworkOpts),
    PERSONA_OWN_BLOCK(CDualCtrlOpts),
    PERSONA_OWN_BLOCK(CExtSpkrOpts),
    PERSONA_OWN_BLOCK(CPubAddOpts),
    PERSONA_OWN_BLOCK(CAlarmOpts),
    PERSONA_OWN_BLOCK(CIgnitionOpts),
    PERSONA_OWN_BLOCK(CFlashLights),
    PERSONA_OWN_BLOCK(CSirenLightsOpts),
    PERSONA_OWN_BLOCK(CDataOpts),
    PERSONA_OWN_BLOCK(CStatus),
    PERSONA_OWNED_BY(CMessage, CStatus),
    PERSONA_OWN_BLOCK(CMmsOpts),
    PERSONA_OWN_BLOCK(CAgencyData),
    PERSONA_OWN_BLOCK(CExtAddAgencyData),
    PERSONA_OWN_BLOCK(CKwOpts),
    PERSONA_OWN_BLOCK(CPrgrmICall),
    PERSONA_OWN_BLOCK(CPrgrmPhoneCall),
    PERSONA_OWN_BLOCK(CSupervisoryOpts),
    PERSONA_OWN_BLOCK(CVantorOpts),
    PERSONA_OWN_BLOCK(CToneEncode),
    PERSONA_OWN_BLOCK(CPellamOpts),
    PERSONA_OWN_BLOCK(CP25tWanOpts),
    PERSONA_OWN_BLOCK(CP25OtarOpts),
    PERSONA_OWN_BLOCK(CR917Opts),
    PERSONA_OWN_BLOCK(CZemoOpts),
    PERSONA_OWN_BLOCK(CDiagnosticOpts),
    PERSONA_OWN_BLOCK(CSilCustomOpts),
    PERSONA_OWN_BLOCK(COstrelCustomOpts),
    PERSONA_OWN_BLOCK(CKorvex2CustomOpts),
    PERSONA_OWN_BLOCK(CLumoOpts),
    PERSONA_OWNED_BY(CFennOpts, CLumoOpts),
    PERSONA_OWN_BLOCK(CMosaicOpts),
    PERSONA_OWN_BLOCK(CCoyle300Opts),
};

#undef PERSONA_OWN_BLOCK
#undef PERSONA_OWNED_BY

constexpr std::size_t kNumOptionEntries = sizeof kOptionOrder / sizeof kOptionOrder[0];

std::size_t OptionRank(const char* className) {
  for (std::size_t i = 0; i < kNumOptionEntries; ++i) {
    if (std::strcmp(kOptionOrder[i].className, className) == 0) return i;
  }
  return kNumOptionEntries;
}

// The first option record of the class named className, or null.
const CObject* FirstOptionOf(const CPersonality& p, const char* className) {
  const CRuntimeClass* cls = CRuntimeClass::FromName(className);
  return cls ? p.FindOption(cls) : nullptr;
}

void PrintGenericRecord(CStringArray& out, CObject& rec) {
  CString heading(rec.GetRuntimeClass()->m_lpszClassName);
  heading.MakeUpper();
  PrintFieldBlock(out, heading.str() + " RECORD:", CollectFieldLines(rec, nullptr, 0));
}

void PrintOptions(const CPersonality& p, CStringArray& out, const BlockEnd& blockEnd) {
  std::vector<std::pair<std::size_t, CObject*>> records;
  for (int i = 0; i < p.GetNumOptions(); ++i) {
    CObject* rec = p.GetOptionAt(i);
    if (rec) records.emplace_back(OptionRank(rec->GetRuntimeClass()->m_lpszClassName), rec);
  }
  std::stable_sort(records.begin(), records.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  OptionContext context{out, const_cast<CPersonality*>(&p), p.GetLastRadio()};
  for (const auto& [rank, rec] : records) {
    const bool first = FirstOptionOf(p, rec->GetRuntimeClass()->m_lpszClassName) == rec;
    if (rank < kNumOptionEntries && first) {
      const OptionEntry& entry = kOptionOrder[rank];
      if (entry.print) {
        entry.print(*rec, context);
        blockEnd(out);
        continue;
      }
      if (FirstOptionOf(p, entry.owner) != nullptr) continue;
    }
    PrintGenericRecord(out, *rec);
    blockEnd(out);
  }
}

// ---- title ---------------------------------------------------------------------------------

std::string ModelName(unsigned radioType) {
  const RadioModel* model = FindRadioModel(radioType);
  return model ? model->displayName : "Unknown model";
}

void PrintTitle(const CPersonality& p, CStringArray& out) {
  OptionBlock block(out, "PERSONALITY:");
  block.Value("Name", p.GetName().str());
  block.Value("Description", p.GetDescription().str());
  block.Value("Saved On", p.GetSavedOn().str());
  block.Value("Saved By", p.GetSavedBy().str());
  block.Value("Version", std::to_string(p.GetVersion()));
  if (p.GetNumRadioTypes() == 0) block.Value("Radio Types", "None");
  for (int i = 0; i < p.GetNumRadioTypes(); ++i) {
    const unsigned type = p.GetRadioTypeAt(i);
    const RadioModel* model = FindRadioModel(type);
    std::string value = std::to_string(type) + " - " + ModelName(type);
    if (model) value += std::string(" (") + model->familyKey + ")";
    block.Value(i == 0 ? "Radio Types" : "", value);
  }
  block.Value("Last Radio", std::to_string(p.GetLastRadio()) + " - " + ModelName(p.GetLastRadio()));
  block.Value("Tx Frequency Range",
              CString::Formatted("%.5f - %.5f MHz", p.GetTxMinFreq(), p.GetTxMaxFreq()).str());
  block.Value("Rx Frequency Range",
              CString::Formatted("%.5f - %.5f MHz", p.GetRxMinFreq(), p.GetRxMaxFreq()).str());
  int sets = 0;
  for (int t = 0; t < kNumSetTypes; ++t) sets += p.GetNumSets(static_cast<SetType>(t));
  block.Pair("Systems", std::to_string(p.GetNumSystems()), "Sets", std::to_string(sets));
  block.Value("Option Records", std::to_string(p.GetNumOptions()));
  block.End();
}

// ---- systems -------------------------------------------------------------------------------

constexpr FieldLabel kSystemLabels[] = {
    // every system
    {"Name", "Name", FieldFormat::Plain},
    {"SysType", "System Type", FieldFormat::SystemKind},
    {"PowerLevel", "Power Level", FieldFormat::NotSetFFFF},
    {"Backlight", "Backlight", FieldFormat::OnOff},
    {"AlertTones", "Alert Tones", FieldFormat::OnOff},
    {"KwKey", "Voice Key", FieldFormat::Plain},
    {"KwMode", "Voice Mode", FieldFormat::Plain},
    {"KwBank", "Voice Key Bank", FieldFormat::Plain},
    {"Zemo1Button", "Zemo Key 1", FieldFormat::Hex},
    {"Zemo2Button", "Zemo 2 Key 1", FieldFormat::Hex},
    {"VeltroButton", "Veltro Key 1", FieldFormat::Hex},
    {"Zemo2Button2", "Zemo 2 Key 2", FieldFormat::Hex},
    {"VeltroButton2", "Veltro Key 2", FieldFormat::Hex},
    {"QuenbyButton", "Quenby Key 1", FieldFormat::Hex},
    {"QuenbyButton2", "Quenby Key 2", FieldFormat::Hex},
    {"ESK", "Key Number", FieldFormat::Plain},
    {"EskName", "Key Name", FieldFormat::Plain},
    // trunked (also extended addressing and P25 trunked)
    {"ScannedSystems", "Scanned Systems", FieldFormat::Plain},
    {"EmerAudio", "Emergency Audio", FieldFormat::OnOff},
    {"EmerDisplay", "Emergency Display", FieldFormat::OnOff},
    {"Power", "Power", FieldFormat::Plain},
    {"FsChan", "Failsoft Channel", FieldFormat::Plain},
    {"Unit", "Unit ID", FieldFormat::Plain},
    {"Site", "Site Number", FieldFormat::Plain},
    {"TrunkSetName", "Trunk Set", FieldFormat::Plain},
    {"GroupSetName", "Group Set", FieldFormat::Plain},
    {"PhoneSetName", "Phone Set", FieldFormat::Plain},
    {"iCallSetName", "Individual Call Set", FieldFormat::Plain},
    {"SpCallSetName", "Special Call Set", FieldFormat::Plain},
    {"PriSys", "Priority System", FieldFormat::Plain},
    {"ScanAll", "Scan All", FieldFormat::OnOff},
    {"Sonvra", "Sonvra/Trevix", FieldFormat::Plain},
    {"CnvPriSystem", "Conv. Priority System", FieldFormat::Plain},
    {"CnvPriChannel", "Conv. Priority Channel", FieldFormat::Plain},
    {"CnvPriTx", "Conv. Priority Tx", FieldFormat::OnOff},
    {"TrunkESK", "Korvex Key Number", FieldFormat::Plain},
    {"TrunkEskName", "Korvex Key Name", FieldFormat::Plain},
    {"VeskaHostLid", "Text Host LID", FieldFormat::Plain},
    {"VeskaHostUdpPortNum", "Text Host UDP Port", FieldFormat::Plain},
    {"VeskaHostIpAddr", "Text Host IP Address", FieldFormat::IpAddress},
    {"DataLid", "Data LID", FieldFormat::Plain},
    // extended addressing
    {"EaUnit", "LID", FieldFormat::Plain},
    {"EaSite", "Site", FieldFormat::Plain},
    {"eaSpare", "Spare", FieldFormat::Plain},
    // P25 trunked
    {"WaNetName", "WA Network", FieldFormat::Plain},
    {"SystemNac", "NAC", FieldFormat::Hex},
    {"p25Spare1", "Spare 1", FieldFormat::Plain},
    {"FreqOffset", "Frequency Offset", FieldFormat::Plain},
    {"p25Spare2", "Spare 2", FieldFormat::Plain},
    {"SonvraScanType", "Sonvra Scan Type", FieldFormat::Plain},
    {"SimulcastEnabled", "Simulcast", FieldFormat::OnOff},
    {"UnitReg", "Unit Reg.", FieldFormat::Plain},
    {"p25Spare3", "Spare 3", FieldFormat::Plain},
    {"AlgorithmId", "Algorithm ID", FieldFormat::Plain},
    {"DefaultKeyId", "Default Key ID", FieldFormat::Plain},
    {"p25Spare4", "Spare 4", FieldFormat::Plain},
    {"PhoneKeyid", "Phone Key ID", FieldFormat::Plain},
    {"IcallKeyid", "Indiv. Call Key ID", FieldFormat::Plain},
    {"AllCallKeyId", "All Call Key ID", FieldFormat::Plain},
    {"RegTimer", "Auto Reg Timer", FieldFormat::Plain},
    {"DefaultBandwidth", "Default Bandwidth", FieldFormat::Plain},
    {"DefaultTxOffset", "Default Tx Offset", FieldFormat::Plain},
    {"DefaultChnlSpacing", "Default Channel Spacing", FieldFormat::Plain},
    {"DefaultBaseFreq", "Default Base Frequency", FieldFormat::Plain},
    {"HomeWanName", "Home ID WAN", FieldFormat::Plain},
    {"HomeUnitId", "Home ID Unit ID", FieldFormat::Plain},
    {"RfssId", "RFSS ID", FieldFormat::Hex},
    {"SiteId", "Site ID", FieldFormat::Hex},
    {"CcTxReq", "CC Tx Request", FieldFormat::OnOff},
    {"FneDataLid", "FNE Data LID", FieldFormat::Plain},
    // conventional
    {"T99wcg", "Type 99 Mute Control", FieldFormat::OnOff},
    {"T99Super", "Type 99 Super Group", FieldFormat::OnOff},
    {"T99Group", "Type 99 Group Decode", FieldFormat::OnOff},
    {"T99IndvDec", "Type 99 Indiv. Decode", FieldFormat::OnOff},
    {"T99QuickCall", "Type 99 Quick Call", FieldFormat::OnOff},
    {"DTMF", "DTMF", FieldFormat::OnOff},
    {"ToneSet", "Tone Set", FieldFormat::Plain},
    {"ConvSetName", "Conventional Set", FieldFormat::Plain},
    {"ToneSeq", "Default Sequence", FieldFormat::Plain},
    {"CgSel", "Channel Guard Select", FieldFormat::Plain},
    // messaging
    {"BusyToneType", "Busy Tone Type", FieldFormat::Plain},
    {"indDecAlarm", "Indiv. Decode Alarm", FieldFormat::OnOff},
    {"AutoInterConnect", "Auto Interconnect", FieldFormat::OnOff},
    {"IndvDecWStar", "Indiv. Decode With *", FieldFormat::OnOff},
    {"DispOvdl", "Display Overdial", FieldFormat::OnOff},
    {"FastBusy", "Fast Busy", FieldFormat::OnOff},
    {"Duplex", "Duplex", FieldFormat::OnOff},
    {"DblDiscnct", "Double Disconnect", FieldFormat::OnOff},
    {"CollectToneLen", "Collect Tone Length", FieldFormat::Plain},
    {"BusyToneLen", "Busy Tone Length", FieldFormat::Plain},
    {"SpCallTone", "Special Call Tones", FieldFormat::Plain},
    {"IndvDecTone", "Indiv. Decode Tones", FieldFormat::Plain},
    // P25 conventional
    {"P25ConvSetName", "P25 Conventional Set", FieldFormat::Plain},
    {"IcallSetName", "Individual Call Set", FieldFormat::Plain},
    {"EncryptType", "Encryption Type", FieldFormat::Plain},
    {"KeyId", "Key ID", FieldFormat::Plain},
    {"DisplayGroup", "Display Group", FieldFormat::Plain},
};

void PrintSystems(const CPersonality& p, CStringArray& out, const BlockEnd& blockEnd) {
  for (int i = 0; i < p.GetNumSystems(); ++i) {
    CSystem* system = p.GetSystemAt(i);
    if (system == nullptr) {
      if (CObject* record = p.GetSystemRecordAt(i)) PrintGenericRecord(out, *record);
      continue;
    }
    CString kind(SystemKindLabel(static_cast<unsigned>(system->GetSysType())));
    kind.MakeUpper();
    const std::string heading = "SYSTEM " + std::to_string(i + 1) + " - " + kind.str() + ":";
    PrintFieldBlock(
        out, heading,
        CollectFieldLines(*system, kSystemLabels, sizeof kSystemLabels / sizeof kSystemLabels[0]));
    blockEnd(out);
  }
}

// ---- sets ----------------------------------------------------------------------------------

struct SetContext {
  CStringArray& out;
  int number;
  unsigned short radioType;
  double bandFrequency;
  unsigned short callsBefore;         // calls in the earlier sets of the kind
  const ElementLinesEnd* elementEnd;  // called after each element's lines
};

// The numbered name line that the call and channel sets print themselves; the trunk and group
// sets print none, so the driver adds it.
void PrintSetTitle(const CSet& set, SetContext& c) {
  c.out.Add(CString::Formatted("   %-3d - %-12s", c.number, set.GetName().c_str()));
}

template <class S>
bool PrintAs(CSet& set, SetContext& c, void (*print)(const S&, SetContext&)) {
  const S* typed = dynamic_cast<const S*>(&set);
  if (typed == nullptr) return false;
  print(*typed, c);
  return true;
}

// A set's block prints the elements of its class's element class; those of other classes are
// skipped there and printed field by field after it.
void PrintForeignElements(const CSet& set, CStringArray& out) {
  const CRuntimeClass* printed = CPersonality::ElementClassOf(set);
  if (printed == nullptr) return;
  int n = 0;
  for (CObject* element : set.Elements()) {
    ++n;
    if (element == nullptr || element->IsKindOf(printed)) continue;
    CString heading(element->GetClassName());
    heading.MakeUpper();
    PrintFieldBlock(out, "   " + std::to_string(n) + " - " + heading.str() + " RECORD:",
                    CollectFieldLines(*element, nullptr, 0));
  }
}

bool PrintSet(CSet& set, SetType type, SetContext& c) {
  switch (type) {
    case TrunkSetType:
      return PrintAs<CTrunkSet>(set, c, [](const CTrunkSet& s, SetContext& x) {
        PrintSetTitle(s, x);
        s.printToBuffer(x.out, 0, x.elementEnd);
      });
    case GroupSetType:
    case EaGroupSetType:
      return PrintAs<CGroupSet>(set, c, [](const CGroupSet& s, SetContext& x) {
        PrintSetTitle(s, x);
        s.printToBuffer(x.out, 0, x.elementEnd);
      });
    case P25GroupSetType:
      return PrintAs<CP25GroupSet>(set, c, [](const CP25GroupSet& s, SetContext& x) {
        PrintSetTitle(s, x);
        s.printToBuffer(x.out, 0, x.elementEnd);
      });
    case PlmGroupSetType:
      return PrintAs<CPlmGroupSet>(set, c, [](const CPlmGroupSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.elementEnd);
      });
    case ConvSetType:
      return PrintAs<CConvSet>(set, c, [](const CConvSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.radioType, x.bandFrequency, x.elementEnd);
      });
    case P25ConvSetType:
      return PrintAs<CP25ConvSet>(set, c, [](const CP25ConvSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.radioType, x.bandFrequency, x.elementEnd);
      });
    case PhoneSetType:
      return PrintAs<CPhoneSet>(set, c, [](const CPhoneSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.callsBefore, x.elementEnd);
      });
    case ICallSetType:
      return PrintAs<CICallSet>(set, c, [](const CICallSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.callsBefore, x.elementEnd);
      });
    case SpCallSetType:
      return PrintAs<CSpCallSet>(set, c, [](const CSpCallSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.elementEnd);
      });
    case PlmSpCallSetType:
      return PrintAs<CPlmSpCallSet>(set, c, [](const CPlmSpCallSet& s, SetContext& x) {
        s.printToBuffer(x.out, x.number, x.elementEnd);
      });
  }
  return false;
}

constexpr SetType kSetOrder[] = {TrunkSetType,    GroupSetType,  EaGroupSetType,  P25GroupSetType,
                                 PlmGroupSetType, ConvSetType,   P25ConvSetType,  PhoneSetType,
                                 ICallSetType,    SpCallSetType, PlmSpCallSetType};

const char* SetKindHeading(SetType type) {
  switch (type) {
    case TrunkSetType:
      return "TRUNK SETS:";
    case ConvSetType:
      return "CONVENTIONAL CHANNEL SETS:";
    case GroupSetType:
      return "GROUP SETS:";
    case PhoneSetType:
      return "PHONE CALL SETS:";
    case ICallSetType:
      return "INDIVIDUAL CALL SETS:";
    case SpCallSetType:
      return "SPECIAL CALL SETS:";
    case PlmGroupSetType:
      return "PELLAM GROUP SETS:";
    case PlmSpCallSetType:
      return "PELLAM SPECIAL CALL SETS:";
    case P25ConvSetType:
      return "P25 CONVENTIONAL CHANNEL SETS:";
    case P25GroupSetType:
      return "P25 GROUP SETS:";
    case EaGroupSetType:
      return "KORVEX IP GROUP SETS:";
  }
  return "SETS:";
}

// The sets' parts: for each kind its heading, then each set (with the records of its list
// that are not sets, printed field by field where they stand).
void AddSetParts(const CPersonality& p, std::vector<ReportPart>& parts) {
  for (SetType type : kSetOrder) {
    const int count = p.GetNumSets(type);
    parts.emplace_back([type, count](CStringArray& out, const BlockEnd& blockEnd) {
      OptionBlock block(out, SetKindHeading(type));
      if (count == 0) block.Line("   None");
      block.End();
      blockEnd(out);
    });
    unsigned short elementsBefore = 0;
    for (int i = 0; i < count; ++i) {
      CSet* set = p.GetSetAt(i, type);
      if (set == nullptr) {
        if (CObject* record = p.GetSetRecordAt(i, type)) {
          parts.emplace_back(
              [record](CStringArray& out, const BlockEnd&) { PrintGenericRecord(out, *record); });
        }
        continue;
      }
      parts.emplace_back([set, type, number = i + 1, radio = p.GetLastRadio(),
                          band = p.GetTxMaxFreq(),
                          elementsBefore](CStringArray& out, const BlockEnd& blockEnd) {
        SetContext context{out, number, radio, band, elementsBefore, &blockEnd};
        if (!PrintSet(*set, type, context)) {
          PrintGenericRecord(out, *set);
        } else {
          PrintForeignElements(*set, out);
        }
        blockEnd(out);
      });
      elementsBefore = static_cast<unsigned short>(elementsBefore + set->GetSize());
    }
  }
}

}  // namespace

std::vector<ReportPart> PersonalityReportParts(const CPersonality& personality) {
  std::vector<ReportPart> parts;
  parts.emplace_back([&personality](CStringArray& out, const BlockEnd& blockEnd) {
    PrintTitle(personality, out);
    blockEnd(out);
    PrintOptions(personality, out, blockEnd);
    PrintSystems(personality, out, blockEnd);
  });
  AddSetParts(personality, parts);
  return parts;
}

void PrintPersonalityReport(const CPersonality& personality, CStringArray& out,
                            const BlockEnd& blockEnd) {
  for (const ReportPart& part : PersonalityReportParts(personality)) part(out, blockEnd);
}

void PrintPersonalityReport(const CPersonality& personality, CStringArray& out) {
  PrintPersonalityReport(personality, out, [](CStringArray&) {});
}

void StreamPersonalityReport(const CPersonality& personality, const ReportSink& sink) {
  // Lines go out in pieces of a few hundred: the heap strings of a piece are taken again by the
  // next one while they are still in the cache, and no set is ever held whole as text.
  CStringArray piece;
  PrintPersonalityReport(personality, piece, [&sink](CStringArray& lines) {
    if (lines.GetSize() < kReportPieceLines) return;
    sink(lines);
    lines.RemoveAll();
  });
  if (!piece.IsEmpty()) sink(piece);
}

const char* const* ReportOptionOrder(std::size_t* count) {
  static const std::vector<const char*> names = [] {
    std::vector<const char*> v;
    for (const OptionEntry& e : kOptionOrder) v.push_back(e.className);
    return v;
  }();
  *count = names.size();
  return names.data();
}

CObject* NewReportOption(std::size_t i, unsigned short radioType) {
  return i < kNumOptionEntries ? kOptionOrder[i].make(radioType) : nullptr;
}

const SetType* ReportSetOrder(std::size_t* count) {
  *count = sizeof kSetOrder / sizeof kSetOrder[0];
  return kSetOrder;
}

}  // namespace persona
