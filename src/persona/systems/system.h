// CSystem: the base of the six system records (trunked, conventional, messaging, P25
// conventional, extended-addressing trunked, P25 trunked). It holds what every system has: the
// name that is its key within the personality, the system type byte, power, backlight and alert
// switches, the voice-privacy words, the per-model button codes and a security key pair.
// Also the pieces the system classes share: the schema latch and the scanned-system list.
#pragma once

#include <persona/export.h>

#include <cstdint>
#include <string>

#include <persona/core/serial.h>
#include <persona/core/set_types.h>
#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The stored schema of a system being loaded, read from the archive once per object: the most
// derived Serialize asks first and every level of the same object then sees that value. A copy
// starts unlatched and an assignment leaves the target's latch as it was.
class PERSONA_EXPORT SchemaLatch {
 public:
  SchemaLatch() = default;
  SchemaLatch(const SchemaLatch&) {}
  SchemaLatch& operator=(const SchemaLatch&) { return *this; }

  // Loading: returns the stored schema (255 when the archive has none), reading it from ar the
  // first time only. Storing: returns the latched value, which the store ignores.
  BYTE Get(CArchive& ar) {
    if (ar.IsLoading() && m_known == 0) {
      m_schema = ReadSchemaByte(ar);
      m_known = 1;
    }
    return m_schema;
  }

 private:
  BYTE m_known = 0;
  BYTE m_schema = 0;
};

// The operations on a list of scanned-system names that trunked and messaging systems share.
namespace scan_list {
// Empties out and copies every name of list into it.
PERSONA_EXPORT void CopyTo(const CStringArray& list, CStringArray& out);
// The name at i (a copy); i outside the list raises CInvalidArgException.
PERSONA_EXPORT CString At(const CStringArray& list, int i);
// Stores name at i, growing the list to i + 1 entries first when needed; a negative i raises
// CInvalidArgException.
PERSONA_EXPORT void SetAt(CStringArray& list, const CString& name, int i);
// Removes the entry at i; i outside the list raises CInvalidArgException.
PERSONA_EXPORT void DeleteAt(CStringArray& list, int i);
}  // namespace scan_list

// The report label of a system kind ("Korvex", "Conventional", ...), or "Unknown (<n>)" for a
// type byte that is no kind.
PERSONA_EXPORT std::string SystemKindLabel(unsigned type);

class PERSONA_EXPORT CSystem : public CSerial {
  DECLARE_SERIAL(CSystem)
 public:
  // Plain defaults: no name, type 0, power level 0xFFFF (not set), backlight and alert tones on,
  // voice-privacy words 0, first-key codes 0xB6, second-key codes 0xB7, no key.
  CSystem();
  // As the default, except that with reducedDefaults non-zero the radio types 68, 69, 70, 80,
  // 88 to 90, 92, 94 to 97 and 101 to 106 start with power level, alert tones and backlight at 0,
  // and radio type 54 with alert tones and backlight at 0.
  CSystem(unsigned short radioType, int reducedDefaults);
  // Copies every field except the schema latch.
  CSystem(const CSystem& src) = default;
  // Copies every field except the schema latch; returns this system.
  CSystem& operator=(const CSystem& src) = default;
  ~CSystem() override = default;

  CString GetName() const { return m_Name; }
  const CString& Name() const { return m_Name; }
  void SetName(CString name);
  SystemType GetSysType() const { return static_cast<SystemType>(m_SysType); }
  void SetSysType(SystemType type) { m_SysType = static_cast<BYTE>(type); }
  WORD GetPowerLevel() const { return m_PowerLevel; }
  void SetPowerLevel(WORD v) { m_PowerLevel = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }
  BYTE GetAlertTones() const { return m_AlertTones; }
  void SetAlertTones(BYTE v) { m_AlertTones = v; }
  WORD GetKwKey() const { return m_KwKey; }
  void SetKwKey(WORD v) { m_KwKey = v; }
  WORD GetKwMode() const { return m_KwMode; }
  void SetKwMode(WORD v) { m_KwMode = v; }
  WORD GetKwBank() const { return m_KwBank; }
  void SetKwBank(WORD v) { m_KwBank = v; }
  BYTE GetZemo1Button() const { return m_Zemo1Button; }
  void SetZemo1Button(BYTE v) { m_Zemo1Button = v; }
  BYTE GetZemo2Button() const { return m_Zemo2Button; }
  void SetZemo2Button(BYTE v) { m_Zemo2Button = v; }
  BYTE GetVeltroButton() const { return m_VeltroButton; }
  void SetVeltroButton(BYTE v) { m_VeltroButton = v; }
  BYTE GetZemo2Button2() const { return m_Zemo2Button2; }
  void SetZemo2Button2(BYTE v) { m_Zemo2Button2 = v; }
  BYTE GetVeltroButton2() const { return m_VeltroButton2; }
  void SetVeltroButton2(BYTE v) { m_VeltroButton2 = v; }
  BYTE GetQuenbyButton() const { return m_QuenbyButton; }
  void SetQuenbyButton(BYTE v) { m_QuenbyButton = v; }
  BYTE GetQuenbyButton2() const { return m_QuenbyButton2; }
  void SetQuenbyButton2(BYTE v) { m_QuenbyButton2 = v; }

  // The system's security key (number and name). Trunked systems answer with a pair of their
  // own; the base pair stays reachable there through CSystem:: qualification.
  virtual WORD GetESK() const { return m_ESK; }
  virtual void SetESK(WORD esk) { m_ESK = esk; }
  virtual CString GetEskName() const { return m_EskName; }
  virtual void SetEskName(CString name) { m_EskName = std::move(name); }

  // Name, type, power level, backlight, alert tones, the voice-privacy words, the button codes
  // and (schema 12 on) the base key pair. Subclasses call this first, then add their fields.
  void Serialize(CArchive& ar) override;

  // A counter that grows whenever the name of any system may have changed (rename, assignment,
  // load, field import); lets indexes of system names know when to rebuild.
  static std::uint64_t NameEpoch();

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("SysType", m_SysType);
    v("PowerLevel", m_PowerLevel);
    v("Backlight", m_Backlight);
    v("AlertTones", m_AlertTones);
    v("KwKey", m_KwKey);
    v("KwMode", m_KwMode);
    v("KwBank", m_KwBank);
    v("Zemo1Button", m_Zemo1Button, Hex{});
    v("Zemo2Button", m_Zemo2Button, Hex{});
    v("VeltroButton", m_VeltroButton, Hex{});
    v("Zemo2Button2", m_Zemo2Button2, Hex{});
    v("VeltroButton2", m_VeltroButton2, Hex{});
    v("QuenbyButton", m_QuenbyButton, Hex{});
    v("QuenbyButton2", m_QuenbyButton2, Hex{});
    v("ESK", m_ESK, Since{12});
    v("EskName", m_EskName, Since{12});
  }
  // Hands the fields to v; a visitor may write the name, so the name epoch moves on.
  void VisitFields(CFieldVisitor& v) override;

 protected:
  // The stored schema of this object while it is loaded (see SchemaLatch). Every level's
  // Serialize calls it before anything else.
  BYTE LatchSchema(CArchive& ar) { return m_latch.Get(ar); }
  static void BumpNameEpoch();

 private:
  // Copying or assigning a system may change a name held in a list: the copy operations of
  // this member move the name epoch on.
  struct NameTouch {
    NameTouch() = default;
    NameTouch(const NameTouch&) { BumpNameEpoch(); }
    NameTouch& operator=(const NameTouch&) {
      BumpNameEpoch();
      return *this;
    }
  };

  SchemaLatch m_latch;
  CString m_Name;
  NameTouch m_nameTouch;
  BYTE m_SysType = 0;
  WORD m_PowerLevel = 0xFFFF;
  BYTE m_Backlight = 1;
  BYTE m_AlertTones = 1;
  WORD m_KwKey = 0;
  WORD m_KwMode = 0;
  WORD m_KwBank = 0;
  BYTE m_Zemo1Button = 0xB6;
  BYTE m_Zemo2Button = 0xB6;
  BYTE m_VeltroButton = 0xB6;
  BYTE m_Zemo2Button2 = 0xB7;
  BYTE m_VeltroButton2 = 0xB7;
  BYTE m_QuenbyButton = 0xB6;
  BYTE m_QuenbyButton2 = 0xB7;
  WORD m_ESK = 0;
  CString m_EskName;
};

// True for the radio types whose systems (with reduced defaults) and whose key lists follow the
// later model family: 68, 69, 70, 80, 88, 89, 90, 92, 94 to 97 and 101 to 106.
PERSONA_EXPORT bool IsKeyedRadioType(unsigned short radioType);

}  // namespace persona
