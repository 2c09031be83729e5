// CPersonality: the root record of one radio's programming. It owns the option records (at
// most one per option class), the systems of every kind and eleven lists of sets, and carries
// the header fields (name, description, who saved it and when, content version, frequency
// limits, the radio types it is for). Serializing it is the personality file.
//
// Ownership: every record in every list belongs to the personality; pointer-taking operations
// take ownership unless they say otherwise. The key lists of trunk and group sets point to
// CEskData records that the sets do not own: the personality keeps such records alive in its
// store of shared records (the ones a load reads, the ones GetSharedEskList makes, and the ones
// handed over with AdoptSharedRecords) until Delete or destruction. A copy of a personality
// shares that store with its source, so copied key lists stay valid.
//
// Lookups: set lookups by name ignore letter case (first match in list order), GetSystem is
// exact, FindSystemIndex ignores trailing blanks but not case. All three answer from an index
// that is rebuilt in one pass only after a list changed or a record was renamed.
#pragma once

#include <persona/export.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <persona/core/serial.h>
#include <persona/core/set.h>
#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/personality/personality_name_index.h>

namespace persona {

class CSystem;
class CTrunkSystem;
class CExtAddSystem;
class CEskData;

class PERSONA_EXPORT CPersonality : public CSerial {
  DECLARE_SERIAL(CPersonality)
 public:
  // Content version written by this library.
  static constexpr WORD kCurrentVersion = 20;

  // Empty personality: version 20, limits Tx 806.0 to 825.0 and Rx 850.0 to 870.0 MHz, last
  // radio 1, no radio types.
  CPersonality();
  // As the default, except: all four limits 0.0, last radio radioType, and radioType in the
  // radio type list. The second argument is ignored.
  CPersonality(unsigned short radioType, int reducedDefaults);
  // As the default, with the name set.
  explicit CPersonality(const CString& name);
  // Copies the header fields (not the state string, the number of group names, the stored
  // schema or the loaded flag), then deep copies of the systems, sets and options of the known
  // classes (AddSystems, AddSets, AddOptions).
  CPersonality(const CPersonality& src);
  // Assigning a personality to itself (or null) does nothing. Otherwise copies the header
  // fields as the copy constructor does, but APPENDS src's radio types to this list (repeats
  // included), then empties this personality (Delete) and adds deep copies of src's systems,
  // sets and options. Returns this personality.
  CPersonality& operator=(const CPersonality* src);
  CPersonality& operator=(const CPersonality& src) { return *this = &src; }
  // Releases everything, as Delete does.
  ~CPersonality() override;

  // The size in bytes of this personality's archive when it was last loaded or stored into
  // memory (LoadPersonalityBytes, StorePersonalityBytes), 0 before: the next store makes room
  // for about that much at once instead of growing its buffer step by step. Not copied; may be
  // read and noted by several threads at once.
  std::size_t GetArchiveSizeHint() const { return m_archiveSize.load(std::memory_order_relaxed); }
  void NoteArchiveSize(std::size_t bytes) const {
    m_archiveSize.store(bytes, std::memory_order_relaxed);
  }

  // ---- header ------------------------------------------------------------------------------
  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  CString GetDescription() const { return m_Description; }
  void SetDescription(CString v) { m_Description = std::move(v); }
  CString GetSavedOn() const { return m_SavedOn; }
  void SetSavedOn(CString v) { m_SavedOn = std::move(v); }
  CString GetSavedBy() const { return m_SavedBy; }
  void SetSavedBy(CString v) { m_SavedBy = std::move(v); }
  unsigned short GetVersion() const { return m_Version; }
  void SetVersion(unsigned short version) { m_Version = version; }
  // Application state, held in memory only.
  DWORD GetCurrentState() const { return m_CurrentState; }
  void SetCurrentState(DWORD v) { m_CurrentState = v; }
  DWORD GetStateValue() const { return m_StateValue; }
  void SetStateValue(unsigned short v) { m_StateValue = v; }
  CString GetStateString() const { return m_StateString; }
  void SetStateString(CString v) { m_StateString = std::move(v); }
  double GetTxMinFreq() const { return m_TxMinFreq; }
  void SetTxMinFreq(double v) { m_TxMinFreq = v; }
  double GetRxMinFreq() const { return m_RxMinFreq; }
  void SetRxMinFreq(double v) { m_RxMinFreq = v; }
  double GetTxMaxFreq() const { return m_TxMaxFreq; }
  void SetTxMaxFreq(double v) { m_TxMaxFreq = v; }
  double GetRxMaxFreq() const { return m_RxMaxFreq; }
  void SetRxMaxFreq(double v) { m_RxMaxFreq = v; }
  unsigned short GetLastRadio() const { return m_LastRadio; }
  void SetLastRadio(unsigned short radioType) { m_LastRadio = radioType; }
  // Counts kept for the application, held in memory only.
  WORD GetNumFreqs() const { return m_NumFreqs; }
  void SetNumFreqs(WORD v) { m_NumFreqs = v; }
  WORD GetNumGrpNames() const { return m_NumGrpNames; }
  void SetNumGrpNames(WORD v) { m_NumGrpNames = v; }
  // Schema of the personality as last read from an archive (255 when it had none; 0 when never
  // loaded), and whether it was read from an archive at all.
  BYTE GetStoredSchema() const { return m_storedSchema; }
  bool IsLoaded() const { return m_loaded != 0; }

  // Appends radioType unless the list holds it already.
  void AddRadioType(unsigned short radioType);
  int GetNumRadioTypes() const { return m_RadioTypes.GetSize(); }
  // The code at i; i outside 0 .. count-1 raises CInvalidArgException.
  unsigned short GetRadioTypeAt(int i) const { return m_RadioTypes.GetAt(i); }

  // ---- options: one record per class NAME (exact, case-sensitive) --------------------------
  // Appends option and takes ownership, unless a record of the same class name is held (then
  // nothing happens and the caller still owns option). Null is ignored.
  void PutOption(CObject* option);
  // The first record whose class name equals cls's (exact, case-sensitive), of whatever base
  // (options, key records, macros, status messages, tone sequences), or null; the personality
  // keeps ownership.
  CObject* GetOption(const CRuntimeClass* cls) const;
  // GetOption(RUNTIME_CLASS(T)) as a T*; null also when the record of that name is not a T.
  template <class T>
  T* GetOption() const {
    return dynamic_cast<T*>(GetOption(T::GetThisClass()));
  }
  // The same as GetOption(cls).
  CObject* FindOption(const CRuntimeClass* cls) const;
  // Removes and deletes the first record of cls's class name; nothing when there is none.
  void DeleteOption(const CRuntimeClass* cls);
  int GetNumOptions() const { return m_options.GetCount(); }
  // The option record at i (still owned here), or null when i is outside the list.
  CObject* GetOptionAt(int i) const;

  // ---- systems -----------------------------------------------------------------------------
  // Appends system and takes ownership (null is ignored).
  void AddSystem(CSystem* system);
  // For i below the count, inserts system before position i (a negative i: at the front), takes
  // ownership and returns true. For i at or beyond the count returns false and the caller keeps
  // system.
  bool InsertSystemAt(int i, CSystem* system);
  // Removes and deletes the system at i; i at or beyond the count does nothing; a negative i
  // raises CInvalidArgException.
  void DeleteSystemAt(int i);
  // The system at i (still owned here), or null when i is outside the list or the record there
  // is not a system (a file may hold a record of any class in the list).
  CSystem* GetSystemAt(int i) const;
  // The record at i of the system list, of whatever class (still owned here), or null when i
  // is outside the list.
  CObject* GetSystemRecordAt(int i) const;
  // The i-th system (from 0) whose type byte is type, in list order, or null.
  CSystem* GetSystemAt(int i, SystemType type) const;
  WORD GetNumSystems() const { return static_cast<WORD>(m_systems.GetCount()); }
  // Number of systems whose type byte is type.
  WORD GetNumSystems(SystemType type) const;
  WORD GetNumTrkSystems() const { return GetNumSystems(TrunkedSystemType); }
  WORD GetNumCnvSystems() const { return GetNumSystems(ConvSystemType); }
  WORD GetNumPlmSystems() const { return GetNumSystems(PlmSystemType); }
  WORD GetNumP25CnvSystems() const { return GetNumSystems(P25ConvSystemType); }
  WORD GetNumEaSystems() const { return GetNumSystems(EaSystemType); }
  WORD GetNumP25TrkSystems() const { return GetNumSystems(P25TrkSystemType); }
  // The first system whose name equals name exactly (case and trailing blanks count), or null.
  CSystem* GetSystem(const CString& name) const;
  // Position of the first system whose name equals name once trailing white space is trimmed
  // from both (case counts), or -1.
  int FindSystemIndex(const CString& name) const;
  // Empties names, then appends every system's name in list order (an empty name for a record
  // of another class, so that positions match the list).
  void GetSystemNames(CStringArray& names) const;
  // Empties names, then appends the names of the groups of the group set that the system named
  // systemName (found as GetSystem finds it) uses: a trunked system's group set, an
  // extended-addressing system's extended-addressing group set, a P25 trunked system's P25
  // group set, a messaging system's messaging group set. Other kinds, an unknown system or an
  // unknown set leave names empty. Element names are the elements' "Name" field.
  void GetSystemGroupNames(const CString& systemName, CStringArray& names) const;
  // As GetSystemGroupNames for the channels of the channel set that the system uses: a
  // conventional system's conventional set, a P25 conventional system's P25 conventional set.
  // Trunked and messaging systems have no named channels and leave names empty.
  void GetSystemChannelNames(const CString& systemName, CStringArray& names) const;

  // ---- sets (a type outside 0 .. 10 is never taken and never found) ------------------------
  // Appends set to list type and takes ownership; null or an invalid type: not taken.
  void AddSet(CSet* set, SetType type);
  // When list type holds a set of the same name (ignoring case; first match at k), empties
  // that old set element by element from the front with CSet::DeleteAt(0), deletes it and puts
  // set at k. Otherwise appends set. Takes ownership either way (not for null or an invalid
  // type). Putting back the very set that is held at k changes nothing.
  void PutSet(CSet* set, SetType type);
  // When list type is not empty, puts set at i and returns the set that was there, which the
  // caller now owns (a record there that is no set is deleted here: null); an invalid i raises
  // CInvalidArgException and set stays with the caller. On an empty list, for null or an invalid
  // type nothing happens and null is returned; putting a set at its own position returns null.
  CSet* PutSetAt(int i, CSet* set, SetType type);
  // When list type holds a set named name (ignoring case), set takes its place and the old set
  // is emptied with CSet::Delete and deleted; otherwise set is appended. Takes ownership (not
  // for null or an invalid type).
  void ReplaceSet(const CString& name, SetType type, CSet* set);
  // The first set named name ignoring case (still owned here); null when none or name is empty.
  CSet* GetSet(const CString& name, SetType type) const;
  // The set at i of list type (still owned here); null when i is outside the list or the record
  // there is not a set (a file may hold a record of any class in the list).
  CSet* GetSetAt(int i, SetType type) const;
  // The record at i of list type, of whatever class (still owned here), or null when i is
  // outside the list or type is invalid.
  CObject* GetSetRecordAt(int i, SetType type) const;
  // 0-based position of the first set named name ignoring case; -1 when none or name is empty.
  int FindSetIndex(const CString& name, SetType type) const;
  // 1-based number of the first set named name ignoring case (an empty name is searched like
  // any other); 0 when none.
  int FindSetNum(const CString& name, SetType type) const;
  // Scope byte of the first set named name ignoring case; -1 when none or name is empty.
  int GetSetScope(const CString& name, SetType type) const;
  // Removes the set at i, empties it with CSet::Delete and deletes it; i at or beyond the count
  // does nothing; a negative i raises CInvalidArgException.
  void DeleteSetAt(int i, SetType type);
  // Number of sets in list type.
  WORD GetNumSets(SetType type) const;
  // Sum of GetSize() over the sets of list type, in 16-bit arithmetic (wraps above 65535).
  WORD GetNumElements(SetType type) const;
  // Empties names, then appends the name of every set of list type in list order (an empty name
  // for a record that is not a set, so that positions match the list).
  void GetSetNames(SetType type, CStringArray& names) const;

  WORD GetNumTrkSets() const { return GetNumSets(TrunkSetType); }
  WORD GetNumCnvSets() const { return GetNumSets(ConvSetType); }
  WORD GetNumGrpSets() const { return GetNumSets(GroupSetType); }
  WORD GetNumPhoneSets() const { return GetNumSets(PhoneSetType); }
  WORD GetNumICallSets() const { return GetNumSets(ICallSetType); }
  WORD GetNumSpCallSets() const { return GetNumSets(SpCallSetType); }
  WORD GetNumPlmGrpSets() const { return GetNumSets(PlmGroupSetType); }
  WORD GetNumPlmSpCallSets() const { return GetNumSets(PlmSpCallSetType); }
  WORD GetNumP25CnvSets() const { return GetNumSets(P25ConvSetType); }
  WORD GetNumP25GrpSets() const { return GetNumSets(P25GroupSetType); }
  WORD GetNumEaGrpSets() const { return GetNumSets(EaGroupSetType); }
  WORD GetNumTrunkChans() const { return GetNumElements(TrunkSetType); }
  WORD GetNumConvChans() const { return GetNumElements(ConvSetType); }
  WORD GetNumGroups() const { return GetNumElements(GroupSetType); }
  WORD GetNumPhoneCalls() const { return GetNumElements(PhoneSetType); }
  WORD GetNumICalls() const { return GetNumElements(ICallSetType); }
  WORD GetNumSpCalls() const { return GetNumElements(SpCallSetType); }
  WORD GetNumPlmGroups() const { return GetNumElements(PlmGroupSetType); }
  WORD GetNumPlmSpCalls() const { return GetNumElements(PlmSpCallSetType); }
  WORD GetNumP25ConvChans() const { return GetNumElements(P25ConvSetType); }
  WORD GetNumP25Groups() const { return GetNumElements(P25GroupSetType); }
  WORD GetNumEaGroups() const { return GetNumElements(EaGroupSetType); }
  void GetTrunkSetNames(CStringArray& names) const { GetSetNames(TrunkSetType, names); }
  void GetConvSetNames(CStringArray& names) const { GetSetNames(ConvSetType, names); }
  void GetGroupSetNames(CStringArray& names) const { GetSetNames(GroupSetType, names); }
  void GetPhoneSetNames(CStringArray& names) const { GetSetNames(PhoneSetType, names); }
  void GetICallSetNames(CStringArray& names) const { GetSetNames(ICallSetType, names); }
  void GetP25GroupSetNames(CStringArray& names) const { GetSetNames(P25GroupSetType, names); }
  void GetEaGroupSetNames(CStringArray& names) const { GetSetNames(EaGroupSetType, names); }

  // The set class that list type holds ("CTrunkSet", ...), or null for an invalid type.
  static const char* SetClassName(SetType type);
  // The element class that the set class of list type holds ("CTrunkChannel", "CConvChannel",
  // "CGroup", ..., "CExtAddGroup" for the extended-addressing list), or null for an invalid
  // type. A set may still hold elements of other classes (CSet::Add takes any record).
  static const char* ElementClassName(SetType type);
  // The registered element class that set's class holds: that of the list whose set class it is
  // (CGroup for a CGroupSet, CExtAddGroup for a CExtAddGroupSet, wherever the set is), or null
  // for a set of a class that no list has.
  static const CRuntimeClass* ElementClassOf(const CSet& set);
  // The registered class of list type's set class, or CSet's when that class is not registered;
  // null for an invalid type. A list may still hold sets of other classes (AddSet takes any set,
  // a load any record).
  static const CRuntimeClass* SetClassOf(SetType type);

  // ---- security keys -----------------------------------------------------------------------
  // Empties list (without deleting what it held) and, only when the last radio is one of the
  // keyed radio types (68, 69, 70, 80, 88 to 90, 92, 94 to 97, 101 to 106), appends a new
  // CEskData for every trunked or extended-addressing system (type byte 0 or 4) whose key
  // number is not 0. THE CALLER OWNS the new records and must delete them (MakeEskList and
  // GetSharedEskList manage that for you).
  void GetEskList(CObList& list) const;
  // The same records as GetEskList, owned by the returned vector.
  std::vector<std::unique_ptr<CEskData>> MakeEskList() const;
  // As GetEskList, but the personality keeps the new records in its shared store (alive until
  // Delete or destruction): use this list for the key lists of sets.
  void GetSharedEskList(CObList& list);
  // Takes records that sets' key lists refer to into the shared store (see the file comment).
  void AdoptSharedRecords(std::vector<std::unique_ptr<CObject>> records);
  // Position of the first CEskData of list whose name equals eskId (case-sensitive) and whose
  // number equals esk; -1 when none. Entries of other classes are skipped.
  static int matchEsk(LONG esk, const CString& eskId, const CObList& list);
  // True when the system's key number is 0 or its key is in list (null system: true).
  bool IsEskPresentInSystem(const CSystem* system, const CObList& list) const;
  bool IsEskPresentInSystem(const CTrunkSystem* system, const CObList& list) const;
  bool IsEskPresentInSystem(const CExtAddSystem* system, const CObList& list) const;
  // False when a trunked or extended-addressing system (type byte 0 or 4) whose trunk set name
  // equals set's name (case-sensitive) has a key missing from list; true otherwise.
  bool IsEskPresentInTrkSet(const CSet* set, const CObList& list) const;
  // As IsEskPresentInTrkSet over the systems of type 0, 4 or 5 and their group set name.
  bool IsEskPresentInGrpSet(const CSet* set, const CObList& list) const;
  // As IsEskPresentInTrkSet over the conventional (type 1) and P25 conventional (type 3)
  // systems and their channel set name.
  bool IsEskPresentInConvSet(const CSet* set, const CObList& list) const;
  // Empties both arrays, then for every system of type 0 or 4 whose key name is not empty
  // appends the name and the key number (the arrays stay parallel). Any radio type.
  void GetSecurityKeys(CStringArray& names, CWordArray& numbers) const;

  // ---- pruning (defined in integrity/personality_prune.cpp) ---------------------------------
  // Strips what the last radio type cannot use and what nothing refers to: removes the system
  // kinds the radio type does not support (messaging unless 65, 66, 67, 85, 86; trunked for 27
  // to 30, 33, 52; P25 trunked, with the CP25tWanOpts record, unless 101 to 106; P25
  // conventional and extended-addressing trunked unless 88, 89, 92, 101 to 106; conventional,
  // with every conventional set, for 72 to 75), then every set that no remaining system names
  // (and every record of a set list that is not a set, which nothing can name).
  // Always returns true.
  bool RemoveUnusedSystemsAndSets();
  // Removes every system whose type byte is systemType, after emptying the name fields of the
  // other records that refer to those systems; the others keep their order. Returns how many
  // were removed.
  int RemoveSystems(int systemType);
  // Each removes the sets of one list that no system of the kinds consulted for that list
  // names (names compared ignoring case); returns how many were removed. Conventional sets
  // named by CGenRadioOpts' CnvTestSet and P25 group sets named by a P25 conventional set stay.
  int RemoveUnusedConvSets();
  int RemoveUnusedTrunkedSets();
  int RemoveUnusedP25ConvSets();
  int RemoveUnusedGroupSets();
  int RemoveUnusedEaGroupSets();
  int RemoveUnusedP25GroupSets();
  int RemoveUnusedPhoneSets();
  int RemoveUnusedIcallSets();
  int RemoveUnusedSpcallSets();
  int RemoveUnusedPlmGroupSets();
  int RemoveUnusedPlmSpcallSets();
  // Deletes every conventional set; returns how many there were.
  int RemoveAllConventionalSets();
  // 1 when a system of a kind consulted for list type names a set called name (ignoring case),
  // else 0 (also for an empty name or an invalid type).
  int checkForSystemReferencesToSet(const CString& name, SetType type);

  // ---- life cycle and archive --------------------------------------------------------------
  // Deletes the systems; then the sets of the trunk, group, extended-addressing group, phone,
  // individual call, special call, conventional, messaging group, P25 conventional, P25 group
  // and messaging special call lists (each emptied with CSet::Delete, then deleted); then the
  // options (each record's own Delete, then deleted); last the shared records. The header and
  // the radio types stay.
  void Delete() override;
  // Tone encoding triggers of files older than version 17: see RemapToneEncodeTriggers.
  void ReMapToneEncTriggers();
  // Header text, radio types, ten lists, the header fields, then the P25 group, P25
  // conventional and extended-addressing group set lists. Loading reads the last three by the
  // stored schema (2 and 3 on) and applies the load repairs; archive faults propagate
  // (CArchiveException) and leave the personality emptied as by Delete (no systems, sets,
  // options or key records; header fields may hold what was read).
  void Serialize(CArchive& ar) override;

  // The header fields and the lists, in declaration order (run-time access; Serialize has its
  // own order). Lists hold owned records.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Description", m_Description);
    v("SavedOn", m_SavedOn);
    v("SavedBy", m_SavedBy);
    v("Version", m_Version);
    v("CurrentState", m_CurrentState, Transient{});
    v("StateValue", m_StateValue, Transient{});
    v("StateString", m_StateString, Transient{});
    v("RadioTypes", m_RadioTypes);
    v("TxMinFreq", m_TxMinFreq);
    v("RxMinFreq", m_RxMinFreq);
    v("TxMaxFreq", m_TxMaxFreq);
    v("RxMaxFreq", m_RxMaxFreq);
    v("LastRadio", m_LastRadio);
    v("NumFreqs", m_NumFreqs, Transient{});
    v("NumGrpNames", m_NumGrpNames, Transient{});
    v("Systems", m_systems);
    v("TrunkSets", m_sets[TrunkSetType]);
    v("GroupSets", m_sets[GroupSetType]);
    v("PhoneSets", m_sets[PhoneSetType]);
    v("ICallSets", m_sets[ICallSetType]);
    v("SpCallSets", m_sets[SpCallSetType]);
    v("ConvSets", m_sets[ConvSetType]);
    v("PlmGroupSets", m_sets[PlmGroupSetType]);
    v("PlmSpCallSets", m_sets[PlmSpCallSetType]);
    v("Options", m_options);
    v("P25GroupSets", m_sets[P25GroupSetType], Since{2});
    v("P25ConvSets", m_sets[P25ConvSetType], Since{2});
    v("EaGroupSets", m_sets[EaGroupSetType], Since{3});
  }
  // Hands the fields to v; a visitor may change lists or names, so the indexes are dropped.
  void VisitFields(CFieldVisitor& v) override;

 protected:
  // Appends copies (made with the class's copy constructor) of src's systems of the classes
  // CTrunkSystem, CConvSystem, CPlmSystem, CP25ConvSystem, CExtAddSystem and CP25TrkSystem, in
  // source order; systems of other classes are skipped.
  void AddSystems(const CPersonality* src);
  // Appends to each set list copies of src's sets of that list, made with the copy constructor
  // of the list's set class (registered by name). A set of another class becomes a new set of
  // the list's class holding its set part (name, element copies, type, scope, as CSet's
  // assignment copies them); a record that is no set, or a list whose class is not registered,
  // is skipped. Shares src's store of shared records.
  void AddSets(const CPersonality* src);
  // Appends copies of src's option records whose class is one of the option classes known to
  // the merge, in source order, without the one-per-class check of PutOption.
  void AddOptions(const CPersonality* src);

 private:
  void CopyHeaderFrom(const CPersonality& src);
  void InvalidateIndexes();
  int FirstSetMatch(const CString& name, SetType type) const;
  void EmptySetList(SetType type);
  int FindOptionIndex(const CRuntimeClass* cls) const;
  void StoreTo(CArchive& ar);
  void LoadFrom(CArchive& ar);
  void LoadList(CArchive& ar, COwnedObList& list);
  void CorrectBandEdges();
  void AdoptShared(CArchive& ar);
  void ShareRecordsOf(const CPersonality& src);
  // Deletes the sets of list type that are not used (integrity/personality_prune.cpp).
  int RemoveUnusedSets(SetType type);
  // RemoveSystems for every kind in systemTypes at once: one pass over the name references
  // for them all (integrity/personality_prune.cpp).
  int RemoveSystemsOfKinds(const std::vector<int>& systemTypes);

  BYTE m_storedSchema = 0;
  BYTE m_loaded = 0;
  CString m_Name;
  CString m_Description;
  CString m_SavedOn;
  CString m_SavedBy;
  WORD m_Version = kCurrentVersion;
  DWORD m_CurrentState = 0;
  DWORD m_StateValue = 0;
  CString m_StateString;
  CWordArray m_RadioTypes;
  double m_TxMinFreq = 806.0;
  double m_RxMinFreq = 850.0;
  double m_TxMaxFreq = 825.0;
  double m_RxMaxFreq = 870.0;
  WORD m_LastRadio = 1;
  WORD m_NumFreqs = 0;
  WORD m_NumGrpNames = 0;

  COwnedObList m_systems;
  COwnedObList m_sets[kNumSetTypes];
  COwnedObList m_options;
  std::vector<std::shared_ptr<CObject>> m_sharedRecords;

  mutable FirstMatchIndex m_setIndex[kNumSetTypes];
  mutable FirstMatchIndex m_systemIndex;
  mutable FirstMatchIndex m_systemTrimmedIndex;
  mutable std::atomic<std::size_t> m_archiveSize{0};
};

}  // namespace persona
