// CSet: element list operations, deep copy and archive form.
#include <persona/core/set.h>

#include <atomic>
#include <cstring>
#include <string>

#include <persona/framework/archive.h>
#include <persona/framework/exceptions.h>

namespace persona {

IMPLEMENT_SERIAL(CSet, CObject, 1)

namespace {

std::atomic<std::uint64_t> g_nameEpoch{0};

void BumpNameEpoch() { g_nameEpoch.fetch_add(1, std::memory_order_relaxed); }

}  // namespace

CSet::CSet() = default;

CSet::CSet(unsigned short, int) {}

CSet::CSet(SetType type) : m_setType(static_cast<BYTE>(type)) {}

CSet::CSet(const CSet& src)
    : CObject(src), m_elements(src.m_elements.GetElementClass()), m_strName(src.m_strName) {
  BumpNameEpoch();
  AppendCopiesOf(src);
  m_setType = src.m_setType;
  m_scope = src.m_scope;
}

CSet& CSet::operator=(CSet& src) {
  SetName(src.m_strName);
  AppendCopiesOf(src);
  m_setType = src.m_setType;
  m_scope = src.m_scope;
  return *this;
}

CSet::~CSet() = default;

int CSet::Validate() { return 1; }

void CSet::SetName(CString name) {
  m_strName = std::move(name);
  BumpNameEpoch();
}

std::uint64_t CSet::NameEpoch() { return g_nameEpoch.load(std::memory_order_relaxed); }

bool CSet::IsCopiedElementClass(const char* className) {
  static const char* const kCopied[] = {
      "CTrunkChannel", "CConvChannel", "CP25ConvChannel", "CExtAddGroup", "CGroup",    "CP25Group",
      "CPhoneCall",    "CICall",       "CSpCall",         "CPlmGroup",    "CPlmSpCall"};
  for (const char* name : kCopied) {
    if (std::strcmp(name, className) == 0) return true;
  }
  return false;
}

void CSet::AppendCopiesOf(const CSet& src) {
  const int count = src.m_elements.GetCount();  // fixed first: src may be this set
  m_elements.Reserve(static_cast<std::size_t>(m_elements.GetCount() + count));
  // The name of the last class found copied, mostly the only one: each class has its own.
  const char* copied = nullptr;
  for (int i = 0; i < count; ++i) {
    const CObject* element = src.m_elements.GetAt(i);
    if (element == nullptr) continue;
    const CRuntimeClass* cls = element->GetRuntimeClass();
    const char* name = cls->m_lpszClassName;
    if (name != copied) {
      if (!IsCopiedElementClass(name)) continue;
      copied = name;
    }
    if (CObject* copy = cls->CopyObject(*element)) m_elements.Add(copy);
  }
}

void CSet::Add(CObject* element) { m_elements.Add(element); }

void CSet::InsertAt(int i, CObject* element) {
  if (i < 0 || i >= m_elements.GetCount()) i = 0;
  m_elements.InsertAt(i, element);
}

CObject* CSet::SetAt(int i, CObject* element) { return m_elements.Replace(i, element); }

CObject* CSet::GetAt(int i) const {
  if (i < 0) throw CInvalidArgException("set element position " + std::to_string(i));
  if (i >= m_elements.GetCount()) return nullptr;
  return m_elements.GetAt(i);
}

bool CSet::ClearsReferencesOnDelete() const {
  switch (m_setType) {
    case ConvSetType:
    case GroupSetType:
    case P25ConvSetType:
    case P25GroupSetType:
    case EaGroupSetType:
      return true;
    default:
      return false;
  }
}

void CSet::DeleteAt(int i) {
  if (m_setType >= kNumSetTypes) return;
  if (i < 0) throw CInvalidArgException("set element position " + std::to_string(i));
  if (i >= m_elements.GetCount()) return;
  const CObject* element = m_elements.GetAt(i);
  if (element != nullptr && ClearsReferencesOnDelete()) DeleteSetReferencesToElement(*element);
  m_elements.DeleteAt(i);
}

void CSet::DeleteAllFromFront() {
  if (m_setType >= kNumSetTypes) return;
  if (ClearsReferencesOnDelete()) {
    for (const CObject* element : m_elements) {
      if (element != nullptr) DeleteSetReferencesToElement(*element);
    }
  }
  m_elements.DeleteAll();
}

void CSet::Delete() { m_elements.DeleteAll(); }

void CSet::AdoptSharedRecords(std::vector<std::unique_ptr<CObject>> records) {
  for (auto& r : records) m_adopted.push_back(std::move(r));
}

void CSet::DeleteSetReferencesToElement(const CObject&) {}

void CSet::VisitFields(CFieldVisitor& v) {
  CObject::VisitFields(v);
  FieldAdapter adapter(v);
  Fields(adapter);
  BumpNameEpoch();
}

void CSet::Serialize(CArchive& ar) {
  SerializeFields(ar, *this);
  if (ar.IsLoading()) BumpNameEpoch();
}

}  // namespace persona
