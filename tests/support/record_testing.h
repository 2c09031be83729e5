// Generic record checks built on the records' field descriptions: fill every described field
// with a distinctive value, dump a record's fields as text, and round-trip a record through
// the archive. Use these for the plain repetition; keep hand-checked byte expectations and
// load repairs in the record's own tests.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona::test {

// A fixed-length WORD array field, as ForEachField hands it over.
struct WordRow {
  WORD* values;
  std::size_t count;
};

// Calls f(info, value) for every described field of rec, in order; f is generic over the field
// types (a WordRow for fixed WORD arrays).
template <class F>
void ForEachField(CObject& rec, F f) {
  struct Visitor : CFieldVisitor {
    F& f;
    explicit Visitor(F& fn) : f(fn) {}
    void Field(const FieldInfo& i, bool& v) override { f(i, v); }
    void Field(const FieldInfo& i, BYTE& v) override { f(i, v); }
    void Field(const FieldInfo& i, WORD& v) override { f(i, v); }
    void Field(const FieldInfo& i, short& v) override { f(i, v); }
    void Field(const FieldInfo& i, DWORD& v) override { f(i, v); }
    void Field(const FieldInfo& i, LONG& v) override { f(i, v); }
    void Field(const FieldInfo& i, double& v) override { f(i, v); }
    void Field(const FieldInfo& i, CString& v) override { f(i, v); }
    void Field(const FieldInfo& i, CStringArray& v) override { f(i, v); }
    void Field(const FieldInfo& i, CWordArray& v) override { f(i, v); }
    void Field(const FieldInfo& i, WORD* v, std::size_t n) override { f(i, WordRow{v, n}); }
    void Field(const FieldInfo& i, COwnedObList& v) override { f(i, v); }
    void Field(const FieldInfo& i, CObList& v) override { f(i, v); }
  } visitor(f);
  rec.VisitFields(visitor);
}

// Sets every described scalar, string and array field of rec to a value that differs from
// field to field and from the usual defaults; seed varies the values between records.
// Owned and shared sub-record lists are left alone.
void FillFields(CObject& rec, int seed = 1);

// Sets every described field of rec to a small value (numbers 0 to 3, frequencies, short or
// empty strings) that moves with the field's position and seed, so that four seeds give every
// field each of 0 to 3 and the reports walk their real branches. Owned lists of a known element
// class get two elements filled the same way.
void FillSmall(CObject& rec, int seed);

// One line per described field ("Name = value"), sub-records indented below their list.
std::string DumpFields(CObject& rec);

// The owned list field of rec named name (the personality's "PhoneSets", ...); fails the test
// and throws std::out_of_range when rec has none.
COwnedObList& OwnedList(CObject& rec, const char* name);

// Names of the described fields of rec, in order.
std::vector<std::string> FieldNames(CObject& rec);

// Sets each "Field=value" of fields through the field's text form (numbers, words of coded
// fields, lists joined by commas).
void SetFields(CObject& rec, std::initializer_list<std::string> fields);

// Expects each "Field=value" of fields to be the text form of that described field of rec
// (numbers as numbers, lists joined by commas).
void ExpectFields(const CObject& rec, std::initializer_list<std::string> fields);

// Stores rec, loads the bytes back, checks (with gtest assertions) that the loaded record's
// fields equal rec's and that storing it again gives the same bytes. Returns the bytes.
std::vector<BYTE> ExpectRoundTrip(CObject& rec);

// A new record of class R named name, a new channel named name on tx and rx, or a new group
// named name with id (ownership passes to the caller).
template <class R>
R* Named(const char* name) {
  auto* r = new R;
  r->SetName(name);
  return r;
}
template <class C>
C* Channel(const char* name, double tx, double rx) {
  auto* c = Named<C>(name);
  c->SetTxFreq(tx);
  c->SetRxFreq(rx);
  return c;
}
template <class G, class Id>
G* Group(const char* name, Id id) {
  auto* g = Named<G>(name);
  g->SetGrpId(id);
  return g;
}

}  // namespace persona::test
