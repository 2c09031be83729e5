// Where records live: a block of any size, pooled or not, holds its bytes apart from every other
// block, with the heap's alignment, and can be freed and taken again; pooled, blocks freed in any
// order are taken again from few slabs, an emptied slab serves any size, and a block deleted on
// another thread is not lost.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include <persona/framework/object.h>

namespace persona {
namespace {

struct Block {
  unsigned char* at;
  std::size_t size;
  unsigned char fill;
};

// Takes two blocks of every size from 1 to past the largest pooled size, each filled with its
// own byte.
std::vector<Block> TakeBlocks() {
  std::vector<Block> blocks;
  for (std::size_t size = 1; size <= 600; ++size) {
    for (int copy = 0; copy < 2; ++copy) {
      const auto fill = static_cast<unsigned char>(blocks.size() % 251 + 1);
      auto* at = static_cast<unsigned char*>(CObject::operator new(size));
      std::memset(at, fill, size);
      blocks.push_back({at, size, fill});
    }
  }
  return blocks;
}

// The number of blocks whose bytes another block wrote over or whose address is misaligned.
int DamagedBlocks(const std::vector<Block>& blocks) {
  int damaged = 0;
  for (const Block& b : blocks) {
    bool intact = reinterpret_cast<std::uintptr_t>(b.at) % alignof(std::max_align_t) == 0;
    for (std::size_t i = 0; intact && i < b.size; ++i) intact = b.at[i] == b.fill;
    damaged += intact ? 0 : 1;
  }
  return damaged;
}

TEST(RecordAllocation, BlocksOfEverySizeKeepTheirBytesApartAndAreTakenAgainAfterDelete) {
  for (int round = 0; round < 2; ++round) {
    const std::vector<Block> blocks = TakeBlocks();
    EXPECT_EQ(DamagedBlocks(blocks), 0) << "round " << round;
    for (const Block& b : blocks) CObject::operator delete(b.at, b.size);
  }
}

#if PERSONA_RECORD_POOL

std::vector<void*> TakeMany(std::size_t n, std::size_t size) {
  std::vector<void*> blocks(n);
  for (void*& p : blocks) p = CObject::operator new(size);
  return blocks;
}

void GiveAll(const std::vector<void*>& blocks, std::size_t size) {
  for (void* p : blocks) CObject::operator delete(p, size);
}

// The 64 KB slab that a block lies in, and those of blocks.
std::uintptr_t SlabOf(const void* p) {
  return reinterpret_cast<std::uintptr_t>(p) & ~std::uintptr_t{0xFFFF};
}
std::set<std::uintptr_t> SlabsOf(const std::vector<void*>& blocks) {
  std::set<std::uintptr_t> slabs;
  for (void* p : blocks) slabs.insert(SlabOf(p));
  return slabs;
}

TEST(RecordPool, BlocksFreedInShuffledOrderAreTakenAgainFromOneSlabAtATime) {
  std::vector<void*> blocks = TakeMany(20000, 64);
  std::shuffle(blocks.begin(), blocks.end(), std::mt19937(7));
  GiveAll(blocks, 64);
  const std::vector<void*> again = TakeMany(1000, 64);
  EXPECT_LE(SlabsOf(again).size(), 2U);
  GiveAll(again, 64);
}

TEST(RecordPool, SlabsWhoseBlocksAllCameBackServeAnotherSize) {
  const std::vector<void*> small = TakeMany(5000, 48);
  const std::set<std::uintptr_t> emptied = SlabsOf(small);
  GiveAll(small, 48);
  const std::vector<void*> large = TakeMany(5000, 304);
  std::size_t reused = 0;
  for (std::uintptr_t slab : SlabsOf(large)) reused += emptied.count(slab);
  GiveAll(large, 304);
  // All but the small size's current slab, which keeps serving that size.
  EXPECT_EQ(reused, emptied.size() - 1);
}

// Whether the blocks lie apart, each inside the block area of its slab (past the slab's head).
bool ApartInsideTheirSlabs(std::vector<void*> blocks, std::size_t size) {
  std::sort(blocks.begin(), blocks.end());
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const auto at = reinterpret_cast<std::uintptr_t>(blocks[i]);
    if ((at & 0xFFFF) < 64 || (at & 0xFFFF) + size > 0x10000) return false;
    if (i > 0 && at < reinterpret_cast<std::uintptr_t>(blocks[i - 1]) + size) return false;
  }
  return true;
}

// Full slabs that get a block back line up to serve again, are taken, fill up, empty and line
// up once more: through all of it no block is handed out twice or outside its slab.
TEST(RecordPool, SlabsThatLineUpServeAgainAndNeverHandOutABlockTwice) {
  std::vector<void*> live = TakeMany(4000, 64);
  std::sort(live.begin(), live.end());
  const auto second =
      std::find_if(live.begin(), live.end(), [&](void* p) { return SlabOf(p) != SlabOf(live[0]); });
  ASSERT_NE(second, live.end());
  const std::uintptr_t secondSlab = SlabOf(*second);
  GiveAll({*(second - 1), *second}, 64);  // one block back from each of the first two slabs
  live.erase(second - 1, second + 1);
  const std::vector<void*> more = TakeMany(3000, 64);  // both taken back, then new slabs
  live.insert(live.end(), more.begin(), more.end());
  const auto emptied =
      std::partition(live.begin(), live.end(), [&](void* p) { return SlabOf(p) != secondSlab; });
  GiveAll(std::vector<void*>(emptied, live.end()), 64);  // the second slab empties
  live.erase(emptied, live.end());
  const std::vector<void*> last = TakeMany(3000, 64);
  live.insert(live.end(), last.begin(), last.end());
  EXPECT_TRUE(ApartInsideTheirSlabs(live, 64));
  GiveAll(live, 64);
}

TEST(RecordPool, ABlockDeletedOnAnotherThreadServesThatThreadsNextBlockOfItsSize) {
  void* block = CObject::operator new(80);
  void* next = nullptr;
  std::thread([&] {
    CObject::operator delete(block, 80);
    next = CObject::operator new(80);
    CObject::operator delete(next, 80);
  }).join();
  EXPECT_EQ(next, block);
}

#endif

}  // namespace
}  // namespace persona
