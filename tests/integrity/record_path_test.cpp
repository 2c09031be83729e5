// Record paths: every path the reference collection prints resolves back to its own record and
// field; names that are not unique fall back to positions; quoting keeps odd names typeable;
// paths that name nothing say which segment is wrong.
#include <persona/integrity/record_path.h>

#include <gtest/gtest.h>

#include <persona/conventional/conv_set.h>
#include <persona/integrity/name_refs.h>
#include <persona/systems/system.h>
#include "integrity/sample_personality.h"

namespace persona {
namespace {

std::string ErrorOf(CPersonality& p, const std::string& path) {
  try {
    ResolvePath(p, path);
  } catch (const PathError& e) {
    return e.what();
  }
  return "resolved";
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

}  // namespace
}  // namespace persona
