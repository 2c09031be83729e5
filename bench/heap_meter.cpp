// Global operator new / delete that feed HeapMeter, and the resident-memory reading.
#include "heap_meter.h"

#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <new>

namespace persona::bench {
namespace {

bool g_metering = false;
long long g_current = 0;
long long g_peak = 0;

// alignment 0: the heap's own.
void* Allocate(std::size_t size, std::size_t alignment = 0) {
  void* p = nullptr;
  if (alignment == 0) {
    p = std::malloc(size == 0 ? 1 : size);
  } else if (posix_memalign(&p, alignment, size == 0 ? 1 : size) != 0) {
    p = nullptr;
  }
  if (p == nullptr) throw std::bad_alloc();
  if (g_metering) {
    g_current += static_cast<long long>(malloc_usable_size(p));
    if (g_current > g_peak) g_peak = g_current;
  }
  return p;
}

void Free(void* p) {
  if (p == nullptr) return;
  if (g_metering) g_current -= static_cast<long long>(malloc_usable_size(p));
  std::free(p);
}

}  // namespace

HeapMeter::HeapMeter() {
  g_current = 0;
  g_peak = 0;
  g_metering = true;
}

HeapMeter::~HeapMeter() { g_metering = false; }

long long HeapMeter::Current() const { return g_current; }
long long HeapMeter::Peak() const { return g_peak; }

std::size_t ResidentBytes() {
  malloc_trim(0);
  std::FILE* f = std::fopen("/proc/self/statm", "r");
  if (f == nullptr) return 0;
  unsigned long size = 0;
  unsigned long resident = 0;
  const int n = std::fscanf(f, "%lu %lu", &size, &resident);
  std::fclose(f);
  if (n != 2) return 0;
  return static_cast<std::size_t>(resident) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace persona::bench

void* operator new(std::size_t size) { return persona::bench::Allocate(size); }
void* operator new[](std::size_t size) { return persona::bench::Allocate(size); }
void operator delete(void* p) noexcept { persona::bench::Free(p); }
void operator delete[](void* p) noexcept { persona::bench::Free(p); }
void operator delete(void* p, std::size_t) noexcept { persona::bench::Free(p); }
void operator delete[](void* p, std::size_t) noexcept { persona::bench::Free(p); }
// The record pool's slabs are aligned on their size.
void* operator new(std::size_t size, std::align_val_t a) {
  return persona::bench::Allocate(size, static_cast<std::size_t>(a));
}
void operator delete(void* p, std::align_val_t) noexcept { persona::bench::Free(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { persona::bench::Free(p); }
