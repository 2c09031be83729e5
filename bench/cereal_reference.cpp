// The cereal reference. Every record class is registered with cereal under its own class name
// and its relation to its base class; its serialize function serializes its base class, then
// the fields of its own Fields table (the same table the library archives). cereal keeps
// polymorphic objects in smart pointers only: an owned list goes as unique pointers (the list
// keeps ownership on save and takes it on load), a non-owning list as shared pointers, which
// cereal tracks, so a key record met many times is stored once.
#include <stdexcept>

#include "references.h"

#ifdef PERSONA_BENCH_CEREAL

#include <cereal/archives/binary.hpp>
#include <cereal/types/base_class.hpp>
#include <cereal/types/memory.hpp>
#include <cereal/types/polymorphic.hpp>
#include <cereal/types/string.hpp>
#include <istream>
#include <ostream>
#include <unordered_set>

#include "record_headers.h"
#include "reference_fields.h"

namespace persona::bench {
namespace {

// A unique pointer that does not delete: the list it comes from or goes to owns the record.
struct Borrowed {
  void operator()(CObject*) const {}
};
using BorrowedPtr = std::unique_ptr<CObject, Borrowed>;

// Key records met through non-owning lists during one load, kept alive after it.
std::unordered_set<std::shared_ptr<CObject>>* g_sharedKept = nullptr;

// Hands the fields of a record to a cereal archive.
template <class Ar>
class CerealIo {
 public:
  static constexpr bool kLoading = Ar::is_loading::value;
  explicit CerealIo(Ar& ar) : m_ar(ar) {}

  template <class T>
  void Value(T& v) {
    m_ar(v);
  }
  void SaveOwned(const CObject* p) { m_ar(BorrowedPtr(const_cast<CObject*>(p))); }
  CObject* LoadOwned() {
    BorrowedPtr p;
    m_ar(p);
    return p.release();
  }
  void SaveShared(const CObject* p) {
    // Not owning: an empty control block aliased to the record.
    m_ar(std::shared_ptr<const CObject>(std::shared_ptr<const CObject>(), p));
  }
  CObject* LoadShared() {
    std::shared_ptr<CObject> p;
    m_ar(p);
    if (p != nullptr && g_sharedKept != nullptr) g_sharedKept->insert(p);
    return p.get();
  }

 private:
  Ar& m_ar;
};

}  // namespace
}  // namespace persona::bench

namespace cereal {

template <class Ar>
void serialize(Ar&, persona::CObject&) {}

#define PERSONA_RECORD(cls, base)                        \
  template <class Ar>                                    \
  void serialize(Ar& ar, persona::cls& r) {              \
    ar(cereal::base_class<persona::base>(&r));           \
    persona::bench::CerealIo<Ar> io(ar);                 \
    persona::bench::WalkOwnFields<persona::base>(io, r); \
  }
#include "record_classes.def"
#undef PERSONA_RECORD

}  // namespace cereal

#define PERSONA_RECORD(cls, base) CEREAL_REGISTER_TYPE_WITH_NAME(persona::cls, #cls)
#include "record_classes.def"
#undef PERSONA_RECORD

namespace persona::bench {

bool CerealReferenceAvailable() { return true; }

void CerealSave(const CPersonality& personality, std::vector<char>& out) {
  out.clear();
  VectorSink sink(out);
  std::ostream stream(&sink);
  cereal::BinaryOutputArchive archive(stream);
  archive(personality);
}

ReferenceLoaded CerealLoad(const std::vector<char>& bytes) {
  ByteSource source(bytes);
  std::istream stream(&source);
  std::unordered_set<std::shared_ptr<CObject>> kept;
  g_sharedKept = &kept;
  ReferenceLoaded loaded;
  loaded.personality = std::make_unique<CPersonality>();
  try {
    cereal::BinaryInputArchive archive(stream);
    archive(*loaded.personality);
  } catch (...) {
    g_sharedKept = nullptr;
    throw;
  }
  g_sharedKept = nullptr;
  loaded.shared.assign(kept.begin(), kept.end());
  return loaded;
}

}  // namespace persona::bench

#else  // without cereal

namespace persona::bench {

bool CerealReferenceAvailable() { return false; }

void CerealSave(const CPersonality&, std::vector<char>&) {
  throw std::logic_error("the cereal reference was not built (cereal missing)");
}

ReferenceLoaded CerealLoad(const std::vector<char>&) {
  throw std::logic_error("the cereal reference was not built (cereal missing)");
}

}  // namespace persona::bench

#endif
