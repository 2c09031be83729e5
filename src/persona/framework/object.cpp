// CObject, CRuntimeClass and the class registry.
#include <persona/framework/object.h>

#include <cstring>
#include <string_view>
#include <unordered_map>

#include <persona/framework/fields.h>

namespace persona {

const CRuntimeClass CObject::classCObject = {
    "CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr, nullptr};

const CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

void CObject::Serialize(CArchive&) {}

void CObject::VisitFields(CFieldVisitor&) {}

CString* FindNameField(CObject& record) {
  class NameFinder : public CFieldSkipper {
   public:
    using CFieldSkipper::Field;
    CString* name = nullptr;
    void Field(const FieldInfo& f, CString& v) override {
      if (name == nullptr && std::strcmp(f.name, "Name") == 0) name = &v;
    }
  };
  NameFinder finder;
  record.VisitFields(finder);
  return finder.name;
}

namespace {

std::unordered_map<std::string_view, const CRuntimeClass*>& Registry() {
  static std::unordered_map<std::string_view, const CRuntimeClass*> registry;
  return registry;
}

}  // namespace

CObject* CRuntimeClass::CreateObject() const {
  return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

CObject* CRuntimeClass::CopyObject(const CObject& obj) const {
  if (m_pfnCopyObject == nullptr || !obj.IsKindOf(this)) return nullptr;
  return m_pfnCopyObject(obj);
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  for (const CRuntimeClass* c = this; c != nullptr; c = c->m_pBaseClass) {
    if (c == base) return true;
  }
  return false;
}

void CRuntimeClass::Register(const CRuntimeClass* cls) {
  Registry().emplace(std::string_view(cls->m_lpszClassName), cls);
}

std::vector<const CRuntimeClass*> CRuntimeClass::RegisteredClasses() {
  EnsureClassesRegistered();
  std::vector<const CRuntimeClass*> out;
  out.reserve(Registry().size());
  for (const auto& entry : Registry()) out.push_back(entry.second);
  return out;
}

const CRuntimeClass* CRuntimeClass::FromName(const char* className) {
  EnsureClassesRegistered();
  const auto& registry = Registry();
  const auto it = registry.find(std::string_view(className));
  return it == registry.end() ? nullptr : it->second;
}

}  // namespace persona
