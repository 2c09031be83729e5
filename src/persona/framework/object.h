// CObject and CRuntimeClass: the root of every record, its run-time class record (class name,
// schema, base class, factory and copy), the registry that finds a class by name when an
// archive is read, and the DECLARE_SERIAL / IMPLEMENT_SERIAL / RUNTIME_CLASS macros.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <vector>

#include <persona/framework/types.h>

namespace persona {

class CArchive;
class CObject;
class CFieldVisitor;

// Schema flag: objects of a class registered with it may be stored with an older schema and
// are loaded field by field according to that schema.
constexpr UINT VERSIONABLE_SCHEMA = 0x80000000u;

// The run-time class record of one class. Instances are constant-initialised statics made by
// IMPLEMENT_SERIAL; they need no dynamic initialisation.
struct PERSONA_EXPORT CRuntimeClass {
  const char* m_lpszClassName;
  int m_nObjectSize;
  UINT m_wSchema;                               // schema, with VERSIONABLE_SCHEMA when versionable
  CObject* (*m_pfnCreateObject)();              // default-constructs an object; null if abstract
  CObject* (*m_pfnCopyObject)(const CObject&);  // copy-constructs from an object of this class
  const CRuntimeClass* m_pBaseClass;

  // Returns a new default-constructed object that the caller owns, or null when the class
  // cannot be created.
  CObject* CreateObject() const;
  // Returns a new copy of obj made with this class's copy constructor (the caller owns it), or
  // null when obj is not of this class or a class derived from it, or the class has no copy.
  CObject* CopyObject(const CObject& obj) const;
  // True when this class is base or equal to this class.
  bool IsDerivedFrom(const CRuntimeClass* base) const;
  // Schema number without the versionable flag.
  UINT GetSchema() const { return m_wSchema & ~VERSIONABLE_SCHEMA; }
  bool IsVersionable() const { return (m_wSchema & VERSIONABLE_SCHEMA) != 0; }

  // Returns the registered class of that name (exact, case-sensitive), or null. Makes sure
  // every record class is registered first.
  static const CRuntimeClass* FromName(const char* className);
  // Adds a class to the registry (a second class of the same name is ignored).
  static void Register(const CRuntimeClass* cls);
  // Returns every registered class (not owned), in no particular order, after making sure
  // every record class is registered; for tools that list the classes.
  static std::vector<const CRuntimeClass*> RegisteredClasses();
};

// Makes sure every record class of the library is registered for creation by name. Defined
// by the record layer; the archive calls it before the first object is read. Idempotent.
PERSONA_EXPORT void EnsureClassesRegistered();

// Root of every record.
class PERSONA_EXPORT CObject {
 public:
  static const CRuntimeClass classCObject;
  static const CRuntimeClass* GetThisClass() { return &classCObject; }

  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
  virtual ~CObject() = default;

  // Records are allocated by size class from per-thread pools when the library is built with
  // PERSONA_RECORD_POOL (object_pool.cpp), from the heap otherwise. new throws std::bad_alloc;
  // delete takes the size of the object's own class (the destructor is virtual).
  static void* operator new(std::size_t size);
  static void operator delete(void* p, std::size_t size) noexcept;

  virtual const CRuntimeClass* GetRuntimeClass() const;
  // Writes the object's fields when ar is storing and reads them otherwise.
  virtual void Serialize(CArchive& ar);
  // Hands every described field of the record to v (JSON, diff, generic tests); the base has
  // none. Records override it through PERSONA_FIELDS.
  virtual void VisitFields(CFieldVisitor& v);

  bool IsKindOf(const CRuntimeClass* cls) const { return GetRuntimeClass()->IsDerivedFrom(cls); }
  bool IsSerializable() const { return GetRuntimeClass()->m_pfnCreateObject != nullptr; }
  // The registered class name.
  const char* GetClassName() const { return GetRuntimeClass()->m_lpszClassName; }
};

template <class T>
CObject* CreateObjectOf() {
  return new T;
}

template <class T>
CObject* CopyObjectOf(const CObject& src) {
  return new T(static_cast<const T&>(src));
}

}  // namespace persona

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

// In the class body of a serializable record. GetThisClass gives templates the class record
// (RUNTIME_CLASS cannot paste a template parameter's name).
#define DECLARE_SERIAL(class_name)                                                     \
 public:                                                                               \
  static const ::persona::CRuntimeClass class##class_name;                             \
  static const ::persona::CRuntimeClass* GetThisClass() { return &class##class_name; } \
  const ::persona::CRuntimeClass* GetRuntimeClass() const override { return &class##class_name; }

// In one source file per record. schema may carry VERSIONABLE_SCHEMA.
#define IMPLEMENT_SERIAL(class_name, base_class_name, schema)      \
  const ::persona::CRuntimeClass class_name::class##class_name = { \
      #class_name,                                                 \
      static_cast<int>(sizeof(class_name)),                        \
      (schema),                                                    \
      &::persona::CreateObjectOf<class_name>,                      \
      &::persona::CopyObjectOf<class_name>,                        \
      RUNTIME_CLASS(base_class_name)};
