// Heap accounting for the memory figures of the benchmark run: the benchmark binary replaces
// the global operator new and delete, and while a HeapMeter is alive it follows the bytes
// allocated and freed (by their usable size) and the highest point they reached. Resident
// memory is read from /proc.
#pragma once

#include <cstddef>

namespace persona::bench {

// Follows the heap from its construction to its destruction (one meter at a time; not
// thread-safe, as the benchmark runs on one thread).
class HeapMeter {
 public:
  HeapMeter();
  ~HeapMeter();
  HeapMeter(const HeapMeter&) = delete;
  HeapMeter& operator=(const HeapMeter&) = delete;

  // Bytes allocated minus bytes freed since construction (negative when more was freed).
  long long Current() const;
  // The highest Current() reached so far.
  long long Peak() const;
};

// Resident memory of this process in bytes, after handing free heap pages back to the system
// (0 when /proc cannot be read).
std::size_t ResidentBytes();

}  // namespace persona::bench
