// Rename and delete propagation, table-driven over every field that names something: each row
// changes one target and lists the fields that name it; afterwards exactly those fields (and
// the target itself) differ from before, each holding the new name or emptied.
#include <persona/integrity/references.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <sstream>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/vantor_opts.h>
#include <persona/systems/system.h>
#include "integrity/sample_personality.h"

namespace persona {
namespace {

using test::GetText;
using test::SamplePersonality;

// Every described field of every record below the personality, keyed by record and field.
using Key = std::pair<const CObject*, std::string>;
class Snapshot : public CFieldVisitor {
 public:
  std::map<Key, std::string> values;

  void Take(CObject& rec) {
    const CObject* saved = m_rec;
    m_rec = &rec;
    rec.VisitFields(*this);
    m_rec = saved;
  }
  template <class T>
  void Put(const FieldInfo& f, const T& v) {
    std::ostringstream s;
    s << v;
    values[{m_rec, f.name}] = s.str();
  }
  void Field(const FieldInfo& f, bool& v) override { Put(f, v); }
  void Field(const FieldInfo& f, BYTE& v) override { Put(f, int{v}); }
  void Field(const FieldInfo& f, WORD& v) override { Put(f, v); }
  void Field(const FieldInfo& f, short& v) override { Put(f, v); }
  void Field(const FieldInfo& f, DWORD& v) override { Put(f, v); }
  void Field(const FieldInfo& f, LONG& v) override { Put(f, v); }
  void Field(const FieldInfo& f, double& v) override { Put(f, v); }
  void Field(const FieldInfo& f, CString& v) override { Put(f, v.str()); }
  void Field(const FieldInfo& f, CStringArray& v) override {
    std::string joined;
    for (const CString& s : v) joined += (joined.empty() ? "" : ",") + s.str();
    Put(f, joined);
  }
  void Field(const FieldInfo& f, CWordArray& v) override { Put(f, v.GetSize()); }
  void Field(const FieldInfo& f, WORD* v, std::size_t n) override {
    std::string all;
    for (std::size_t i = 0; i < n; ++i) all += std::to_string(v[i]) + " ";
    Put(f, all);
  }
  void Field(const FieldInfo& f, COwnedObList& v) override {
    Put(f, v.GetCount());
    for (CObject* child : v) {
      if (child != nullptr) Take(*child);
    }
  }
  void Field(const FieldInfo& f, CObList& v) override { Put(f, v.GetCount()); }

 private:
  const CObject* m_rec = nullptr;
};

std::map<Key, std::string> Take(CPersonality& p) {
  Snapshot s;
  s.Take(p);
  return s.values;
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

struct Row {
  const char* what;
  // Runs the operation; returns its result. target: the record whose own name changes or that
  // is deleted (with everything below it).
  std::function<int(CPersonality&)> op;
  std::function<CObject*(CPersonality&)> target;
  bool rename;
  const char* newName;
  std::vector<Site> sites;  // every field that names the target
};

CObject* ElementOf(CPersonality& p, SetType type, const char* set, int i) {
  return p.GetSet(set, type)->GetAt(i);
}

std::vector<Row> Rows() {
  const auto sys = [](const char* n) {
    return [n](CPersonality& p) -> CObject* { return p.GetSystem(n); };
  };
  const auto set = [](SetType t, const char* n) {
    return [t, n](CPersonality& p) -> CObject* { return p.GetSet(n, t); };
  };
  const auto elem = [](SetType t, const char* s, int i) {
    return [t, s, i](CPersonality& p) -> CObject* { return ElementOf(p, t, s, i); };
  };
  return {
      {"rename system C1",
       [](CPersonality& p) { return RenameSystem(p, "C1", "Base"); },
       sys("C1"),
       true,
       "Base",
       {Sys("T1", "ScannedSystems"), Sys("T1", "PriSys"), Sys("T1", "CnvPriSystem"),
        Sys("M1", "ScannedSystems"), Opt<CGenRadioOpts>("HomeSystem"), Opt<CVantorOpts>("System"),
        Opt<CConvScanOpts>("HomeSystem"), Opt<CLumoConvScanOpts>("P1System")}},
      {"rename system T1",
       [](CPersonality& p) { return RenameSystem(p, "T1", "Trunk 1"); },
       sys("T1"),
       true,
       "Trunk 1",
       {Sys("P1", "ScannedSystems"), Sys("M1", "ScannedSystems"),
        Opt<CGenRadioOpts>("TestUnitSystem"), Opt<CVantorOpts>("TrkSystem")}},
      {"rename system PC",
       [](CPersonality& p) { return RenameSystem(p, "PC", "PConv"); },
       sys("PC"),
       true,
       "PConv",
       {Opt<CLumoConvScanOpts>("P2System")}},
      {"rename system P1",
       [](CPersonality& p) { return RenameSystem(p, "P1", "P25"); },
       sys("P1"),
       true,
       "P25",
       {Sys("T1", "ScannedSystems"), Opt<CPowerUpOpts>("SystemName")}},
      {"rename trunk set",
       [](CPersonality& p) { return RenameSet(p, TrunkSetType, "Trk", "Main"); },
       set(TrunkSetType, "TRK"),
       true,
       "Main",
       {Sys("T1", "TrunkSetName"), Sys("P1", "TrunkSetName"), Sys("E1", "TrunkSetName"),
        Sys("M1", "TrunkSetName")}},
      {"rename group set",
       [](CPersonality& p) { return RenameSet(p, GroupSetType, "GRP", "Talk"); },
       set(GroupSetType, "GRP"),
       true,
       "Talk",
       {Sys("T1", "GroupSetName")}},
      {"rename P25 group set",
       [](CPersonality& p) { return RenameSet(p, P25GroupSetType, "P25G", "Area"); },
       set(P25GroupSetType, "P25G"),
       true,
       "Area",
       {Sys("P1", "GroupSetName"), SetOf(P25ConvSetType, "P25C", "P25GroupSet")}},
      {"rename EA group set",
       [](CPersonality& p) { return RenameSet(p, EaGroupSetType, "EAG", "Wide"); },
       set(EaGroupSetType, "EAG"),
       true,
       "Wide",
       {Sys("E1", "GroupSetName")}},
      {"rename conv set",
       [](CPersonality& p) { return RenameSet(p, ConvSetType, "CONV", "Fire"); },
       set(ConvSetType, "CONV"),
       true,
       "Fire",
       {Sys("C1", "ConvSetName"), Opt<CGenRadioOpts>("CnvTestSet")}},
      {"rename P25 conv set",
       [](CPersonality& p) { return RenameSet(p, P25ConvSetType, "P25C", "Ops"); },
       set(P25ConvSetType, "P25C"),
       true,
       "Ops",
       {Sys("PC", "P25ConvSetName")}},
      {"rename phone set",
       [](CPersonality& p) { return RenameSet(p, PhoneSetType, "PH", "City"); },
       set(PhoneSetType, "PH"),
       true,
       "City",
       {Sys("T1", "PhoneSetName"), Sys("C1", "PhoneSetName"), Sys("P1", "PhoneSetName")}},
      {"rename icall set",
       [](CPersonality& p) { return RenameSet(p, ICallSetType, "IC", "Units"); },
       set(ICallSetType, "IC"),
       true,
       "Units",
       {Sys("T1", "iCallSetName"), Sys("P1", "iCallSetName"), Sys("PC", "IcallSetName")}},
      {"rename spcall set",
       [](CPersonality& p) { return RenameSet(p, SpCallSetType, "SP", "Sp2"); },
       set(SpCallSetType, "SP"),
       true,
       "Sp2",
       {Sys("T1", "SpCallSetName")}},
      {"rename plm group set",
       [](CPersonality& p) { return RenameSet(p, PlmGroupSetType, "PLMG", "Msg"); },
       set(PlmGroupSetType, "PLMG"),
       true,
       "Msg",
       {Sys("M1", "GroupSetName")}},
      {"rename plm spcall set",
       [](CPersonality& p) { return RenameSet(p, PlmSpCallSetType, "PLMSP", "MsgSp"); },
       set(PlmSpCallSetType, "PLMSP"),
       true,
       "MsgSp",
       {Sys("M1", "SpCallSetName")}},
      {"rename channel CH1",
       [](CPersonality& p) { return RenameChannel(p, ConvSetType, "conv", "CH1", "Dispatch"); },
       elem(ConvSetType, "CONV", 0),
       true,
       "Dispatch",
       {SetOf(ConvSetType, "CONV", "HomeChan"), SetOf(ConvSetType, "CONV", "WideScanChan"),
        Opt<CConvScanOpts>("HomeChan")}},
      {"rename channel CH2",
       [](CPersonality& p) { return RenameChannel(p, ConvSetType, "CONV", "CH2", "Tac"); },
       elem(ConvSetType, "CONV", 1),
       true,
       "Tac",
       {SetOf(ConvSetType, "CONV", "P1Chan"), SetOf(ConvSetType, "CONV", "AltPttChan"),
        Sys("T1", "CnvPriChannel"), Opt<CLumoConvScanOpts>("P1Chan")}},
      {"rename channel CH3",
       [](CPersonality& p) { return RenameChannel(p, ConvSetType, "CONV", "CH3", "Emer"); },
       elem(ConvSetType, "CONV", 2),
       true,
       "Emer",
       {SetOf(ConvSetType, "CONV", "P2Chan"), Opt<CVantorOpts>("Channel")}},
      {"rename P25 channel",
       [](CPersonality& p) { return RenameChannel(p, P25ConvSetType, "P25C", "PCH2", "Ops2"); },
       elem(P25ConvSetType, "P25C", 1),
       true,
       "Ops2",
       {Opt<CLumoConvScanOpts>("P2Chan")}},
      {"rename group G2",
       [](CPersonality& p) { return RenameGroup(p, GroupSetType, "GRP", "G2", "Police"); },
       elem(GroupSetType, "GRP", 1),
       true,
       "Police",
       {SetOf(GroupSetType, "GRP", "Priority1Grp"), SetOf(GroupSetType, "GRP", "PriorityTalkGrp")}},
      {"rename group G3",
       [](CPersonality& p) { return RenameGroup(p, GroupSetType, "GRP", "G3", "Alarm"); },
       elem(GroupSetType, "GRP", 2),
       true,
       "Alarm",
       {SetOf(GroupSetType, "GRP", "Priority2Grp"), Opt<CVantorOpts>("Group")}},
      {"rename P25 group",
       [](CPersonality& p) { return RenameGroup(p, P25GroupSetType, "P25G", "PG2", "Area2"); },
       elem(P25GroupSetType, "P25G", 1),
       true,
       "Area2",
       {SetOf(P25GroupSetType, "P25G", "Priority1Grp"), Opt<CPowerUpOpts>("GroupName")}},
      {"rename EA group",
       [](CPersonality& p) { return RenameGroup(p, EaGroupSetType, "EAG", "EG1", "Wide1"); },
       elem(EaGroupSetType, "EAG", 0),
       true,
       "Wide1",
       {SetOf(EaGroupSetType, "EAG", "HomeGrp")}},
      // Deletions.
      {"delete system C1",
       [](CPersonality& p) { return DeleteSystem(p, "C1"); },
       sys("C1"),
       false,
       "",
       {Sys("T1", "ScannedSystems"), Sys("T1", "PriSys"), Sys("T1", "CnvPriSystem"),
        Sys("T1", "CnvPriChannel"), Sys("M1", "ScannedSystems"), Opt<CGenRadioOpts>("HomeSystem"),
        Opt<CVantorOpts>("System"), Opt<CVantorOpts>("Channel"), Opt<CConvScanOpts>("HomeSystem"),
        Opt<CConvScanOpts>("HomeChan"), Opt<CLumoConvScanOpts>("P1System"),
        Opt<CLumoConvScanOpts>("P1Chan")}},
      {"delete system P1",
       [](CPersonality& p) { return DeleteSystem(p, "P1"); },
       sys("P1"),
       false,
       "",
       {Sys("T1", "ScannedSystems"), Opt<CPowerUpOpts>("SystemName"),
        Opt<CPowerUpOpts>("GroupName")}},
      {"delete conv set",
       [](CPersonality& p) { return DeleteSet(p, ConvSetType, "Conv"); },
       set(ConvSetType, "CONV"),
       false,
       "",
       {Sys("C1", "ConvSetName"), Opt<CGenRadioOpts>("CnvTestSet"), Sys("T1", "CnvPriChannel"),
        Opt<CVantorOpts>("Channel"), Opt<CConvScanOpts>("HomeChan"),
        Opt<CLumoConvScanOpts>("P1Chan")}},
      {"delete P25 group set",
       [](CPersonality& p) { return DeleteSet(p, P25GroupSetType, "P25G"); },
       set(P25GroupSetType, "P25G"),
       false,
       "",
       {Sys("P1", "GroupSetName"), SetOf(P25ConvSetType, "P25C", "P25GroupSet"),
        Opt<CPowerUpOpts>("GroupName")}},
      {"delete channel CH2",
       [](CPersonality& p) { return DeleteChannel(p, ConvSetType, "CONV", "CH2"); },
       elem(ConvSetType, "CONV", 1),
       false,
       "",
       {SetOf(ConvSetType, "CONV", "P1Chan"), SetOf(ConvSetType, "CONV", "AltPttChan"),
        Sys("T1", "CnvPriChannel"), Opt<CLumoConvScanOpts>("P1Chan")}},
      {"delete group G3",
       [](CPersonality& p) { return DeleteGroup(p, GroupSetType, "GRP", "G3"); },
       elem(GroupSetType, "GRP", 2),
       false,
       "",
       {SetOf(GroupSetType, "GRP", "Priority2Grp"), Opt<CVantorOpts>("Group")}},
  };
}

// Every record at or below rec.
void Below(CObject& rec, std::set<const CObject*>& out) {
  Snapshot s;
  s.Take(rec);
  for (const auto& [key, value] : s.values) out.insert(key.first);
}

TEST(References, EveryNameFieldFollowsRenamesAndDeletions) {
  for (const Row& row : Rows()) {
    SCOPED_TRACE(row.what);
    auto p = SamplePersonality();
    const auto before = Take(*p);
    CObject* target = row.target(*p);
    ASSERT_NE(target, nullptr);
    std::set<const CObject*> gone;
    if (!row.rename) Below(*target, gone);
    std::set<Key> expected;
    std::vector<std::pair<CObject*, std::string>> sites;
    for (const Site& site : row.sites) {
      CObject* rec = site.record(*p);
      ASSERT_NE(rec, nullptr) << site.field;
      expected.insert({rec, site.field});
      sites.emplace_back(rec, before.at({rec, site.field}));
    }
    if (row.rename) expected.insert({target, "Name"});

    const int changed = row.op(*p);
    EXPECT_EQ(changed, static_cast<int>(row.sites.size()));

    // Exactly the expected fields differ; records of a deleted target are gone.
    const auto after = Take(*p);
    std::set<Key> differing;
    for (const auto& [key, value] : before) {
      if (gone.count(key.first) != 0) continue;
      const auto it = after.find(key);
      if (it == after.end() || it->second != value) differing.insert(key);
    }
    differing.erase({row.rename ? nullptr : target, ""});
    // The set that lost an element has one element fewer; the personality one record fewer.
    for (auto it = differing.begin(); it != differing.end();) {
      const bool listCount = it->second == "Elements" || it->second == "Systems" ||
                             it->second.find("Sets") != std::string::npos;
      it = listCount && !row.rename ? differing.erase(it) : std::next(it);
    }
    EXPECT_EQ(differing, expected);

    // Each site now holds the new name, or lost the old one.
    for (std::size_t i = 0; i < row.sites.size(); ++i) {
      const std::string now = after.at({sites[i].first, row.sites[i].field});
      if (row.rename) {
        EXPECT_NE(now.find(row.newName), std::string::npos) << row.sites[i].field << " = " << now;
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
  // A rename to the same name is no change at all.
  EXPECT_EQ(RenameSystem(*p, "T1", "T1"), 0);
  EXPECT_EQ(RenameSet(*p, GroupSetType, "GRP", "GRP"), 0);
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

}  // namespace
}  // namespace persona
