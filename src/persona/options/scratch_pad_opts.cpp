// CScratchPadOpts: entry lists, archive form and report block.
#include <persona/options/scratch_pad_opts.h>

#include <cstdlib>

namespace persona {

IMPLEMENT_SERIAL(CScratchPadOpts, CSerial, 1)

namespace {

bool ValidIndex(const CStringArray& list, int i) { return i >= 0 && i < list.GetSize(); }

CString LidText(DWORD lid) { return CString::Formatted("%u", static_cast<unsigned>(lid)); }

}  // namespace

CScratchPadOpts::CScratchPadOpts(unsigned short radioType, int) : CScratchPadOpts() {
  if (IsRadioTypeSetA(radioType)) m_NumScratchPad = 16;
}

DWORD CScratchPadOpts::GetLidAt(int i) const {
  if (!ValidIndex(m_Lids, i)) return 0;
  return static_cast<DWORD>(std::strtoul(m_Lids.GetAt(i).c_str(), nullptr, 10));
}

void CScratchPadOpts::AddLid(DWORD lid) { m_Lids.Add(LidText(lid)); }

bool CScratchPadOpts::SetLidAt(int i, DWORD lid) {
  if (!ValidIndex(m_Lids, i)) return false;
  m_Lids.SetAt(i, LidText(lid));
  return true;
}

bool CScratchPadOpts::RemoveLidAt(int i) {
  if (!ValidIndex(m_Lids, i)) return false;
  m_Lids.RemoveAt(i);
  return true;
}

CString CScratchPadOpts::GetPhoneNumberAt(int i) const {
  return ValidIndex(m_PhoneNumbers, i) ? m_PhoneNumbers.GetAt(i) : CString();
}

bool CScratchPadOpts::SetPhoneNumberAt(int i, CString number) {
  if (!ValidIndex(m_PhoneNumbers, i)) return false;
  m_PhoneNumbers.SetAt(i, number);
  return true;
}

bool CScratchPadOpts::RemovePhoneNumberAt(int i) {
  if (!ValidIndex(m_PhoneNumbers, i)) return false;
  m_PhoneNumbers.RemoveAt(i);
  return true;
}

void CScratchPadOpts::Delete() {
  m_Lids.RemoveAll();
  m_PhoneNumbers.RemoveAll();
}

void CScratchPadOpts::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

void CScratchPadOpts::printOptToBuffer(CStringArray& out, const CPersonality*) const {
  PrintFieldBlock(out, "KORVEX SCRATCH PAD OPTIONS:");
}

}  // namespace persona
