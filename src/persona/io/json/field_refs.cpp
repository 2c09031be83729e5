#include <persona/io/json/field_refs.h>

#include <persona/framework/fields.h>

namespace persona {

namespace {

class FieldCollector : public CFieldVisitor {
 public:
  explicit FieldCollector(std::vector<FieldRef>& out) : m_out(out) {}
  void Field(const FieldInfo& f, bool& v) override { Add(f, FieldKind::Bool, &v); }
  void Field(const FieldInfo& f, BYTE& v) override { Add(f, FieldKind::Byte, &v); }
  void Field(const FieldInfo& f, WORD& v) override { Add(f, FieldKind::Word, &v); }
  void Field(const FieldInfo& f, short& v) override { Add(f, FieldKind::Short, &v); }
  void Field(const FieldInfo& f, DWORD& v) override { Add(f, FieldKind::Dword, &v); }
  void Field(const FieldInfo& f, LONG& v) override { Add(f, FieldKind::Long, &v); }
  void Field(const FieldInfo& f, double& v) override { Add(f, FieldKind::Double, &v); }
  void Field(const FieldInfo& f, CString& v) override { Add(f, FieldKind::String, &v); }
  void Field(const FieldInfo& f, CStringArray& v) override { Add(f, FieldKind::Strings, &v); }
  void Field(const FieldInfo& f, CWordArray& v) override { Add(f, FieldKind::Words, &v); }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    Add(f, FieldKind::WordTable, values, count);
  }
  void Field(const FieldInfo& f, COwnedObList& v) override { Add(f, FieldKind::Owned, &v); }
  void Field(const FieldInfo& f, CObList& v) override { Add(f, FieldKind::Shared, &v); }

 private:
  void Add(const FieldInfo& f, FieldKind kind, void* member, std::size_t count = 0) {
    m_out.push_back({f.name, kind, member, count});
  }
  std::vector<FieldRef>& m_out;
};

}  // namespace

void CollectFieldRefs(CObject& rec, std::vector<FieldRef>& out) {
  out.clear();
  FieldCollector collector(out);
  rec.VisitFields(collector);
}

}  // namespace persona
