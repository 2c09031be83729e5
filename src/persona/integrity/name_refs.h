// The name references of a personality: every field that names a system, a set, a channel, a
// group or a P25 wide-area network, found generically through the RefersTo option of the
// records' field descriptions and resolved once against the personality's own lookups (systems
// by exact name, sets ignoring case, elements exactly within the set that holds them). The
// rename and delete propagation and the checker both work from this one list.
#pragma once

#include <persona/export.h>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <persona/framework/fields.h>
#include <persona/personality/personality.h>

namespace persona {

class CSystem;

// One name field (or one entry of a list of names) of one record.
struct PERSONA_EXPORT NameRef {
  std::string path;   // "systems/North/GroupSetName", "systems/North/ScannedSystems/2", ...
  std::string field;  // the field name
  RefKind kind = RefKind::System;
  int setType = -1;              // Set references: the list of the named set; -1 when it has none
  CString* value = nullptr;      // the name field, or null for a list entry
  CStringArray* list = nullptr;  // the list of names that holds the entry
  int index = -1;                // the entry's position in list
  CObject* record = nullptr;     // the record that holds the field
  CSet* holder = nullptr;        // the set the record is or belongs to, if any

  // Resolution against the personality, null when the name is empty or finds nothing.
  CSystem* system = nullptr;  // System references: the named system
  // Set references: the named set. Channel and Group references: the set to look the element
  // up in (the holder, or the channel or group set of the scope system).
  CSet* set = nullptr;
  // Channel and Group references that name their system through another field.
  bool scoped = false;
  CString scopeName;               // that field's value
  CSystem* scopeSystem = nullptr;  // the system it names, or null

  const CString& Name() const { return value != nullptr ? *value : list->GetAt(index); }
  // Replaces the name (list entries in place).
  void Set(const CString& name) const;
};

// Every name reference of p, in the order systems, sets (list by list, each set and then its
// elements), options (and their sub-records). Linear in the size of p. The pointers stay valid
// until a record is added, removed or renamed. Throws std::bad_alloc only.
PERSONA_EXPORT std::vector<NameRef> CollectNameRefs(CPersonality& p);

// What CollectNameRefs gathers beyond the references themselves, and which of them.
struct PERSONA_EXPORT NameRefQuery {
  // Make each reference's path and field name (NameRef::path, NameRef::field), which messages
  // and listings show; carrying a rename or a delete along needs neither.
  bool paths = true;
  // Asked of each reference before any is resolved (its name, kind, set type, holder and scope
  // name are known; system, set and scopeSystem are still null): false leaves it out, so that
  // a search for the few references to one record keeps only those that could name it. Empty
  // keeps every reference.
  std::function<bool(const NameRef&)> keep;
};
// The references of p that query keeps, in the same order, resolved as above.
PERSONA_EXPORT std::vector<NameRef> CollectNameRefs(CPersonality& p, const NameRefQuery& query);

// The short name of a set list in paths ("trunk", "conv", "group", ...); "" for an invalid type.
PERSONA_EXPORT const char* SetListPathName(int type);

// The list a Set reference with setType kGroupSetOfSystem names for a system of this kind
// (trunked: group sets, extended addressing: extended-addressing group sets, P25 trunked: P25
// group sets, messaging: messaging group sets); -1 for other kinds.
PERSONA_EXPORT int GroupSetTypeOfSystem(int systemType);
// The set that holds the channels (kind Channel) or groups (kind Group) of system in p, or
// null when the system has none or its set does not exist.
PERSONA_EXPORT CSet* ElementSetOfSystem(const CPersonality& p, const CSystem& system, RefKind kind);

// True when element is of the element class of set's class (CPersonality::ElementClassOf) or
// derives from it; any element of a set of a class that no list has. Channel and group names
// are looked for only among such elements: a record of another class names no channel or group.
PERSONA_EXPORT bool IsElementOfSet(const CObject& element, const CSet& set);

// Exact element names of sets, each set listed once on first use. The lists view the
// elements' own names: they hold while the sets asked about keep their elements and names.
class PERSONA_EXPORT ElementNames {
 public:
  // Says that Has(set, name) will be asked: the first Has for a set whose every name was
  // expected passes over the set once looking for those names only, instead of listing all of
  // its names. The name is viewed, not copied: it must outlive the questions.
  void Expect(const CSet& set, const CString& name);
  // True when set holds an element of its own element class (IsElementOfSet) named name.
  bool Has(CSet& set, const CString& name);

 private:
  struct Names {
    std::vector<std::string_view> expected;  // before the pass over the set
    std::unordered_set<std::string_view> held;
    bool listed = false;    // held lists every name of the set
    bool searched = false;  // held lists the expected names the set holds
  };
  std::unordered_map<const CSet*, Names> m_names;
};

}  // namespace persona
