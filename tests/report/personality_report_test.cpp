// The personality report driver and the whole-personality operations: exact lines of the
// title and system blocks, option records printed by their owners or on their own, every
// set kind present, the option class list, model defaults, merge clashes and set kind keys.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <persona/conventional/conv_set.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/report/merge_policy.h>
#include <persona/report/personality_ops.h>
#include <persona/report/personality_report.h>
#include <persona/report/record_lines.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>
#include "support/bytes.h"
#include "support/record_testing.h"

namespace persona {
namespace {

std::vector<std::string> Report(CPersonality& p) {
  CStringArray out;
  PrintPersonalityReport(p, out);
  return test::Lines(out);
}

// The lines of the block headed heading, up to and without its closing empty line.
std::vector<std::string> Block(const std::vector<std::string>& lines, const std::string& heading) {
  std::vector<std::string> block;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i] != heading) continue;
    for (std::size_t j = i; j < lines.size() && !lines[j].empty(); ++j) block.push_back(lines[j]);
    break;
  }
  return block;
}

int Count(const std::vector<std::string>& lines, const std::string& line) {
  int n = 0;
  for (const std::string& l : lines) n += l == line;
  return n;
}

TEST(PersonalityReport, TitleBlockNamesTheModels) {
  CPersonality p(103, 0);
  p.SetName("FLEET");
  p.SetDescription("Test fleet");
  p.SetSavedOn("2026-01-02");
  p.SetSavedBy("tech");
  p.AddRadioType(2);
  p.SetTxMaxFreq(901.9875);
  const std::vector<std::string> expected = {
      "PERSONALITY:",
      "------------",
      "   Name                       - FLEET",
      "   Description                - Test fleet",
      "   Saved On                   - 2026-01-02",
      "   Saved By                   - tech",
      "   Version                    - 20",
      "   Radio Types                - 103 - Model 103 P25 trunked (p25t)",
      "                              - 2 - Unknown model",
      "   Last Radio                 - 103 - Model 103 P25 trunked",
      "   Tx Frequency Range         - 0.00000 - 901.98750 MHz",
      "   Rx Frequency Range         - 0.00000 - 0.00000 MHz",
      "   Systems                    - 0              Sets                        - 0",
      "   Option Records             - 0"};
  EXPECT_EQ(Block(Report(p), "PERSONALITY:"), expected);
}

TEST(PersonalityReport, P25TrunkedSystemPrintsEveryFieldWithItsLabel) {
  CPersonality p;
  auto* s = new CP25TrkSystem(103, 0);
  test::SetFields(*s, {"Name=P25 EAST", "WaNetName=WAN 1", "HomeWanName=WAN 2", "SystemNac=0x293",
                       "RfssId=0x1A", "SiteId=0x2B", "VeskaHostIpAddr=0x0A000105", "UnitReg=2",
                       "RegTimer=30", "SimulcastEnabled=1", "DefaultTxOffset=-45", "Sonvra=3",
                       "KwMode=2", "ScannedSystems=NORTH,SOUTH"});
  p.AddSystem(s);
  const std::vector<std::string> block = Block(Report(p), "SYSTEM 1 - PROJECT 25 TRUNKED:");
  ASSERT_FALSE(block.empty());
  EXPECT_EQ(block[1], "------------------------------");
  for (const char* line :
       {"   Name                       - P25 EAST",
        "   System Type                - Project 25 Trunked",
        "   Alert Tones                - On             Voice Key                   - 0",
        "   Voice Mode                 - 2              Voice Key Bank              - 0",
        "   Scanned Systems            - NORTH, SOUTH",
        "   Scan All                   - Off            Sonvra/Trevix               - 3",
        "   Text Host IP Address       - 010.000.001.005", "   WA Network                 - WAN 1",
        "   NAC                        - 293            Spare 1                     - 0",
        "   Sonvra Scan Type           - 0              Simulcast                   - On",
        "   Unit Reg.                  - 2              Spare 3                     - 0",
        "   Auto Reg Timer             - 30             Default Bandwidth           - 0",
        "   Default Tx Offset          - -45            Default Channel Spacing     - 0",
        "   Home ID WAN                - WAN 2",
        "   Home ID Unit ID            - 0              RFSS ID                     - 1A",
        "   Site ID                    - 2B             CC Tx Request               - Off",
        "   FNE Data LID               - 16777213"}) {
    EXPECT_EQ(Count(block, line), 1) << line;
  }
  // Every line but the heading's underline keeps to the layout: three blanks, a label column.
  for (std::size_t i = 2; i < block.size(); ++i) {
    EXPECT_EQ(block[i].compare(0, 3, "   "), 0) << block[i];
    EXPECT_EQ(block[i].compare(30, 2, "- "), 0) << block[i];
  }
}

TEST(PersonalityReport, OwnedOptionRecordsPrintOnTheirOwnOnlyWithoutTheirOwner) {
  CPersonality p(30, 0);
  p.PutOption(new CFennOpts(30, 0));
  std::vector<std::string> lines = Report(p);
  EXPECT_EQ(Count(lines, "CFENNOPTS RECORD:"), 1);

  p.PutOption(new CLumoOpts(30, 0));
  lines = Report(p);
  EXPECT_EQ(Count(lines, "CFENNOPTS RECORD:"), 0);
  EXPECT_EQ(Count(lines, "LUMO/FENN/COYLE Q9P OPTIONS:"), 1);
}

TEST(PersonalityReport, OwnedSubRecordsPrintByTheirPositionAndAnEmptyPlaceIsSkipped) {
  CP25tWanOpts wans;
  for (const char* name : {"ALPHA", "", "GAMMA"}) {
    CP25TrkWan* wan = nullptr;
    if (*name != 0) {
      wan = new CP25TrkWan;
      wan->SetNetworkName(name);
      wan->SetSystemId(0xABC);
    }
    wans.AddWan(wan);
  }
  std::vector<std::string> printed;
  for (const FieldLine& line : CollectFieldLines(wans, nullptr, 0)) {
    printed.push_back(line.label + "=" + line.value + (line.wide ? " w" : ""));
  }
  // The count, then each record's fields under the list name and its position (the second place
  // holds nothing); codes described as hexadecimal print so.
  EXPECT_EQ(printed, (std::vector<std::string>{"Wans=3", "Wans 1 NetworkName=ALPHA w",
                                               "Wans 1 NetworkAddr=0", "Wans 1 SystemId=ABC",
                                               "Wans 3 NetworkName=GAMMA w", "Wans 3 NetworkAddr=0",
                                               "Wans 3 SystemId=ABC"}));
}

TEST(PersonalityReport, EverySetKindHasItsHeadingAndEveryRecordIsPrinted) {
  CPersonality empty;
  const std::vector<std::string> lines = Report(empty);
  EXPECT_EQ(Count(lines, "   None"), 11);
  for (const char* heading :
       {"TRUNK SETS:", "GROUP SETS:", "KORVEX IP GROUP SETS:", "P25 GROUP SETS:",
        "PELLAM GROUP SETS:", "CONVENTIONAL CHANNEL SETS:", "P25 CONVENTIONAL CHANNEL SETS:",
        "PHONE CALL SETS:", "INDIVIDUAL CALL SETS:", "SPECIAL CALL SETS:",
        "PELLAM SPECIAL CALL SETS:"}) {
    EXPECT_EQ(Count(lines, heading), 1) << heading;
  }

  // Two trunk sets: the driver numbers and names them; the second option record of a class
  // (a merge leaves one) is printed field by field after the first.
  CPersonality p(103, 0);
  auto* a = new CTrunkSet(103, 0, 851.0);
  a->SetName("NORTH");
  auto* b = new CTrunkSet(103, 0, 851.0);
  b->SetName("SOUTH");
  p.AddSet(a, TrunkSetType);
  p.AddSet(b, TrunkSetType);
  MergeResult merged = MergePersonalities(*NewModelPersonality(68), *NewModelPersonality(68));
  const std::vector<std::string> withSets = Report(p);
  EXPECT_EQ(Count(withSets, "   1   - NORTH       "), 1);
  EXPECT_EQ(Count(withSets, "   2   - SOUTH       "), 1);
  const std::vector<std::string> twice = Report(*merged.merged);
  EXPECT_EQ(Count(twice, "GENERAL RADIO OPTIONS:"), 1);
  EXPECT_EQ(Count(twice, "CGENRADIOOPTS RECORD:"), 1);
}

TEST(PersonalityOps, ModelDefaultsHoldOneRecordOfEveryOptionClassInReportOrder) {
  std::size_t count = 0;
  const char* const* names = ReportOptionOrder(&count);
  ASSERT_EQ(count, 48u);
  std::unique_ptr<CPersonality> p = NewModelPersonality(103);
  ASSERT_EQ(p->GetNumOptions(), 48);
  for (std::size_t i = 0; i < count; ++i) {
    const CRuntimeClass* cls = CRuntimeClass::FromName(names[i]);
    ASSERT_NE(cls, nullptr) << names[i];
    EXPECT_STREQ(p->GetOptionAt(static_cast<int>(i))->GetRuntimeClass()->m_lpszClassName, names[i]);
  }
  EXPECT_EQ(NewReportOption(count, 103), nullptr);
  EXPECT_EQ(p->GetLastRadio(), 103);
  EXPECT_DOUBLE_EQ(p->GetRxMaxFreq(), 870.0);
  // A second call adds nothing.
  AddModelDefaultOptions(*p, 103);
  EXPECT_EQ(p->GetNumOptions(), 48);
}

// Systems, conventional sets and clashes of a merge, as one line.
std::string Summary(const CPersonality& m, const std::vector<std::string>& clashes) {
  std::string out;
  for (int i = 0; i < m.GetNumSystems(); ++i) out += m.GetSystemAt(i)->GetName().str() + " ";
  out += "|";
  for (int i = 0; i < m.GetNumSets(ConvSetType); ++i) {
    out += " " + m.GetSetAt(i, ConvSetType)->GetName().str();
  }
  for (const std::string& c : clashes) out += " | " + c;
  return out;
}

// A holds system NORTH and conventional set Metro; B holds NORTH, SOUTH, conventional set
// METRO (a clash: set names ignore case) and group set Metro (another list: no clash).
TEST(PersonalityOps, MergesAppendAndSettleTheNamesHeldTwiceByPolicy) {
  CPersonality a(103, 0);
  CPersonality b(68, 0);
  for (auto [p, name] : {std::pair{&a, "NORTH"}, {&b, "NORTH"}, {&b, "SOUTH"}}) {
    auto* system = new CTrunkSystem(68, 0);
    system->SetName(name);
    p->AddSystem(system);
  }
  auto* metro = new CConvSet(103, 0);
  metro->SetName("Metro");
  a.AddSet(metro, ConvSetType);
  auto* metro2 = new CConvSet(68, 0);
  metro2->SetName("METRO");
  b.AddSet(metro2, ConvSetType);
  auto* group = new CGroupSet(68, 0, GroupSetType);
  group->SetName("Metro");
  b.AddSet(group, GroupSetType);
  a.PutOption(new CMosaicOpts);  // the first option of each: held twice once merged
  b.PutOption(new CMosaicOpts);

  MergeResult plain = MergePersonalities(a, b);
  std::vector<std::string> clashes;
  for (const auto& c : plain.clashes) clashes.push_back(c.what + " " + c.name);
  EXPECT_EQ(Summary(*plain.merged, clashes),
            "NORTH NORTH SOUTH | Metro METRO | system NORTH | set conv METRO | option CMosaicOpts");
  EXPECT_EQ(plain.merged->GetNumRadioTypes(), 2);
  EXPECT_EQ(plain.merged->GetLastRadio(), 103);
  const std::pair<ClashPolicy, const char*> policies[] = {
      {ClashPolicy::KeepBoth,
       "NORTH NORTH SOUTH | Metro METRO | system NORTH: kept both | conv set METRO: kept both | "
       "option CMosaicOpts: kept both"},
      {ClashPolicy::PreferA,
       "NORTH SOUTH | Metro | system NORTH: kept A's | conv set METRO: kept A's | option "
       "CMosaicOpts: kept A's"},
      {ClashPolicy::PreferB,
       "NORTH SOUTH | METRO | system NORTH: took B's | conv set METRO: took B's | option "
       "CMosaicOpts: took B's"},
      {ClashPolicy::Rename,
       "NORTH NORTH-B SOUTH | Metro METRO-B | system NORTH: B's renamed to NORTH-B | conv set "
       "METRO: B's renamed to METRO-B | option CMosaicOpts: kept A's"}};
  for (const auto& [policy, expected] : policies) {
    PolicyMergeResult merged = MergeWithPolicy(a, b, policy, "-B");
    clashes.clear();
    for (const auto& c : merged.clashes)
      clashes.push_back(c.what + " " + c.name + ": " + c.outcome);
    EXPECT_EQ(Summary(*merged.merged, clashes), expected);
    EXPECT_EQ(merged.merged->GetNumSets(GroupSetType), 1);
  }
  EXPECT_EQ(Summary(a, {}) + Summary(b, {}), "NORTH | MetroNORTH SOUTH | METRO");  // unchanged
  // A rename reaches the names B's records hold: B's system EAST then uses METRO-B.
  auto* east = new CConvSystem(68, 0);
  east->SetName("EAST");
  east->SetConvSetName("METRO");
  b.AddSystem(east);
  PolicyMergeResult renamed = MergeWithPolicy(a, b, ClashPolicy::Rename, "-B");
  const auto* merged = static_cast<const CConvSystem*>(renamed.merged->GetSystemAt(3));
  ASSERT_EQ(merged->GetName(), "EAST");
  EXPECT_EQ(merged->GetConvSetName(), "METRO-B");
  // Names already held with the suffix are counted past: NORTH-B and NORTH-B2 give NORTH-B3.
  for (const char* held : {"NORTH-B", "NORTH-B2"}) {
    auto* system = new CConvSystem(68, 0);
    system->SetName(held);
    a.AddSystem(system);
  }
  const PolicyMergeResult counted = MergeWithPolicy(a, b, ClashPolicy::Rename, "-B");
  ASSERT_FALSE(counted.clashes.empty());
  EXPECT_EQ(counted.clashes[0].outcome, "B's renamed to NORTH-B3");
}

TEST(PersonalityOps, SetKindsByKeyOrNumber) {
  SetType type = TrunkSetType;
  EXPECT_TRUE(ParseSetKind("EAGroup", &type));
  EXPECT_EQ(type, EaGroupSetType);
  EXPECT_TRUE(ParseSetKind("8", &type));
  EXPECT_EQ(type, P25ConvSetType);
  EXPECT_FALSE(ParseSetKind("11", &type));
  EXPECT_FALSE(ParseSetKind("", &type));
  EXPECT_EQ(type, P25ConvSetType);
  for (int t = 0; t < kNumSetTypes; ++t) {
    ASSERT_TRUE(ParseSetKind(SetKindKey(static_cast<SetType>(t)), &type));
    EXPECT_EQ(type, t);
  }
  EXPECT_EQ(SetKindKey(static_cast<SetType>(11)), nullptr);
}

}  // namespace
}  // namespace persona
