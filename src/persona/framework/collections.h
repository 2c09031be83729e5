// The framework's containers: CObList (object pointers it does not own), COwnedObList (object
// pointers it owns), CStringArray and CWordArray. All are index-based: access by position is
// O(1) and a loop by position stays valid while it removes the element it stands on.
#pragma once

#include <persona/export.h>

#include <memory>
#include <utility>
#include <vector>

#include <persona/framework/cstring.h>
#include <persona/framework/object.h>
#include <persona/framework/types.h>

namespace persona {

class CArchive;

// A list of object pointers that it does NOT own (the framework's CObList). Optionally
// restricted to one element class, which Serialize enforces when loading.
class PERSONA_EXPORT CObList {
 public:
  explicit CObList(const CRuntimeClass* elementClass = nullptr) : m_elementClass(elementClass) {}

  int GetCount() const { return static_cast<int>(m_items.size()); }
  int GetSize() const { return GetCount(); }
  bool IsEmpty() const { return m_items.empty(); }

  // Returns the pointer at i; i outside 0 .. count-1 raises CInvalidArgException.
  CObject* GetAt(int i) const;
  // Replaces the pointer at i (nothing is deleted); invalid i raises CInvalidArgException.
  void SetAt(int i, CObject* p);
  CObject* GetHead() const { return GetAt(0); }
  CObject* GetTail() const { return GetAt(GetCount() - 1); }
  void AddTail(CObject* p) { m_items.push_back(p); }
  void AddHead(CObject* p) { m_items.insert(m_items.begin(), p); }
  // Removes the pointer at i without deleting it; invalid i raises CInvalidArgException.
  void RemoveAt(int i);
  void RemoveAll() { m_items.clear(); }

  // Loading appends objects read as shared records: the archive keeps fresh ones in its pool
  // (CArchive::TakeSharedObjects) and hands back-references out again.
  void Serialize(CArchive& ar);

  const CRuntimeClass* GetElementClass() const { return m_elementClass; }
  auto begin() const { return m_items.begin(); }
  auto end() const { return m_items.end(); }

 private:
  std::vector<CObject*> m_items;
  const CRuntimeClass* m_elementClass;
};

// A list of objects that it owns: destroying or emptying it deletes them. Pointer-taking
// operations take ownership; Release and Replace hand an element back to the caller.
class PERSONA_EXPORT COwnedObList {
 public:
  explicit COwnedObList(const CRuntimeClass* elementClass = nullptr)
      : m_elementClass(elementClass) {}
  COwnedObList(const COwnedObList&) = delete;
  COwnedObList& operator=(const COwnedObList&) = delete;
  COwnedObList(COwnedObList&&) = default;
  COwnedObList& operator=(COwnedObList&&) = default;
  ~COwnedObList() = default;

  int GetCount() const { return static_cast<int>(m_items.size()); }
  bool IsEmpty() const { return m_items.empty(); }

  // Returns the element at i (still owned by the list); invalid i raises CInvalidArgException.
  CObject* GetAt(int i) const;
  // Appends p and takes ownership (null is kept as an empty slot).
  void Add(CObject* p) {
    Note(p);
    m_items.emplace_back(p);
  }
  void Add(std::unique_ptr<CObject> p) {
    Note(p.get());
    m_items.push_back(std::move(p));
  }
  // Inserts before i (0 .. count) and takes ownership; other i raises CInvalidArgException
  // and p stays with the caller.
  void InsertAt(int i, CObject* p);
  // Puts p at i and returns the element that was there (the caller owns it); invalid i
  // raises CInvalidArgException and p stays with the caller.
  CObject* Replace(int i, CObject* p);
  // Removes the element at i and returns it (the caller owns it).
  CObject* Release(int i);
  // Removes and deletes the element at i.
  void DeleteAt(int i);
  // Deletes every element and empties the list.
  void DeleteAll() {
    m_items.clear();
    m_oneClass = nullptr;
    m_mixed = false;
  }
  void Reserve(std::size_t n) { m_items.reserve(n); }

  // Loading appends owned objects; each must be of the element class (when set) and stored
  // once: a back-reference to an object already read is refused.
  void Serialize(CArchive& ar);

  const CRuntimeClass* GetElementClass() const { return m_elementClass; }
  void SetElementClass(const CRuntimeClass* cls) { m_elementClass = cls; }

  // The exact class of every record of the list when one class has held them all since the
  // list was last emptied (empty slots aside), so that a walk looking for other classes can
  // pass over the whole list without reading a record; null when records of two classes have
  // been in it, or none. Taking records out keeps the answer: it stays true of those left.
  const CRuntimeClass* GetOneClass() const { return m_mixed ? nullptr : m_oneClass; }

  class const_iterator {
   public:
    explicit const_iterator(std::vector<std::unique_ptr<CObject>>::const_iterator it) : m_it(it) {}
    CObject* operator*() const { return m_it->get(); }
    const_iterator& operator++() {
      ++m_it;
      return *this;
    }
    bool operator!=(const const_iterator& o) const { return m_it != o.m_it; }
    bool operator==(const const_iterator& o) const { return m_it == o.m_it; }

   private:
    std::vector<std::unique_ptr<CObject>>::const_iterator m_it;
  };
  const_iterator begin() const { return const_iterator(m_items.begin()); }
  const_iterator end() const { return const_iterator(m_items.end()); }

 private:
  void CheckIndex(int i, bool allowEnd) const;
  // Keeps GetOneClass true of a record coming into the list.
  void Note(const CObject* p) {
    if (p == nullptr || m_mixed) return;
    const CRuntimeClass* cls = p->GetRuntimeClass();
    if (m_oneClass == nullptr) {
      m_oneClass = cls;
    } else if (cls != m_oneClass) {
      m_mixed = true;
    }
  }
  std::vector<std::unique_ptr<CObject>> m_items;
  const CRuntimeClass* m_elementClass;
  const CRuntimeClass* m_oneClass = nullptr;
  bool m_mixed = false;
};

// Array of values with the framework's index rules (positions checked, SetSize to grow).
// Instantiated in the library for CString and WORD (exported with them).
template <class T>
class PERSONA_EXPORT CValueArray {
 public:
  int GetSize() const { return static_cast<int>(m_items.size()); }
  int GetCount() const { return GetSize(); }
  int GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return m_items.empty(); }

  // Element at i; invalid i raises CInvalidArgException.
  const T& GetAt(int i) const {
    Check(i);
    return m_items[static_cast<std::size_t>(i)];
  }
  T& ElementAt(int i) {
    Check(i);
    return m_items[static_cast<std::size_t>(i)];
  }
  const T& operator[](int i) const { return GetAt(i); }
  T& operator[](int i) { return ElementAt(i); }
  void SetAt(int i, const T& v) { ElementAt(i) = v; }
  // Sets i, growing the array first when i is not below the size; negative i raises.
  void SetAtGrow(int i, const T& v) {
    if (i < 0) ThrowIndex(i);
    if (i >= GetSize()) m_items.resize(static_cast<std::size_t>(i) + 1);
    m_items[static_cast<std::size_t>(i)] = v;
  }
  // Appends v and returns its position.
  int Add(const T& v) {
    m_items.push_back(v);
    return GetSize() - 1;
  }
  int Add(T&& v) {
    m_items.push_back(std::move(v));
    return GetSize() - 1;
  }
  // Inserts before i (0 .. size); other i raises.
  void InsertAt(int i, const T& v) {
    if (i < 0 || i > GetSize()) ThrowIndex(i);
    m_items.insert(m_items.begin() + i, v);
  }
  void RemoveAt(int i, int count = 1) {
    if (count < 0 || i < 0 || i + count > GetSize()) ThrowIndex(i);
    m_items.erase(m_items.begin() + i, m_items.begin() + i + count);
  }
  void RemoveAll() { m_items.clear(); }
  // Grows (with default values) or shrinks to n; negative n raises.
  void SetSize(int n) {
    if (n < 0) ThrowIndex(n);
    m_items.resize(static_cast<std::size_t>(n));
  }
  void Copy(const CValueArray& other) { m_items = other.m_items; }
  void Append(const CValueArray& other) {
    m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
  }
  void Reserve(std::size_t n) { m_items.reserve(n); }

  auto begin() const { return m_items.begin(); }
  auto end() const { return m_items.end(); }
  friend bool operator==(const CValueArray& a, const CValueArray& b) {
    return a.m_items == b.m_items;
  }
  friend bool operator!=(const CValueArray& a, const CValueArray& b) {
    return a.m_items != b.m_items;
  }

 protected:
  std::vector<T> m_items;

 private:
  void Check(int i) const {
    if (i < 0 || i >= GetSize()) ThrowIndex(i);
  }
  [[noreturn]] void ThrowIndex(int i) const;
};

// Array of strings (archive: count, then each string).
class PERSONA_EXPORT CStringArray : public CValueArray<CString> {
 public:
  void Serialize(CArchive& ar);
  // Empties the array, giving its strings' memory back for formatting (CString::GiveBack).
  void RemoveAll() {
    for (CString& s : m_items) CString::GiveBack(s);
    m_items.clear();
  }
};

// Array of 16-bit values (archive: count, then each WORD).
class PERSONA_EXPORT CWordArray : public CValueArray<WORD> {
 public:
  void Serialize(CArchive& ar);
};

}  // namespace persona
