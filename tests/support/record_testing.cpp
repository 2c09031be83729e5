// Field-description based fill, dump and round trip.
#include "support/record_testing.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>

#include <persona/io/field_text.h>

#include "support/test_data.h"

namespace persona::test {

namespace {

class Filler : public CFieldVisitor {
 public:
  explicit Filler(int seed) : m_n(seed * 37) {}
  void Field(const FieldInfo&, bool& v) override { v = (Next() % 2) == 0; }
  void Field(const FieldInfo&, BYTE& v) override { v = static_cast<BYTE>(2 + Next() % 200); }
  void Field(const FieldInfo&, WORD& v) override { v = static_cast<WORD>(300 + Next() * 7); }
  void Field(const FieldInfo&, short& v) override { v = static_cast<short>(-100 - Next()); }
  void Field(const FieldInfo&, DWORD& v) override { v = 70000u + static_cast<DWORD>(Next()) * 13u; }
  void Field(const FieldInfo&, LONG& v) override { v = -70000 - Next() * 11; }
  void Field(const FieldInfo&, double& v) override { v = 851.0125 + Next() * 0.0125; }
  void Field(const FieldInfo& f, CString& v) override {
    v = CString::Formatted("%.6s%d", f.name, Next());
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    v.RemoveAll();
    v.Add(CString::Formatted("%.4sA%d", f.name, Next()));
    v.Add(CString::Formatted("%.4sB%d", f.name, Next()));
  }
  void Field(const FieldInfo&, CWordArray& v) override {
    v.RemoveAll();
    v.Add(static_cast<WORD>(Next()));
    v.Add(static_cast<WORD>(Next() + 1000));
  }
  void Field(const FieldInfo&, WORD* values, std::size_t count) override {
    for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<WORD>(10 + Next());
  }
  void Field(const FieldInfo&, COwnedObList&) override {}
  void Field(const FieldInfo&, CObList&) override {}

 private:
  int Next() { return ++m_n; }
  int m_n;
};

class SmallFiller : public CFieldVisitor {
 public:
  explicit SmallFiller(int seed) : m_n(seed) {}
  void Field(const FieldInfo&, bool& v) override { v = Next() % 2 == 1; }
  void Field(const FieldInfo&, BYTE& v) override { v = static_cast<BYTE>(Next()); }
  void Field(const FieldInfo&, WORD& v) override { v = static_cast<WORD>(Next()); }
  void Field(const FieldInfo&, short& v) override { v = static_cast<short>(Next()); }
  void Field(const FieldInfo&, DWORD& v) override { v = static_cast<DWORD>(Next()); }
  void Field(const FieldInfo&, LONG& v) override { v = Next(); }
  void Field(const FieldInfo&, double& v) override {
    static const double kValues[] = {0.0, 12.5, 851.0125, 154.2375};
    v = kValues[Next()];
  }
  void Field(const FieldInfo& f, CString& v) override {
    const int n = Next();
    v = n == 0 ? CString("") : CString::Formatted("%.5s%d", f.name, n);
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    v.RemoveAll();
    for (int i = 0; i < 2; ++i) v.Add(CString::Formatted("%.4s%d", f.name, Next()));
  }
  void Field(const FieldInfo&, CWordArray& v) override {
    v.RemoveAll();
    for (int i = 0; i < 2; ++i) v.Add(static_cast<WORD>(Next()));
  }
  void Field(const FieldInfo&, WORD* values, std::size_t count) override {
    for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<WORD>(Next());
  }
  void Field(const FieldInfo&, COwnedObList& list) override {
    if (list.GetElementClass() == nullptr) return;
    for (int i = 1; i <= 2; ++i) {
      CObject* e = list.GetElementClass()->CreateObject();
      FillSmall(*e, m_n + i);
      list.Add(e);
    }
  }
  void Field(const FieldInfo&, CObList&) override {}

 private:
  int Next() { return m_n++ % 4; }
  int m_n;
};

class Dumper : public CFieldVisitor {
 public:
  explicit Dumper(std::string indent) : m_indent(std::move(indent)) {}
  std::string out;
  std::vector<std::string> names;

  void Field(const FieldInfo& f, bool& v) override { Line(f, v ? "true" : "false"); }
  void Field(const FieldInfo& f, BYTE& v) override { Line(f, std::to_string(v)); }
  void Field(const FieldInfo& f, WORD& v) override { Line(f, std::to_string(v)); }
  void Field(const FieldInfo& f, short& v) override { Line(f, std::to_string(v)); }
  void Field(const FieldInfo& f, DWORD& v) override { Line(f, std::to_string(v)); }
  void Field(const FieldInfo& f, LONG& v) override { Line(f, std::to_string(v)); }
  void Field(const FieldInfo& f, double& v) override {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    Line(f, buf);
  }
  void Field(const FieldInfo& f, CString& v) override { Line(f, "\"" + v.str() + "\""); }
  void Field(const FieldInfo& f, CStringArray& v) override {
    std::string s = "[";
    for (const CString& e : v) s += "\"" + e.str() + "\" ";
    Line(f, s + "]");
  }
  void Field(const FieldInfo& f, CWordArray& v) override {
    std::string s = "[";
    for (WORD e : v) s += std::to_string(e) + " ";
    Line(f, s + "]");
  }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    std::string s = "[";
    for (std::size_t i = 0; i < count; ++i) s += std::to_string(values[i]) + " ";
    Line(f, s + "]");
  }
  void Field(const FieldInfo& f, COwnedObList& list) override {
    Line(f, std::to_string(list.GetCount()) + " records");
    for (CObject* e : list) Sub(e);
  }
  void Field(const FieldInfo& f, CObList& list) override {
    Line(f, std::to_string(list.GetCount()) + " shared records");
    for (CObject* e : list) Sub(e);
  }

 private:
  void Line(const FieldInfo& f, const std::string& value) {
    names.push_back(f.name);
    out += m_indent + f.name + " = " + value + "\n";
  }
  void Sub(CObject* e) {
    if (e == nullptr) {
      out += m_indent + "  (null)\n";
      return;
    }
    Dumper inner(m_indent + "    ");
    e->VisitFields(inner);
    out += m_indent + "  " + e->GetClassName() + "\n" + inner.out;
  }
  std::string m_indent;
};

}  // namespace

void FillFields(CObject& rec, int seed) {
  Filler filler(seed);
  rec.VisitFields(filler);
}

void FillSmall(CObject& rec, int seed) {
  SmallFiller filler(seed);
  rec.VisitFields(filler);
}

COwnedObList& OwnedList(CObject& rec, const char* name) {
  struct Grabber : CFieldSkipper {
    using CFieldSkipper::Field;
    std::string wanted;
    COwnedObList* list = nullptr;
    void Field(const FieldInfo& f, COwnedObList& v) override {
      if (wanted == f.name) list = &v;
    }
  } grabber;
  grabber.wanted = name;
  rec.VisitFields(grabber);
  if (grabber.list == nullptr) {
    ADD_FAILURE() << "no owned list " << name;
    throw std::out_of_range(name);
  }
  return *grabber.list;
}

std::string DumpFields(CObject& rec) {
  Dumper dumper("");
  rec.VisitFields(dumper);
  return dumper.out;
}

std::vector<std::string> FieldNames(CObject& rec) {
  Dumper dumper("");
  rec.VisitFields(dumper);
  return dumper.names;
}

void SetFields(CObject& rec, std::initializer_list<std::string> fields) {
  for (const std::string& f : fields)
    SetFieldText(rec, f.substr(0, f.find('=')), f.substr(f.find('=') + 1));
}

void ExpectFields(const CObject& rec, std::initializer_list<std::string> fields) {
  for (const std::string& f : fields) {
    std::string got = "<no such field>";
    GetFieldText(rec, f.substr(0, f.find('=')), got);
    EXPECT_EQ(f.substr(f.find('=') + 1), got) << rec.GetClassName() << " " << f;
  }
}

std::vector<BYTE> ExpectRoundTrip(CObject& rec) {
  const std::vector<BYTE> bytes = StoreObject(&rec);
  std::unique_ptr<CObject> loaded;
  std::vector<std::unique_ptr<CObject>> shared;  // keeps shared records alive for the checks
  try {
    CArchive ar(bytes.data(), bytes.size(), rec.GetClassName());
    loaded = ar.ReadOwnedObject(rec.GetRuntimeClass());
    shared = ar.TakeSharedObjects();
  } catch (const std::exception& e) {
    ADD_FAILURE() << "loading a stored " << rec.GetClassName() << " failed: " << e.what();
    return bytes;
  }
  EXPECT_EQ(DumpFields(rec), DumpFields(*loaded)) << rec.GetClassName();
  EXPECT_EQ(Hex(bytes), Hex(StoreObject(loaded.get()))) << rec.GetClassName();
  return bytes;
}

}  // namespace persona::test
