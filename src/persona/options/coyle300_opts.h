// CCoyle300Opts: the option group of one model series.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// CCoyle300Opts: options of one model series: the mobile, portable and second option keys, squelch
// per channel and the local squelch level, hook switch and its polarity.
class PERSONA_EXPORT CCoyle300Opts : public CFieldOption<CCoyle300Opts> {
  PERSONA_OPTION_RECORD(CCoyle300Opts, CSerial)
 public:
  // Neutral defaults.
  CCoyle300Opts() = default;
  // The defaults every model starts from; neither argument changes them.
  CCoyle300Opts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CCoyle300Opts(const CCoyle300Opts&) = default;
  CCoyle300Opts& operator=(const CCoyle300Opts&) = default;
  ~CCoyle300Opts() override = default;

  CString GetMobileKey() const { return m_MobileKey; }
  void SetMobileKey(CString v) { m_MobileKey = std::move(v); }
  CString GetPortableKey() const { return m_PortableKey; }
  void SetPortableKey(CString v) { m_PortableKey = std::move(v); }
  CString GetSecondKey() const { return m_SecondKey; }
  void SetSecondKey(CString v) { m_SecondKey = std::move(v); }
  BYTE GetChanSquelch() const { return m_ChanSquelch; }
  void SetChanSquelch(BYTE v) { m_ChanSquelch = v; }
  WORD GetLocalSquelch() const { return m_LocalSquelch; }
  void SetLocalSquelch(WORD v) { m_LocalSquelch = v; }
  BYTE GetHookSwitch() const { return m_HookSwitch; }
  void SetHookSwitch(BYTE v) { m_HookSwitch = v; }
  BYTE GetHookPolarity() const { return m_HookPolarity; }
  void SetHookPolarity(BYTE v) { m_HookPolarity = v; }

  // Appends the "COYLE 300 SERIES OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("MobileKey", m_MobileKey, Label{"Mobile Option Key"});
    v("PortableKey", m_PortableKey, Label{"Portable Option Key"});
    v("SecondKey", m_SecondKey, Label{"Second Option Key"});
    v("ChanSquelch", m_ChanSquelch, Label{"Squelch Per Channel"}, OnOff{});
    v("LocalSquelch", m_LocalSquelch, Label{"Local Squelch Level"});
    v("HookSwitch", m_HookSwitch, Label{"Hook Switch"}, OnOff{});
    v("HookPolarity", m_HookPolarity, Label{"Hook Switch Polarity"}, WordsOf(kPolarityWords));
  }

 private:
  CString m_MobileKey;
  CString m_PortableKey;
  CString m_SecondKey;
  BYTE m_ChanSquelch = 0;
  WORD m_LocalSquelch = 0;
  BYTE m_HookSwitch = 0;
  BYTE m_HookPolarity = 0;
};

}  // namespace persona
