// The Boost.Serialization reference. Every record class is exported to Boost under its own
// class name; its serialize function serializes its base class object, then the fields of its
// own Fields table (the same table the library archives), so both sides move the same data.
// Owned lists are a count and the element pointers (Boost's polymorphic pointers with object
// tracking, the counterpart of the library's class tags and back-references).
#include "boost_reference.h"

#include <stdexcept>

#ifdef PERSONA_BENCH_BOOST

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/serialization/base_object.hpp>
#include <boost/serialization/export.hpp>
#include <boost/serialization/string.hpp>
#include <streambuf>
#include <type_traits>
#include <unordered_set>

#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include "record_headers.h"

namespace persona::bench {
namespace {

// Key records met through non-owning lists during one reference load (they get an owner
// after the load).
std::unordered_set<CObject*>* g_sharedSeen = nullptr;

// An output stream buffer that appends to a vector (no stream formatting, no copies).
class VectorSink : public std::streambuf {
 public:
  explicit VectorSink(std::vector<char>& out) : m_out(out) {}

 protected:
  std::streamsize xsputn(const char* s, std::streamsize n) override {
    m_out.insert(m_out.end(), s, s + n);
    return n;
  }
  int_type overflow(int_type ch) override {
    if (ch != traits_type::eof()) m_out.push_back(static_cast<char>(ch));
    return ch;
  }

 private:
  std::vector<char>& m_out;
};

// An input stream buffer over bytes that the caller keeps alive.
class ByteSource : public std::streambuf {
 public:
  explicit ByteSource(const std::vector<char>& in) {
    char* begin = const_cast<char*>(in.data());
    setg(begin, begin, begin + in.size());
  }
};

// Whether a class has a Fields table, and whether it is another table than its registered
// base class's (it may be declared by the class itself or by a template between the two).
struct Probe {};
template <class R, class = void>
struct HasFields : std::false_type {};
template <class R>
struct HasFields<R, std::void_t<decltype(&R::template Fields<Probe>)>> : std::true_type {};
template <class R, class Base>
constexpr bool HasFieldsBeyond() {
  if constexpr (!HasFields<R>::value) {
    return false;
  } else if constexpr (!HasFields<Base>::value) {
    return true;
  } else {
    return !std::is_same_v<decltype(&R::template Fields<Probe>),
                           decltype(&Base::template Fields<Probe>)>;
  }
}

// Serializes the fields of a Fields table with a Boost archive.
template <class Ar>
class BoostFields {
 public:
  explicit BoostFields(Ar& ar) : m_ar(ar) {}

  template <class T, class... O>
  void operator()(const char*, T& member, const O&...) {
    if constexpr (!(std::is_same_v<O, Transient> || ...)) Field(member);
  }

 private:
  template <class T>
  void Field(T& m) {
    if constexpr (std::is_arithmetic_v<T> || std::is_array_v<T>) {
      m_ar& m;
    } else if constexpr (std::is_same_v<T, CString>) {
      m_ar& m.str();
    } else if constexpr (std::is_same_v<T, CStringArray> || std::is_same_v<T, CWordArray>) {
      std::size_t n = static_cast<std::size_t>(m.GetSize());
      m_ar& n;
      if (Ar::is_loading::value) m.SetSize(static_cast<int>(n));
      for (int i = 0; i < m.GetSize(); ++i) Element(m.ElementAt(i));
    } else if constexpr (std::is_base_of_v<COwnedObList, T>) {
      OwnedList(m);
    } else {
      static_assert(std::is_same_v<T, CObList>, "a field type the reference does not know");
      SharedList(m);
    }
  }
  void Element(CString& s) { m_ar& s.str(); }
  void Element(WORD& w) { m_ar& w; }

  void OwnedList(COwnedObList& list) {
    std::size_t n = static_cast<std::size_t>(list.GetCount());
    m_ar& n;
    if constexpr (Ar::is_saving::value) {
      for (std::size_t i = 0; i < n; ++i) {
        const CObject* p = list.GetAt(static_cast<int>(i));
        m_ar << p;
      }
    } else {
      list.Reserve(n);
      for (std::size_t i = 0; i < n; ++i) {
        CObject* p = nullptr;
        m_ar >> p;
        list.Add(p);
      }
    }
  }
  void SharedList(CObList& list) {
    std::size_t n = static_cast<std::size_t>(list.GetCount());
    m_ar& n;
    if constexpr (Ar::is_saving::value) {
      for (std::size_t i = 0; i < n; ++i) {
        const CObject* p = list.GetAt(static_cast<int>(i));
        m_ar << p;
      }
    } else {
      for (std::size_t i = 0; i < n; ++i) {
        CObject* p = nullptr;
        m_ar >> p;
        list.AddTail(p);
        if (p != nullptr && g_sharedSeen != nullptr) g_sharedSeen->insert(p);
      }
    }
  }

  Ar& m_ar;
};

}  // namespace

template <class Base, class Ar, class R>
void SerializeRecord(Ar& ar, R& r) {
  ar& boost::serialization::base_object<Base>(r);
  if constexpr (HasFieldsBeyond<R, Base>()) {
    BoostFields<Ar> fields(ar);
    r.Fields(fields);
  }
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

BoostLoaded BoostLoad(const std::vector<char>& bytes) {
  ByteSource source(bytes);
  std::unordered_set<CObject*> seen;
  g_sharedSeen = &seen;
  BoostLoaded loaded;
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

BoostLoaded BoostLoad(const std::vector<char>&) {
  throw std::logic_error("the Boost reference was not built (Boost.Serialization missing)");
}

}  // namespace persona::bench

#endif
