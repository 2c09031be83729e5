// The Boost.Serialization reference. Every record class is exported to Boost under its own
// class name; its serialize function serializes its base class object, then the fields of its
// own Fields table (the same table the library archives), so both sides move the same data.
#include "references.h"

#include <stdexcept>

#ifdef PERSONA_BENCH_BOOST

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/serialization/base_object.hpp>
#include <boost/serialization/export.hpp>
#include <boost/serialization/string.hpp>
#include <unordered_set>

#include "record_headers.h"
#include "reference_fields.h"

namespace persona::bench {
namespace {

// Key records met through non-owning lists during one reference load (they get an owner
// after the load).
std::unordered_set<CObject*>* g_sharedSeen = nullptr;

// Hands the fields of a record to a Boost archive. Owned lists and non-owning lists both go
// as Boost's polymorphic pointers with object tracking (the counterpart of the library's
// class tags and back-references).
template <class Ar>
class BoostIo {
 public:
  static constexpr bool kLoading = Ar::is_loading::value;
  explicit BoostIo(Ar& ar) : m_ar(ar) {}

  template <class T>
  void Value(T& v) {
    m_ar& v;
  }
  void SaveOwned(const CObject* p) { m_ar << p; }
  CObject* LoadOwned() {
    CObject* p = nullptr;
    m_ar >> p;
    return p;
  }
  void SaveShared(const CObject* p) { m_ar << p; }
  CObject* LoadShared() {
    CObject* p = LoadOwned();
    if (p != nullptr && g_sharedSeen != nullptr) g_sharedSeen->insert(p);
    return p;
  }

 private:
  Ar& m_ar;
};

}  // namespace

template <class Base, class Ar, class R>
void SerializeRecord(Ar& ar, R& r) {
  ar& boost::serialization::base_object<Base>(r);
  BoostIo<Ar> io(ar);
  WalkOwnFields<Base>(io, r);
}

}  // namespace persona::bench

namespace boost::serialization {

template <class Ar>
void serialize(Ar&, persona::CObject&, const unsigned int) {}

#define PERSONA_RECORD(cls, base)                               \
  template <class Ar>                                           \
  void serialize(Ar& ar, persona::cls& r, const unsigned int) { \
    persona::bench::SerializeRecord<persona::base>(ar, r);      \
  }
#include "record_classes.def"
#undef PERSONA_RECORD

}  // namespace boost::serialization

#define PERSONA_RECORD(cls, base) BOOST_CLASS_EXPORT_GUID(persona::cls, #cls)
#include "record_classes.def"
#undef PERSONA_RECORD

namespace persona::bench {

bool BoostReferenceAvailable() { return true; }

void BoostSave(const CPersonality& personality, std::vector<char>& out) {
  out.clear();
  VectorSink sink(out);
  boost::archive::binary_oarchive archive(sink, boost::archive::no_header);
  const CPersonality* root = &personality;
  archive << root;
}

ReferenceLoaded BoostLoad(const std::vector<char>& bytes) {
  ByteSource source(bytes);
  std::unordered_set<CObject*> seen;
  g_sharedSeen = &seen;
  ReferenceLoaded loaded;
  try {
    boost::archive::binary_iarchive archive(source, boost::archive::no_header);
    CPersonality* root = nullptr;
    archive >> root;
    loaded.personality.reset(root);
  } catch (...) {
    g_sharedSeen = nullptr;
    throw;
  }
  g_sharedSeen = nullptr;
  loaded.shared.reserve(seen.size());
  for (CObject* p : seen) loaded.shared.emplace_back(p);
  return loaded;
}

}  // namespace persona::bench

#else  // without Boost

namespace persona::bench {

bool BoostReferenceAvailable() { return false; }

void BoostSave(const CPersonality&, std::vector<char>&) {
  throw std::logic_error("the Boost reference was not built (Boost.Serialization missing)");
}

ReferenceLoaded BoostLoad(const std::vector<char>&) {
  throw std::logic_error("the Boost reference was not built (Boost.Serialization missing)");
}

}  // namespace persona::bench

#endif
