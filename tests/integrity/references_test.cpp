// Rename and delete propagation, table-driven over every field that names something: each row
// changes one target and lists the fields that name it; afterwards exactly those fields (and
// the target itself) differ from before, each holding the new name or emptied. And the record
// paths that name those fields: each resolves back to its record and field.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <type_traits>

#include <persona/calls/icall_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/integrity/name_refs.h>
#include <persona/integrity/record_path.h>
#include <persona/integrity/references.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/vantor_opts.h>
#include <persona/report/personality_ops.h>
#include <persona/systems/system.h>
#include "integrity/sample_personality.h"
#include "support/expect.h"
#include "support/record_testing.h"

namespace persona {
namespace {

using test::GetText;
using test::SamplePersonality;

// Every described field of every record at or below rec, keyed by record and field.
using Key = std::pair<const CObject*, std::string>;
void Snapshot(CObject& rec, std::map<Key, std::string>& out) {
  test::ForEachField(rec, [&](const FieldInfo& f, auto&& v) {
    using T = std::decay_t<decltype(v)>;
    std::ostringstream s;
    if constexpr (std::is_same_v<T, COwnedObList> || std::is_same_v<T, CObList>) {
      s << v.GetCount();
      if constexpr (std::is_same_v<T, COwnedObList>) {
        for (CObject* child : v) {
          if (child != nullptr) Snapshot(*child, out);
        }
      }
    } else if constexpr (std::is_same_v<T, CStringArray>) {
      for (const CString& item : v) s << item.str() << ',';
    } else if constexpr (std::is_same_v<T, CWordArray>) {
      s << v.GetSize();
    } else if constexpr (std::is_same_v<T, test::WordRow>) {
      for (std::size_t i = 0; i < v.count; ++i) s << v.values[i] << ' ';
    } else if constexpr (std::is_same_v<T, CString>) {
      s << v.str();
    } else {
      s << +v;
    }
    out[{&rec, f.name}] = s.str();
  });
}

std::map<Key, std::string> Take(CPersonality& p) {
  std::map<Key, std::string> values;
  Snapshot(p, values);
  return values;
}

// Where a name field lives: a record of the sample found by a lookup, and the field.
struct Site {
  std::function<CObject*(CPersonality&)> record;
  const char* field;
};
Site Sys(const char* name, const char* field) {
  return {[name](CPersonality& p) { return p.GetSystem(name); }, field};
}
Site SetOf(SetType type, const char* name, const char* field) {
  return {[type, name](CPersonality& p) { return p.GetSet(name, type); }, field};
}
template <class T>
Site Opt(const char* field) {
  return {[](CPersonality& p) { return p.GetOption<T>(); }, field};
}

// One operation, "kind|set kind|set|name|new name": a rename of the system, set or element
// (channel, group) to the new name, or its deletion when there is none. Names are spelled as
// a user might (set names ignore case). sites lists every field that names the target.
struct Row {
  std::string op;
  std::vector<Site> sites;

  std::string Part(int i) const {
    std::size_t at = 0;
    for (int k = 0; k < i; ++k) at = op.find('|', at) + 1;
    return op.substr(at, op.find('|', at) - at);
  }
  bool Rename() const { return !Part(4).empty(); }
  int Run(CPersonality& p) const {
    const std::string kind = Part(0);
    const std::string set = Part(2), name = Part(3), to = Part(4);
    SetType type = TrunkSetType;
    ParseSetKind(Part(1), &type);
    if (kind == "system") return to.empty() ? DeleteSystem(p, name) : RenameSystem(p, name, to);
    if (kind == "set") return to.empty() ? DeleteSet(p, type, set) : RenameSet(p, type, set, to);
    if (kind == "channel") {
      return to.empty() ? DeleteChannel(p, type, set, name) : RenameChannel(p, type, set, name, to);
    }
    return to.empty() ? DeleteGroup(p, type, set, name) : RenameGroup(p, type, set, name, to);
  }
  // The record whose own name changes or that is deleted (with everything below it).
  CObject* Target(CPersonality& p) const {
    if (Part(0) == "system") return p.GetSystem(Part(3).c_str());
    SetType type = TrunkSetType;
    ParseSetKind(Part(1), &type);
    CSet* s = p.GetSet(Part(2).c_str(), type);
    for (int i = 0; Part(0) != "set" && i < s->GetSize(); ++i) {
      if (GetText(*s->GetAt(i), "Name") == Part(3)) return s->GetAt(i);
    }
    return s;
  }
};

std::vector<Row> Rows() {
  return {
      {"system|||C1|Base",
       {Sys("T1", "ScannedSystems"), Sys("T1", "PriSys"), Sys("T1", "CnvPriSystem"),
        Sys("M1", "ScannedSystems"), Opt<CGenRadioOpts>("HomeSystem"), Opt<CVantorOpts>("System"),
        Opt<CConvScanOpts>("HomeSystem"), Opt<CLumoConvScanOpts>("P1System")}},
      {"system|||T1|Trunk 1",
       {Sys("P1", "ScannedSystems"), Sys("M1", "ScannedSystems"),
        Opt<CGenRadioOpts>("TestUnitSystem"), Opt<CVantorOpts>("TrkSystem")}},
      {"system|||PC|PConv", {Opt<CLumoConvScanOpts>("P2System")}},
      {"system|||P1|P25", {Sys("T1", "ScannedSystems"), Opt<CPowerUpOpts>("SystemName")}},
      {"set|trunk|Trk||Main",
       {Sys("T1", "TrunkSetName"), Sys("P1", "TrunkSetName"), Sys("E1", "TrunkSetName"),
        Sys("M1", "TrunkSetName")}},
      {"set|group|GRP||Talk", {Sys("T1", "GroupSetName")}},
      {"set|p25group|P25G||Area",
       {Sys("P1", "GroupSetName"), SetOf(P25ConvSetType, "P25C", "P25GroupSet")}},
      {"set|eagroup|EAG||Wide", {Sys("E1", "GroupSetName")}},
      {"set|conv|CONV||Fire", {Sys("C1", "ConvSetName"), Opt<CGenRadioOpts>("CnvTestSet")}},
      {"set|p25conv|P25C||Ops", {Sys("PC", "P25ConvSetName")}},
      {"set|phone|PH||City",
       {Sys("T1", "PhoneSetName"), Sys("C1", "PhoneSetName"), Sys("P1", "PhoneSetName")}},
      {"set|icall|IC||Units",
       {Sys("T1", "iCallSetName"), Sys("P1", "iCallSetName"), Sys("PC", "IcallSetName")}},
      {"set|spcall|SP||Sp2", {Sys("T1", "SpCallSetName")}},
      {"set|plmgroup|PLMG||Msg", {Sys("M1", "GroupSetName")}},
      {"set|plmspcall|PLMSP||MsgSp", {Sys("M1", "SpCallSetName")}},
      {"channel|conv|conv|CH1|Dispatch",
       {SetOf(ConvSetType, "CONV", "HomeChan"), SetOf(ConvSetType, "CONV", "WideScanChan"),
        Opt<CConvScanOpts>("HomeChan")}},
      {"channel|conv|CONV|CH2|Tac",
       {SetOf(ConvSetType, "CONV", "P1Chan"), SetOf(ConvSetType, "CONV", "AltPttChan"),
        Sys("T1", "CnvPriChannel"), Opt<CLumoConvScanOpts>("P1Chan")}},
      {"channel|conv|CONV|CH3|Emer",
       {SetOf(ConvSetType, "CONV", "P2Chan"), Opt<CVantorOpts>("Channel")}},
      {"channel|p25conv|P25C|PCH2|Ops2", {Opt<CLumoConvScanOpts>("P2Chan")}},
      {"group|group|GRP|G2|Police",
       {SetOf(GroupSetType, "GRP", "Priority1Grp"), SetOf(GroupSetType, "GRP", "PriorityTalkGrp")}},
      {"group|group|GRP|G3|Alarm",
       {SetOf(GroupSetType, "GRP", "Priority2Grp"), Opt<CVantorOpts>("Group")}},
      {"group|p25group|P25G|PG2|Area2",
       {SetOf(P25GroupSetType, "P25G", "Priority1Grp"), Opt<CPowerUpOpts>("GroupName")}},
      {"group|eagroup|EAG|EG1|Wide1", {SetOf(EaGroupSetType, "EAG", "HomeGrp")}},
      {"system|||C1|",
       {Sys("T1", "ScannedSystems"), Sys("T1", "PriSys"), Sys("T1", "CnvPriSystem"),
        Sys("T1", "CnvPriChannel"), Sys("M1", "ScannedSystems"), Opt<CGenRadioOpts>("HomeSystem"),
        Opt<CVantorOpts>("System"), Opt<CVantorOpts>("Channel"), Opt<CConvScanOpts>("HomeSystem"),
        Opt<CConvScanOpts>("HomeChan"), Opt<CLumoConvScanOpts>("P1System"),
        Opt<CLumoConvScanOpts>("P1Chan")}},
      {"system|||P1|",
       {Sys("T1", "ScannedSystems"), Opt<CPowerUpOpts>("SystemName"),
        Opt<CPowerUpOpts>("GroupName")}},
      {"set|conv|Conv||",
       {Sys("C1", "ConvSetName"), Opt<CGenRadioOpts>("CnvTestSet"), Sys("T1", "CnvPriChannel"),
        Opt<CVantorOpts>("Channel"), Opt<CConvScanOpts>("HomeChan"),
        Opt<CLumoConvScanOpts>("P1Chan")}},
      {"set|p25group|P25G||",
       {Sys("P1", "GroupSetName"), SetOf(P25ConvSetType, "P25C", "P25GroupSet"),
        Opt<CPowerUpOpts>("GroupName")}},
      {"channel|conv|CONV|CH2|",
       {SetOf(ConvSetType, "CONV", "P1Chan"), SetOf(ConvSetType, "CONV", "AltPttChan"),
        Sys("T1", "CnvPriChannel"), Opt<CLumoConvScanOpts>("P1Chan")}},
      {"group|group|GRP|G3|",
       {SetOf(GroupSetType, "GRP", "Priority2Grp"), Opt<CVantorOpts>("Group")}},
  };
}

// Every record at or below rec.
void Below(CObject& rec, std::set<const CObject*>& out) {
  std::map<Key, std::string> values;
  Snapshot(rec, values);
  for (const auto& [key, value] : values) out.insert(key.first);
}

TEST(References, EveryNameFieldFollowsRenamesAndDeletions) {
  for (const Row& row : Rows()) {
    SCOPED_TRACE(row.op);
    auto p = SamplePersonality();
    const auto before = Take(*p);
    CObject* target = row.Target(*p);
    ASSERT_NE(target, nullptr);
    std::set<const CObject*> gone;
    if (!row.Rename()) Below(*target, gone);
    std::set<Key> expected;
    std::vector<std::pair<CObject*, std::string>> sites;
    for (const Site& site : row.sites) {
      CObject* rec = site.record(*p);
      ASSERT_NE(rec, nullptr) << site.field;
      expected.insert({rec, site.field});
      sites.emplace_back(rec, before.at({rec, site.field}));
    }
    if (row.Rename()) expected.insert({target, "Name"});

    const int changed = row.Run(*p);
    EXPECT_EQ(changed, static_cast<int>(row.sites.size()));

    // Exactly the expected fields differ; records of a deleted target are gone.
    const auto after = Take(*p);
    std::set<Key> differing;
    for (const auto& [key, value] : before) {
      if (gone.count(key.first) != 0) continue;
      const auto it = after.find(key);
      if (it == after.end() || it->second != value) differing.insert(key);
    }
    differing.erase({row.Rename() ? nullptr : target, ""});
    // The set that lost an element has one element fewer; the personality one record fewer.
    for (auto it = differing.begin(); it != differing.end();) {
      const bool listCount = it->second == "Elements" || it->second == "Systems" ||
                             it->second.find("Sets") != std::string::npos;
      it = listCount && !row.Rename() ? differing.erase(it) : std::next(it);
    }
    EXPECT_EQ(differing, expected);

    // Each site now holds the new name, or lost the old one.
    for (std::size_t i = 0; i < row.sites.size(); ++i) {
      const std::string now = after.at({sites[i].first, row.sites[i].field});
      if (row.Rename()) {
        EXPECT_THAT(now, test::HasSubstr(row.Part(4))) << row.sites[i].field;
      } else {
        EXPECT_LT(now.size(), sites[i].second.size()) << row.sites[i].field << " = " << now;
      }
    }
  }
}

TEST(References, RefusedOperationsChangeNothing) {
  auto p = SamplePersonality();
  const auto before = Take(*p);
  EXPECT_EQ(RenameSystem(*p, "Nowhere", "X"), -1);
  EXPECT_EQ(RenameSystem(*p, "T1", "C1"), -1);  // taken
  EXPECT_EQ(RenameSystem(*p, "T1", ""), -1);
  EXPECT_EQ(RenameSystem(*p, "t1", "X"), -1);  // system names are exact
  EXPECT_EQ(RenameSet(*p, static_cast<SetType>(11), "GRP", "X"), -1);
  EXPECT_EQ(RenameSet(*p, GroupSetType, "NONE", "X"), -1);
  EXPECT_EQ(RenameSet(*p, GroupSetType, "GRP", ""), -1);  // a set keeps a name
  EXPECT_NE(p->GetSet(CString("GRP"), GroupSetType), nullptr);
  // A rename to the same name is no change at all.
  EXPECT_EQ(RenameSystem(*p, "T1", "T1"), 0);
  EXPECT_EQ(RenameSet(*p, GroupSetType, "GRP", "GRP"), 0);
  EXPECT_EQ(RenameChannel(*p, ConvSetType, "CONV", "CH1", "CH1"), 0);
  EXPECT_EQ(RenameGroup(*p, GroupSetType, "GRP", "G1", "G1"), 0);
  EXPECT_EQ(RenameChannel(*p, ConvSetType, "CONV", "ch1", "X"), -1);  // channel names are exact
  EXPECT_EQ(RenameChannel(*p, ConvSetType, "CONV", "CH1", "CH2"), -1);
  EXPECT_EQ(RenameChannel(*p, GroupSetType, "GRP", "G1", "X"), -1);  // groups are not channels
  EXPECT_EQ(RenameGroup(*p, ConvSetType, "CONV", "CH1", "X"), -1);
  EXPECT_EQ(DeleteChannel(*p, ConvSetType, "NONE", "CH1"), -1);
  EXPECT_EQ(DeleteGroup(*p, GroupSetType, "GRP", "G9"), -1);
  EXPECT_EQ(DeleteSystem(*p, "T1 "), -1);
  EXPECT_EQ(DeleteSet(*p, PhoneSetType, "IC"), -1);  // an icall set, not a phone set
  EXPECT_EQ(Take(*p), before);
}

TEST(References, CaseOnlySetRenameAndScanListDeletion) {
  auto p = SamplePersonality();
  EXPECT_EQ(RenameSet(*p, ConvSetType, "CONV", "Conv"), 2);  // C1 and CnvTestSet
  EXPECT_EQ(GetText(*p->GetSystem("C1"), "ConvSetName"), "Conv");
  EXPECT_EQ(GetText(*p->GetSet("CONV", ConvSetType), "Name"), "Conv");
  // Deleting T1 drops it from both scan lists and empties the option fields that name it and
  // the group named through it, keeping the other entries.
  EXPECT_EQ(DeleteSystem(*p, "T1"), 5);
  EXPECT_EQ(GetText(*p->GetOption<CVantorOpts>(), "Group"), "");
  EXPECT_EQ(GetText(*p->GetSystem("M1"), "ScannedSystems"), "C1");
  EXPECT_EQ(GetText(*p->GetSystem("P1"), "ScannedSystems"), "");
  EXPECT_EQ(p->GetSystem("T1"), nullptr);
  EXPECT_EQ(p->GetNumSystems(), 5);
}

// A list of one class that holds no reference is passed over whole; a list that mixes such
// records with others is read record by record, whatever class comes first.
TEST(References, AMixedListIsReadPastRecordsThatHoldNone) {
  auto p = SamplePersonality();
  auto* icalls = new CICallSet;
  icalls->SetName("Mixed");
  icalls->Add(test::Channel<CConvChannel>("Stray", 810, 855));  // of a class seen to hold none
  auto* call = new CICall;
  test::SetText(*call, "WaNetName", "WAN1");
  icalls->Add(call);
  p->AddSet(icalls, ICallSetType);
  int found = 0;
  for (const NameRef& ref : CollectNameRefs(*p)) {
    found += ref.record == call && ref.field == "WaNetName" && ref.Name() == "WAN1";
  }
  EXPECT_EQ(found, 1);
}

// Record paths: every path the reference collection prints resolves back to its own record and
// field; names that are not unique fall back to positions; quoting keeps odd names typeable;
// paths that name nothing say which segment is wrong.
std::string ErrorOf(CPersonality& p, const std::string& path) {
  return test::Caught<PathError>([&] { ResolvePath(p, path); }).what();
}

TEST(RecordPath, EveryReferencePathResolvesToItsField) {
  auto p = test::SamplePersonality();
  const std::vector<NameRef> refs = CollectNameRefs(*p);
  ASSERT_GT(refs.size(), 40u);
  bool sawElementByName = false, sawEntry = false, sawOption = false;
  for (const NameRef& ref : refs) {
    SCOPED_TRACE(ref.path);
    const PathTarget t = ResolvePath(*p, ref.path);
    EXPECT_EQ(t.Path(), ref.path);
    EXPECT_EQ(t.record, ref.record);
    EXPECT_EQ(t.field, ref.field);
    EXPECT_EQ(t.entry, ref.index);
    sawElementByName |= ref.path == "sets/icall/IC/Desk/WaNetName";
    sawEntry |= t.entry >= 0;
    sawOption |= t.kind == PathTarget::Option;
  }
  EXPECT_TRUE(sawElementByName && sawEntry && sawOption);
}

TEST(RecordPath, LookupsFollowTheRegistryAndCanonicalise) {
  auto p = test::SamplePersonality();
  PathTarget t = ResolvePath(*p, "sets/conv/conv/homechan");  // set names and fields: any case
  EXPECT_EQ(t.Path(), "sets/conv/CONV/HomeChan");
  EXPECT_EQ(t.kind, PathTarget::Set);
  EXPECT_EQ(t.setType, ConvSetType);
  t = ResolvePath(*p, "sets/conv/CONV/#2");
  EXPECT_EQ(t.Path(), "sets/conv/CONV/CH2");
  EXPECT_EQ(t.kind, PathTarget::Element);
  EXPECT_EQ(t.index, 1);
  EXPECT_EQ(t.set, p->GetSet("CONV", ConvSetType));
  t = ResolvePath(*p, "options/CP25tWanOpts/Wans/#1/NetworkName");
  EXPECT_EQ(t.kind, PathTarget::SubRecord);
  EXPECT_EQ(t.Path(), "options/CP25tWanOpts/Wans/#1/NetworkName");
  t = ResolvePath(*p, "Name");
  EXPECT_EQ(t.kind, PathTarget::Header);
  EXPECT_EQ(t.record, p.get());
  EXPECT_EQ(ErrorOf(*p, "systems/t1/Name"), "no system \"t1\" (column 9)");  // systems: exact
  const std::string last = std::to_string(p->GetNumSystems());  // positions count from 1
  EXPECT_EQ(ResolvePath(*p, "systems/#" + last).record, p->GetSystemAt(p->GetNumSystems() - 1));
  const std::string past = std::to_string(p->GetNumSystems() + 1);
  EXPECT_EQ(ErrorOf(*p, "systems/#" + past), "no system \"#" + past + "\" (column 9)");
}

TEST(RecordPath, DuplicateAndOddNamesStayReachable) {
  auto p = test::SamplePersonality();
  auto* conv = static_cast<CConvSet*>(p->GetSet("CONV", ConvSetType));
  test::SetText(*conv->GetAt(2), "Name", "CH1");    // now CH1 twice: positions
  test::SetText(*conv->GetAt(1), "Name", "Scope");  // spelled like a field of the set
  conv->SetName("A/B \"x\"");
  auto* system = p->GetSystem("C1");
  system->SetName("#7 ");
  const std::vector<std::string> segs = ElementSegments(*conv, conv->Elements());
  EXPECT_EQ(segs, (std::vector<std::string>{"#1", "\"Scope\"", "#3"}));
  EXPECT_EQ(SetPath(ConvSetType, *conv), "sets/conv/\"A/B \\\"x\\\"\"");
  EXPECT_EQ(SystemPath(*system), "systems/\"#7 \"");

  EXPECT_EQ(ResolvePath(*p, "sets/conv/\"A/B \\\"x\\\"\"/\"Scope\"/RxFreq").record, conv->GetAt(1));
  EXPECT_EQ(ResolvePath(*p, "sets/conv/\"a/b \\\"X\\\"\"/Scope").Path(),
            "sets/conv/\"A/B \\\"x\\\"\"/Scope");  // the set's own field
  EXPECT_EQ(ResolvePath(*p, "systems/\"#7 \"/Name").record, system);
  EXPECT_EQ(ErrorOf(*p, "sets/conv/\"A/B \\\"x\\\"\"/CH1"),
            "2 records of sets/conv/\"A/B \\\"x\\\"\" are named \"CH1\" (column 23); give the "
            "position: #1, #3");
}

TEST(RecordPath, BadPathsNameTheSegment) {
  auto p = test::SamplePersonality();
  EXPECT_EQ(ErrorOf(*p, ""), "the path is empty");
  EXPECT_EQ(ErrorOf(*p, "sets//CONV"), "empty segment at column 6");
  EXPECT_EQ(ErrorOf(*p, "systems/\"T1"), "the quote at column 9 is not closed");
  EXPECT_EQ(ErrorOf(*p, "systems/\"T1\"x/Name"),
            "a closing quote must end its segment (column 13)");
  EXPECT_EQ(ErrorOf(*p, "sets/chan/CONV"),
            "no set list \"chan\" (column 6); the lists are trunk, conv, group, phone, icall, "
            "spcall, plmgroup, plmspcall, p25conv, p25group, eagroup");
  EXPECT_EQ(ErrorOf(*p, "sets/conv"), "the path ends where a set's name should follow \"conv\"");
  EXPECT_EQ(ErrorOf(*p, "sets/conv/CONV/#9"), "no record \"#9\" (column 16) in sets/conv/CONV");
  EXPECT_EQ(ErrorOf(*p, "systems/T1/Nmae"),
            "no field \"Nmae\" (column 12) in systems/T1 (CTrunkSystem)");
  EXPECT_EQ(ErrorOf(*p, "systems/T1/Name/x"),
            "nothing can follow the field \"Name\" but an entry number (column 17)");
  EXPECT_EQ(ErrorOf(*p, "RadioTypes/3"), "RadioTypes has 0 entries, not 3 (column 12)");
  EXPECT_EQ(ErrorOf(*p, "Systems/#1"),
            "\"Systems\" (column 1) is reached as systems/..., sets/<list>/... or options/...");
  EXPECT_EQ(ErrorOf(*p, "options/CNoSuchOpts"), "no option record \"CNoSuchOpts\" (column 9)");
}

// Element lookups answer the same whether the names were announced (one pass looking for them),
// were not (every name listed), or were too many to look for one by one; a misplaced record
// of another class names nothing.
TEST(ElementNamesTest, AnnouncedOrNotTheAnswersAreTheSetsOwn) {
  auto p = SamplePersonality(/*withMessaging=*/false);
  CSet& conv = *p->GetSet("CONV", ConvSetType);
  const CString ch1("CH1"), ch2("CH2"), ghost("CH9");
  std::vector<CString> many;
  for (int i = 0; i < 12; ++i) many.emplace_back("N" + std::to_string(i));
  const auto answers = [&](ElementNames& names) {
    std::string got;
    for (const CString* n : {&ch1, &ghost, &ch2}) got += names.Has(conv, *n) ? "1" : "0";
    return got;
  };
  ElementNames none;
  EXPECT_EQ(answers(none), "101");
  ElementNames announced;
  announced.Expect(conv, ch1);
  announced.Expect(conv, ghost);
  EXPECT_EQ(answers(announced), "101");  // CH2 was not announced: the set is listed then
  ElementNames crowd;
  for (const CString& n : many) crowd.Expect(conv, n);
  crowd.Expect(conv, ch2);
  EXPECT_EQ(answers(crowd), "101");
  ElementNames one;
  one.Expect(conv, ch2);
  EXPECT_TRUE(one.Has(conv, ch2));
  EXPECT_TRUE(one.Has(conv, ch1));  // asked after the search for CH2 alone
  auto* call = new CICall;          // of no use to a conventional set
  const CString stray("CH7");
  call->SetName(stray);
  conv.Add(call);
  ElementNames searched, listed;
  searched.Expect(conv, stray);
  EXPECT_FALSE(searched.Has(conv, stray));
  EXPECT_FALSE(listed.Has(conv, stray));
}

}  // namespace
}  // namespace persona
