// Systems stored with older schemas, from hand-built bytes: the fields a schema lacks keep their
// constructor defaults and the stream continues right after the object.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include <persona/framework/archive.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>

namespace persona {
namespace {

constexpr WORD kSentinel = 0xBEEF;

// Writes the bytes of one stored object by hand.
class StoredObject {
 public:
  StoredObject(const char* className, WORD schema) : m_schema(schema) {
    const WORD length = static_cast<WORD>(std::strlen(className));
    m_ar << WORD{0xFFFF} << schema << length;
    m_ar.Write(className, length);
  }
  template <class T>
  StoredObject& operator<<(T v) {
    m_ar << v;
    return *this;
  }
  // The CSystem part as the stored schema has it.
  StoredObject& Base(const char* name, BYTE type) {
    *this << CString(name) << type << WORD{3} << BYTE{0} << BYTE{0};
    *this << WORD{11} << WORD{12} << WORD{13};
    for (BYTE b = 0xC0; b < 0xC7; ++b) *this << b;
    if (m_schema >= 12 && m_schema != 255) *this << WORD{44} << CString("BaseKey");
    return *this;
  }
  // The CTrunkSystem part up to the conventional priority transmit switch.
  StoredObject& TrunkHead() {
    *this << WORD{1} << CString("SCAN1");
    *this << BYTE{0} << BYTE{0} << BYTE{0} << WORD{21} << WORD{22} << WORD{23};
    for (const char* set : {"TRS", "GRS", "PHS", "ICS", "SPS"}) *this << CString(set);
    *this << CString("PRI") << BYTE{1} << BYTE{2} << CString("CNVSYS") << CString("CNVCH")
          << BYTE{1};
    return *this;
  }
  std::vector<BYTE> Finish() {
    m_ar << kSentinel;
    return m_ar.TakeStoredBytes();
  }

 private:
  CArchive m_ar{nullptr, CArchive::store};
  WORD m_schema;
};

// Loads the object at the start of bytes and checks that the sentinel follows it directly.
template <class T>
std::unique_ptr<T> LoadThenSentinel(const std::vector<BYTE>& bytes) {
  CArchive ar(bytes.data(), bytes.size(), "hand-built");
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(T::GetThisClass());
  WORD sentinel = 0;
  ar >> sentinel;
  EXPECT_EQ(sentinel, kSentinel) << "the stream did not continue right after the object";
  EXPECT_EQ(ar.GetRemaining(), 0u);
  return std::unique_ptr<T>(static_cast<T*>(obj.release()));
}

TEST(SystemOldSchemas, TrunkedSchemaOneHasNoKeyNoHostNoDataLid) {
  StoredObject bytes("CTrunkSystem", 1);
  bytes.Base("NORTH", 0).TrunkHead();
  auto sys = LoadThenSentinel<CTrunkSystem>(bytes.Finish());
  EXPECT_EQ(sys->GetName(), "NORTH");
  EXPECT_EQ(sys->GetPowerLevel(), 3);
  EXPECT_EQ(sys->GetQuenbyButton2(), 0xC6);
  ASSERT_EQ(sys->GetNumScannedSystems(), 1);
  EXPECT_EQ(sys->GetScannedSystemAt(0), "SCAN1");
  EXPECT_EQ(sys->GetSite(), 23);
  EXPECT_EQ(sys->GetSpCallSetName(), "SPS");
  EXPECT_EQ(sys->GetCnvPriChannel(), "CNVCH");
  EXPECT_EQ(sys->GetCnvPriTx(), 1);
  EXPECT_EQ(sys->GetESK(), 0);
  EXPECT_EQ(sys->GetEskName(), "");
  EXPECT_EQ(sys->CSystem::GetESK(), 0);
  EXPECT_EQ(sys->GetVeskaHostUdpPortNum(), 1027);
  EXPECT_EQ(sys->GetDataLid(), 1);
}

TEST(SystemOldSchemas, MessagingSchemaOneHasNoScanListAndSchemaTwoHasOne) {
  for (WORD schema : {1, 2}) {
    StoredObject bytes("CPlmSystem", schema);
    bytes.Base("PELLAM", 2);
    for (BYTE b = 1; b <= 8; ++b) bytes << b;
    bytes << WORD{30} << WORD{40};
    for (WORD w = 1; w <= 8; ++w) bytes << w;
    bytes << CString("T") << CString("G") << CString("S");
    if (schema >= 2) bytes << WORD{2} << CString("A") << CString("B");
    auto sys = LoadThenSentinel<CPlmSystem>(bytes.Finish());
    EXPECT_EQ(sys->GetDblDiscnct(), 8);
    EXPECT_EQ(sys->GetBusyToneLen(), 40);
    EXPECT_EQ(sys->GetSpCallTone(1), 3);  // interleaved: 1,2 / 3,4 / ...
    EXPECT_EQ(sys->GetIndvDecTone(1), 4);
    EXPECT_EQ(sys->GetSpCallSetName(), "S");
    EXPECT_EQ(sys->GetNumScannedSystems(), schema >= 2 ? 2 : 0);
  }
}

TEST(SystemOldSchemas, P25ConventionalFieldsArriveWithSchemasFiveSevenAndEight) {
  struct Case {
    WORD schema;
    BYTE encrypt;
    DWORD keyId;
    LONG displayGroup;
    BYTE cgSel;
  };
  for (const Case& c : {Case{4, 0, 0, 1, 0}, Case{5, 2, 77, 1, 0}, Case{7, 2, 77, -3, 0},
                        Case{8, 2, 77, -3, 9}, Case{255, 0, 0, 1, 0}}) {
    StoredObject bytes("CP25ConvSystem", c.schema);
    bytes.Base("P25C", 3) << BYTE{1} << DWORD{123456} << CString("PCV") << CString("ICS");
    if (c.schema >= 5 && c.schema != 255) bytes << BYTE{2} << DWORD{77};
    if (c.schema >= 7 && c.schema != 255) bytes << LONG{-3};
    if (c.schema >= 8 && c.schema != 255) bytes << BYTE{9};
    auto sys = LoadThenSentinel<CP25ConvSystem>(bytes.Finish());
    EXPECT_EQ(sys->GetUnit(), 123456u) << c.schema;
    EXPECT_EQ(sys->GetIcallSetName(), "ICS") << c.schema;
    EXPECT_EQ(sys->GetEncryptType(), c.encrypt) << c.schema;
    EXPECT_EQ(sys->GetKeyId(), c.keyId) << c.schema;
    EXPECT_EQ(sys->GetDisplayGroup(), c.displayGroup) << c.schema;
    EXPECT_EQ(sys->GetCgSel(), c.cgSel) << c.schema;
  }
}

TEST(SystemOldSchemas, P25TrunkedSchemaElevenSkipsBaseKeyAndDataLids) {
  StoredObject bytes("CP25TrkSystem", 11);
  bytes.Base("P25T", 5).TrunkHead();
  bytes << WORD{5} << CString("TrunkKey");                 // schema 3
  bytes << DWORD{900} << WORD{5000} << DWORD{0x0A000001};  // schema 8
  bytes << CString("WAN") << WORD{0x293} << DWORD{1} << WORD{2} << DWORD{3};
  bytes << BYTE{4} << LONG{1} << LONG{2} << BYTE{5} << BYTE{0x84};
  for (WORD w = 10; w <= 14; ++w) bytes << w;
  bytes << BYTE{6} << WORD{15} << short{-16} << WORD{17} << DWORD{851000000};
  bytes << CString("HOME") << DWORD{4242};
  bytes << WORD{0x1A} << WORD{0x2B} << BYTE{1};  // schemas 10 and 11
  auto sys = LoadThenSentinel<CP25TrkSystem>(bytes.Finish());
  EXPECT_EQ(sys->CSystem::GetESK(), 0);
  EXPECT_EQ(sys->CSystem::GetEskName(), "");
  EXPECT_EQ(sys->GetESK(), 5);
  EXPECT_EQ(sys->GetEskName(), "TrunkKey");
  EXPECT_EQ(sys->GetVeskaHostIpAddr(), 0x0A000001u);
  EXPECT_EQ(sys->GetDataLid(), 1);
  EXPECT_EQ(sys->GetSystemNac(), 0x293);
  EXPECT_EQ(sys->GetAlgorithmId(), 0x84);
  EXPECT_EQ(sys->GetAllCallKeyId(), 14);
  EXPECT_EQ(sys->GetDefaultTxOffset(), -16);
  EXPECT_EQ(sys->GetHomeWanName(), "HOME");
  EXPECT_EQ(sys->GetHomeUnitId(), 4242u);
  EXPECT_EQ(sys->GetSiteId(), 0x2B);
  EXPECT_EQ(sys->GetCcTxReq(), 1);
  EXPECT_EQ(sys->GetFneDataLid(), 0xFFFFFDu);
}

TEST(SystemOldSchemas, ConventionalSchemaTwelveReadsBaseKeyOnce) {
  // Every level tests the schema read once by the most derived class: a second request would
  // answer "no schema" and the base key pair would be missed.
  StoredObject bytes("CConvSystem", 12);
  bytes.Base("CONV", 1);
  for (BYTE b = 1; b <= 6; ++b) bytes << b;
  bytes << WORD{7} << CString("CVS") << CString("PHS") << BYTE{8} << BYTE{9};
  auto sys = LoadThenSentinel<CConvSystem>(bytes.Finish());
  EXPECT_EQ(sys->GetESK(), 44);
  EXPECT_EQ(sys->GetEskName(), "BaseKey");
  EXPECT_EQ(sys->GetToneSeq(), 8);
  EXPECT_EQ(sys->GetCgSel(), 9);
}

}  // namespace
}  // namespace persona
