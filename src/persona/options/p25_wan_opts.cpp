// CP25TrkWan and CP25tWanOpts: archive forms, list operations and report lines.
#include <persona/options/p25_wan_opts.h>

#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CP25TrkWan, CSerial, VERSIONABLE_SCHEMA | 2)
IMPLEMENT_SERIAL(CP25tWanOpts, CSerial, VERSIONABLE_SCHEMA | 1)

CP25TrkWan::CP25TrkWan(unsigned short, int) {}

void CP25TrkWan::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

void CP25TrkWan::printToBuffer(CStringArray& out, const CPersonality*) const {
  out.Add(CString::Formatted("  Name: %8s  NW Addr: %05x  System ID: %03x", m_NetworkName.c_str(),
                             static_cast<unsigned>(m_NetworkAddr),
                             static_cast<unsigned>(m_SystemId)));
}

CP25tWanOpts::CP25tWanOpts() : m_Wans(RUNTIME_CLASS(CP25TrkWan)) {}

CP25tWanOpts::CP25tWanOpts(unsigned short, int) : CP25tWanOpts() {}

CP25tWanOpts::CP25tWanOpts(const CP25tWanOpts& src)
    : CFieldOption(src), m_Wans(RUNTIME_CLASS(CP25TrkWan)) {
  AppendCopiesOf(src);
}

CP25tWanOpts& CP25tWanOpts::operator=(const CP25tWanOpts* src) {
  if (src != nullptr && src != this) {
    m_Wans.DeleteAll();
    AppendCopiesOf(*src);
  }
  return *this;
}

void CP25tWanOpts::AppendCopiesOf(const CP25tWanOpts& src) {
  m_Wans.Reserve(static_cast<std::size_t>(src.m_Wans.GetCount()));
  for (CObject* wan : src.m_Wans) {
    if (wan != nullptr) m_Wans.Add(new CP25TrkWan(static_cast<const CP25TrkWan&>(*wan)));
  }
}

void CP25tWanOpts::AddWan(CP25TrkWan* wan) { m_Wans.Add(wan); }

CP25TrkWan* CP25tWanOpts::GetWanAt(int i) const {
  return ValidIndex(i) ? static_cast<CP25TrkWan*>(m_Wans.GetAt(i)) : nullptr;
}

CP25TrkWan* CP25tWanOpts::SetWanAt(int i, CP25TrkWan* wan) {
  if (!ValidIndex(i)) return nullptr;
  return static_cast<CP25TrkWan*>(m_Wans.Replace(i, wan));
}

void CP25tWanOpts::InsertWanBefore(int i, CP25TrkWan* wan) {
  if (ValidIndex(i)) {
    m_Wans.InsertAt(i, wan);
  } else {
    m_Wans.Add(wan);
  }
}

void CP25tWanOpts::InsertWanAfter(int i, CP25TrkWan* wan) {
  if (ValidIndex(i)) {
    m_Wans.InsertAt(i + 1, wan);
  } else {
    m_Wans.Add(wan);
  }
}

void CP25tWanOpts::DeleteWanAt(int i) {
  if (ValidIndex(i)) m_Wans.DeleteAt(i);
}

WORD CP25tWanOpts::getWanIndex(const CString& name) const {
  for (int i = 0; i < m_Wans.GetCount(); ++i) {
    const auto* wan = static_cast<const CP25TrkWan*>(m_Wans.GetAt(i));
    if (wan != nullptr && wan->GetNetworkName() == name) return static_cast<WORD>(i);
  }
  return 65535;
}

void CP25tWanOpts::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

void CP25tWanOpts::printOptToBuffer(CStringArray& out, const CPersonality* personality) const {
  OptionBlock block(out, "P25 TRUNKED WIDE AREA NETWORKS:");
  for (CObject* wan : m_Wans) {
    if (wan != nullptr) static_cast<const CP25TrkWan*>(wan)->printToBuffer(out, personality);
  }
  block.End();
}

}  // namespace persona
