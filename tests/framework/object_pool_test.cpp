// Where records live: a block of any size, pooled or not, holds its bytes apart from every other
// block, with the heap's alignment, and can be freed and taken again.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
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

}  // namespace
}  // namespace persona
