// What the serialization references (Boost, cereal) share: memory stream buffers, and a walk
// over a record's own Fields table that hands every stored field to a reference's archive
// adapter, so that every reference moves exactly the data the library's archive moves.
#pragma once

#include <cstddef>
#include <streambuf>
#include <type_traits>
#include <vector>

#include <persona/framework/collections.h>
#include <persona/framework/fields.h>

namespace persona::bench {

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

// Hands the stored fields of a Fields table to an archive adapter Io, which provides
//   static constexpr bool kLoading;
//   void Value(T&)                         an arithmetic value, an array of them, a std::string
//   void SaveOwned(const CObject*)         an element of an owned list (polymorphic, or null)
//   CObject* LoadOwned()                   the same read back; the list takes ownership
//   void SaveShared(const CObject*)        an element of a non-owning list (tracked)
//   CObject* LoadShared()                  the same read back; the adapter keeps it alive
// Lists and arrays go as a count and their elements.
template <class Io>
class ReferenceFields {
 public:
  explicit ReferenceFields(Io& io) : m_io(io) {}

  template <class T, class... O>
  void operator()(const char*, T& member, const O&...) {
    if constexpr (!(std::is_same_v<O, Transient> || ...)) Field(member);
  }

 private:
  template <class T>
  void Field(T& m) {
    if constexpr (std::is_arithmetic_v<T> || std::is_array_v<T>) {
      m_io.Value(m);
    } else if constexpr (std::is_same_v<T, CString>) {
      m_io.Value(m.str());
    } else if constexpr (std::is_same_v<T, CStringArray> || std::is_same_v<T, CWordArray>) {
      std::size_t n = Count(m.GetSize());
      if constexpr (Io::kLoading) m.SetSize(static_cast<int>(n));
      for (int i = 0; i < m.GetSize(); ++i) Element(m.ElementAt(i));
    } else if constexpr (std::is_base_of_v<COwnedObList, T>) {
      const std::size_t n = Count(m.GetCount());
      if constexpr (Io::kLoading) {
        m.Reserve(n);
        for (std::size_t i = 0; i < n; ++i) m.Add(m_io.LoadOwned());
      } else {
        for (std::size_t i = 0; i < n; ++i) m_io.SaveOwned(m.GetAt(static_cast<int>(i)));
      }
    } else {
      static_assert(std::is_same_v<T, CObList>, "a field type the references do not know");
      const std::size_t n = Count(m.GetCount());
      if constexpr (Io::kLoading) {
        for (std::size_t i = 0; i < n; ++i) m.AddTail(m_io.LoadShared());
      } else {
        for (std::size_t i = 0; i < n; ++i) m_io.SaveShared(m.GetAt(static_cast<int>(i)));
      }
    }
  }
  // Stores the count of a list, or reads it back.
  std::size_t Count(int current) {
    std::size_t n = static_cast<std::size_t>(current);
    m_io.Value(n);
    return n;
  }
  void Element(CString& s) { m_io.Value(s.str()); }
  void Element(WORD& w) { m_io.Value(w); }

  Io& m_io;
};

// Walks the fields that record r of class R adds to its registered base class Base.
template <class Base, class Io, class R>
void WalkOwnFields(Io& io, R& r) {
  if constexpr (HasFieldsBeyond<R, Base>()) {
    ReferenceFields<Io> fields(io);
    r.Fields(fields);
  }
}

}  // namespace persona::bench
