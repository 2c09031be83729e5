// CSirenLights and CSirenLightsOpts: the siren and lights controller and its entries.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// Report words of the coded fields below, indexed by the stored code.
inline constexpr const char* kSirenModeWords[] = {"Toggle", "Momentary"};
inline constexpr const char* kSirenToneWords[] = {"None", "Wail", "Yelp", "Hi-Lo", "Air Horn"};

// CSirenLights: one entry of the siren and lights controller: mode, siren tone, cancel, and nine
// control values. Held by CSirenLightsOpts.
class PERSONA_EXPORT CSirenLights : public CFieldRecord<CSirenLights, CObject> {
  PERSONA_OPTION_RECORD(CSirenLights, CObject)
 public:
  // Neutral defaults.
  CSirenLights() = default;
  // The neutral defaults: no default of this record depends on the model.
  CSirenLights(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CSirenLights(const CSirenLights&) = default;
  CSirenLights& operator=(const CSirenLights&) = default;
  ~CSirenLights() override = default;

  // 0 toggle, 1 momentary.
  BYTE GetMode() const { return m_Mode; }
  void SetMode(BYTE v) { m_Mode = v; }
  // 0 none, 1 wail, 2 yelp, 3 hi-lo, 4 air horn.
  BYTE GetSiren() const { return m_Siren; }
  void SetSiren(BYTE v) { m_Siren = v; }
  // The entry cancels the others.
  BYTE GetCancel() const { return m_Cancel; }
  void SetCancel(BYTE v) { m_Cancel = v; }
  // Number of control values of an entry.
  static constexpr int kNumControls = 9;
  // Control value i (0 .. 8); another i raises CInvalidArgException.
  WORD GetControlAt(int i) const;
  // Sets control value i (0 .. 8); another i raises CInvalidArgException.
  void SetControlAt(int i, WORD value);

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Mode", m_Mode, Label{"Mode"}, WordsOf(kSirenModeWords));
    v("Siren", m_Siren, Label{"Siren"}, WordsOf(kSirenToneWords));
    v("Cancel", m_Cancel, Label{"Cancel"}, OnOff{});
    v("Controls", m_Controls);
  }

 private:
  BYTE m_Mode = 0;
  BYTE m_Siren = 0;
  BYTE m_Cancel = 0;
  WORD m_Controls[9] = {};
};

// CSirenLightsOpts: the siren and lights controller: its entries (CSirenLights, owned) and the
// time-out.
class PERSONA_EXPORT CSirenLightsOpts : public CFieldOption<CSirenLightsOpts> {
  PERSONA_OPTION_RECORD(CSirenLightsOpts, CSerial)
 public:
  // Neutral defaults.
  CSirenLightsOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CSirenLightsOpts(unsigned short radioType, int reducedDefaults);
  // Holds count neutral entries (none when count is not positive); the rest as the default
  // constructor.
  explicit CSirenLightsOpts(int count);
  // Deep copy: every field, owned elements included.
  CSirenLightsOpts(const CSirenLightsOpts&) = default;
  CSirenLightsOpts& operator=(const CSirenLightsOpts&) = default;
  ~CSirenLightsOpts() override = default;

  WORD GetTimeout() const { return m_Timeout; }
  void SetTimeout(WORD v) { m_Timeout = v; }
  // Number of entries.
  int GetNumEntries() const { return m_Entries.GetCount(); }
  // The Entry at i (still owned by this record), or null when i is not a valid position.
  CSirenLights* GetEntryAt(int i) const { return m_Entries.At(i); }
  // Appends e; this record takes ownership.
  void AddEntry(CSirenLights* e) { m_Entries.Add(e); }
  // Inserts e before position i (0 .. count) and takes ownership; returns false for any other
  // i, and e then stays with the caller.
  bool InsertEntryAt(int i, CSirenLights* e) { return m_Entries.InsertBefore(i, e); }
  // Removes the Entry at i and hands it to the caller; null when i is not a valid position.
  CSirenLights* RemoveEntryAt(int i) { return m_Entries.Remove(i); }
  // Deletes the Entry at i; returns false when i is not a valid position.
  bool DeleteEntryAt(int i) { return m_Entries.Erase(i); }
  // Deletes every Entry.
  void DeleteAllEntries() { m_Entries.DeleteAll(); }

  // Appends the "SIREN AND LIGHTS OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Entries", m_Entries);
    v("Timeout", m_Timeout, Label{"Time-out (sec)"});
  }

 private:
  CElementList<CSirenLights> m_Entries{RUNTIME_CLASS(CSirenLights)};
  WORD m_Timeout = 0;
};

}  // namespace persona
