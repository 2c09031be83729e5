// Where records live: CObject's operator new and delete. Built with PERSONA_RECORD_POOL, an
// object of up to 512 bytes comes from a free list of its size class (16-byte steps) of the
// calling thread, or is carved from the thread's current 64 KB slab; a deleted object goes back
// onto the free list of the thread that deletes it. A load then costs a pointer bump per record
// instead of a heap allocation, and freeing a personality costs a pointer write per record.
// Slabs are kept for the life of the process and reused only for records: when a thread ends,
// its pool (slabs, free lists, the rest of its slab) goes to a list of orphans that the next
// new thread adopts, so that threads that come and go do not pile up memory. Without the option
// (the sanitizer build, so that every record is a heap block of its own that ASan can watch) both
// operators are the global ones.
#include <persona/framework/object.h>

#include <mutex>
#include <new>
#include <vector>

namespace persona {

#if PERSONA_RECORD_POOL

namespace {

constexpr std::size_t kStep = 16;
constexpr std::size_t kLargest = 512;
constexpr std::size_t kSlabBytes = 64 * 1024;
static_assert(alignof(std::max_align_t) <= kStep, "pooled objects keep the heap's alignment");

struct FreeBlock {
  FreeBlock* next;
};

class RecordPool {
 public:
  void* Take(std::size_t size) {
    const std::size_t c = Class(size);
    if (FreeBlock* block = m_free[c]) {
      m_free[c] = block->next;
      return block;
    }
    const std::size_t bytes = c * kStep;
    if (static_cast<std::size_t>(m_end - m_cursor) < bytes) NewSlab();
    void* p = m_cursor;
    m_cursor += bytes;
    return p;
  }
  void Give(void* p, std::size_t size) {
    const std::size_t c = Class(size);
    m_free[c] = new (p) FreeBlock{m_free[c]};
  }

 private:
  static std::size_t Class(std::size_t size) { return (size + kStep - 1) / kStep; }

  // A slab starts with the link to the thread's previous slab (kStep bytes, to keep the
  // alignment); the rest is carved. Throws std::bad_alloc.
  void NewSlab() {
    char* slab = static_cast<char*>(::operator new(kSlabBytes));
    *reinterpret_cast<char**>(slab) = m_slabs;
    m_slabs = slab;
    m_cursor = slab + kStep;
    m_end = slab + kSlabBytes;
  }

  FreeBlock* m_free[kLargest / kStep + 1] = {};
  char* m_cursor = nullptr;
  char* m_end = nullptr;
  char* m_slabs = nullptr;
};

// Pools of threads that have ended, waiting for a thread to adopt them.
std::mutex g_orphansMutex;
std::vector<RecordPool>& Orphans() {
  static auto* orphans = new std::vector<RecordPool>;  // outlives every thread's exit
  return *orphans;
}

// A thread's pool: adopted from an ended thread when there is one; orphaned when the thread ends.
struct ThreadPool {
  RecordPool pool;
  ThreadPool() {
    std::lock_guard<std::mutex> lock(g_orphansMutex);
    if (!Orphans().empty()) {
      pool = Orphans().back();
      Orphans().pop_back();
    }
  }
  ~ThreadPool() {
    std::lock_guard<std::mutex> lock(g_orphansMutex);
    Orphans().push_back(pool);
    pool = RecordPool();  // a record freed or made after this (at exit) never touches the orphan
  }
};

RecordPool& ThisThreadsPool() {
  thread_local ThreadPool threadPool;
  return threadPool.pool;
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
