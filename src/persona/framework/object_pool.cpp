// Where records live: CObject's operator new and delete. Built with PERSONA_RECORD_POOL, an
// object of up to 512 bytes comes from a 64 KB slab of its size class (16-byte steps) owned by
// the calling thread's pool: from the slab's free list, else carved from the slab's unused end.
// A deleted object goes back onto the free list of its own slab, so the records a load makes
// next lie together in a few slabs whatever order the previous ones were freed in (one shared
// free list per class, shuffled by copies and prunes, spread a load's records over the whole
// heap). A slab whose blocks have all come back is free for any size class. Slabs are aligned
// on their size, so a block finds its slab by masking its address. A block deleted by a thread
// whose pool does not own its slab goes onto that thread's list of foreign blocks of its class
// and serves that thread's next records. Slabs are kept for the life of the process; when a
// thread ends, its pool goes to a list of orphans that the next new thread adopts, so that
// threads that come and go do not pile up memory. Without the option (the sanitizer build, so
// that every record is a heap block of its own that ASan can watch) both operators are the
// global ones.
#include <persona/framework/object.h>

#include <cstdint>
#include <mutex>
#include <new>
#include <vector>

namespace persona {

#if PERSONA_RECORD_POOL

namespace {

constexpr std::size_t kStep = 16;
constexpr std::size_t kLargest = 512;
constexpr std::size_t kClasses = kLargest / kStep + 1;
constexpr std::size_t kSlabBytes = 64 * 1024;
constexpr std::size_t kChunkSlabs = 16;
constexpr std::size_t kChunkBytes = kChunkSlabs * kSlabBytes;
static_assert(alignof(std::max_align_t) <= kStep, "pooled objects keep the heap's alignment");

struct FreeBlock {
  FreeBlock* next;
};

class RecordPool;

// The head of a slab; its blocks follow, all of one size class.
struct Slab {
  const RecordPool* owner;
  // Blocks handed out and not yet back, less those taken while the slab is its class's current
  // one (SizeClass::taken); the difference can wrap round until the two are added.
  std::size_t live;
  FreeBlock* free;
  char* cursor;
  // Links in the owner's list of slabs of the class with blocks to give (not the current one).
  Slab* prev;
  Slab* next;
  bool listed;
};

constexpr std::size_t kHeadBytes = (sizeof(Slab) + kStep - 1) / kStep * kStep;

Slab* SlabOf(void* p) {
  return reinterpret_cast<Slab*>(reinterpret_cast<std::uintptr_t>(p) & ~(kSlabBytes - 1));
}

std::size_t ClassOf(std::size_t size) { return (size + kStep - 1) / kStep; }

// What a pool holds for one size class: the slab it takes blocks from, with that slab's free
// list and carving cursor held here so that a take touches the pool alone, and the blocks of
// other pools' slabs that this thread deleted.
struct SizeClass {
  Slab* slab = nullptr;
  FreeBlock* free = nullptr;
  char* cursor = nullptr;
  char* end = nullptr;
  std::size_t taken = 0;
  FreeBlock* foreign = nullptr;
  Slab* partial = nullptr;  // slabs of the class, not the current one, with blocks given back
};

class RecordPool {
 public:
  // Returns a block of at least size bytes; throws std::bad_alloc.
  void* Take(std::size_t size) {
    const std::size_t c = ClassOf(size);
    SizeClass& k = m_classes[c];
    if (FreeBlock* block = k.foreign) {
      k.foreign = block->next;
      return block;
    }
    if (k.free == nullptr && static_cast<std::size_t>(k.end - k.cursor) < c * kStep) {
      MakeCurrent(k, NextSlab(k));
    }
    ++k.taken;
    if (FreeBlock* block = k.free) {
      k.free = block->next;
      return block;
    }
    void* p = k.cursor;
    k.cursor += c * kStep;
    return p;
  }

  void Give(void* p, std::size_t size) {
    Slab* s = SlabOf(p);
    SizeClass& k = m_classes[ClassOf(size)];
    if (s->owner != this) {
      k.foreign = new (p) FreeBlock{k.foreign};
      return;
    }
    --s->live;
    if (s == k.slab) {
      k.free = new (p) FreeBlock{k.free};
      return;
    }
    s->free = new (p) FreeBlock{s->free};
    if (s->live == 0) {
      Unlist(k, s);
      s->next = m_empty;
      m_empty = s;
    } else if (!s->listed) {
      List(k, s);
    }
  }

 private:
  // Hands the current slab of k back to its head (it has no room left: it is listed again when
  // a block of it comes back) and takes s in its place.
  static void MakeCurrent(SizeClass& k, Slab* s) {
    if (Slab* old = k.slab) {
      old->live += k.taken;
      old->free = k.free;
      old->cursor = k.cursor;
    }
    k.slab = s;
    k.free = s->free;
    s->free = nullptr;
    k.cursor = s->cursor;
    k.end = reinterpret_cast<char*>(s) + kSlabBytes;
    k.taken = 0;
  }

  // A slab of k's class with room: one that had blocks given back, else an empty one, else a
  // new one. Throws std::bad_alloc.
  Slab* NextSlab(SizeClass& k) {
    if (Slab* s = k.partial) {
      Unlist(k, s);
      return s;
    }
    void* raw = m_empty;
    if (raw != nullptr) {
      m_empty = m_empty->next;
    } else {
      raw = NewSlabMemory();
    }
    char* const blocks = static_cast<char*>(raw) + kHeadBytes;
    return new (raw) Slab{this, 0, nullptr, blocks, nullptr, nullptr, false};
  }

  // Slabs are cut from aligned chunks of kChunkSlabs: one aligned heap block per slab would
  // leave a gap before each, whose free-block bookkeeping keeps a page of every gap resident.
  // Throws std::bad_alloc.
  void* NewSlabMemory() {
    if (m_chunkSlabsLeft == 0) {
      m_chunk = static_cast<char*>(::operator new (kChunkBytes, std::align_val_t{kSlabBytes}));
      m_chunkSlabsLeft = kChunkSlabs;
    }
    --m_chunkSlabsLeft;
    void* slab = m_chunk;
    m_chunk += kSlabBytes;
    return slab;
  }

  static void List(SizeClass& k, Slab* s) {
    s->prev = nullptr;
    s->next = k.partial;
    if (k.partial != nullptr) k.partial->prev = s;
    k.partial = s;
    s->listed = true;
  }

  static void Unlist(SizeClass& k, Slab* s) {
    if (!s->listed) return;
    if (s->prev != nullptr) {
      s->prev->next = s->next;
    } else {
      k.partial = s->next;
    }
    if (s->next != nullptr) s->next->prev = s->prev;
    s->listed = false;
  }

  SizeClass m_classes[kClasses];
  Slab* m_empty = nullptr;
  char* m_chunk = nullptr;  // the next uncut slab of the current chunk
  std::size_t m_chunkSlabsLeft = 0;
};

// Pools of threads that have ended, waiting for a thread to adopt them.
std::mutex g_orphansMutex;
std::vector<RecordPool*>& Orphans() {
  static auto* orphans = new std::vector<RecordPool*>;  // outlives every thread's exit
  return *orphans;
}

// A thread's pool: adopted from an ended thread when there is one; orphaned when the thread
// ends. A record made or freed after that (at exit) goes through a spare pool of the thread's
// own, so that it never touches the orphan.
struct ThreadPool {
  RecordPool* pool = nullptr;
  RecordPool spare;
  ThreadPool() {
    std::lock_guard<std::mutex> lock(g_orphansMutex);
    if (!Orphans().empty()) {
      pool = Orphans().back();
      Orphans().pop_back();
    } else {
      pool = new RecordPool;
    }
  }
  ~ThreadPool() {
    std::lock_guard<std::mutex> lock(g_orphansMutex);
    Orphans().push_back(pool);
    pool = &spare;
  }
};

RecordPool& ThisThreadsPool() {
  thread_local ThreadPool threadPool;
  return *threadPool.pool;
}

}  // namespace

void* CObject::operator new(std::size_t size) {
  return size <= kLargest ? ThisThreadsPool().Take(size) : ::operator new(size);
}

void CObject::operator delete(void* p, std::size_t size) noexcept {
  if (p == nullptr) return;
  if (size <= kLargest) {
    ThisThreadsPool().Give(p, size);
  } else {
    ::operator delete(p);
  }
}

#else

void* CObject::operator new(std::size_t size) { return ::operator new(size); }

void CObject::operator delete(void* p, std::size_t) noexcept { ::operator delete(p); }

#endif

}  // namespace persona
