// Saves that fail part-way because the system refuses more bytes, as a full disk does: the
// process's file size limit is lowered below the size of what is being written, so the
// operating system itself fails the write (or the flush, when the bytes still fit the stdio
// buffer). The file that was there must stay byte for byte, no temporary file may be left,
// and the failure must name the file and the system's reason.
#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include <persona/framework/exceptions.h>
#include <persona/framework/file_io.h>
#include <persona/io/personality_file.h>
#include <persona/personality/personality.h>
#include <persona/systems/trunk_set.h>

namespace persona {
namespace {

// Lowers the file size limit of the process for its lifetime (writes past it fail with EFBIG
// instead of raising SIGXFSZ); restores the limit and the signal afterwards.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &m_saved);
    m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit lowered = m_saved;
    lowered.rlim_cur = bytes;
    m_ok = setrlimit(RLIMIT_FSIZE, &lowered) == 0;
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_saved);
    std::signal(SIGXFSZ, m_oldHandler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  bool ok() const { return m_ok; }

 private:
  rlimit m_saved{};
  void (*m_oldHandler)(int) = nullptr;
  bool m_ok = false;
};

std::string FreshDir(const std::string& name) {
  const std::string dir = ::testing::TempDir() + "/persona_hardening_" + name;
  std::system(("rm -rf '" + dir + "' && mkdir -p '" + dir + "'").c_str());
  return dir;
}

std::vector<std::string> Entries(const std::string& dir) {
  std::vector<std::string> out;
  if (DIR* d = opendir(dir.c_str())) {
    while (dirent* e = readdir(d)) {
      const std::string name = e->d_name;
      if (name != "." && name != "..") out.push_back(name);
    }
    closedir(d);
  }
  std::sort(out.begin(), out.end());
  return out;
}

// A personality with n trunk sets of ten channels each.
CPersonality WithTrunkSets(int n) {
  CPersonality p;
  p.SetName(CString::Formatted("Sets%d", n));
  for (int i = 0; i < n; ++i) {
    auto* set = new CTrunkSet;
    set->SetName(CString::Formatted("TRUNK%03d", i));
    for (int c = 0; c < 10; ++c) set->Add(new CTrunkChannel);
    p.AddSet(set, TrunkSetType);
  }
  return p;
}

constexpr rlim_t kLimit = 1024;

TEST(CrashSafeSave, APersonalitySaveThatRunsOutOfRoomLeavesTheOriginalByteIdentical) {
  const std::string dir = FreshDir("save");
  const std::string path = dir + "/radio.pers";
  SavePersonalityFile(path, WithTrunkSets(1));
  const std::vector<BYTE> original = ReadWholeFile(path);

  // Bigger than the limit but within the stdio buffer (fails at the flush), and far bigger
  // (fails in the middle of the writes).
  for (int sets : {4, 60}) {
    const CPersonality replacement = WithTrunkSets(sets);
    ASSERT_GT(StorePersonalityBytes(replacement).size(), kLimit);
    for (bool keepBackup : {false, true}) {
      std::string message;
      {
        FileSizeLimit limit(kLimit);
        ASSERT_TRUE(limit.ok());
        try {
          SavePersonalityFile(path, replacement, keepBackup);
        } catch (const CFileException& e) {
          message = e.what();
        }
      }
      EXPECT_NE(message.find(path), std::string::npos) << sets << ": " << message;
      EXPECT_NE(message.find("too large"), std::string::npos) << message;
      EXPECT_EQ(ReadWholeFile(path), original) << sets << " sets, backup " << keepBackup;
      EXPECT_EQ(Entries(dir), std::vector<std::string>{"radio.pers"});
    }
  }
  // With room again the same save goes through.
  SavePersonalityFile(path, WithTrunkSets(60), true);
  EXPECT_EQ(LoadPersonalityFile(path).personality->GetNumTrkSets(), 60);
  EXPECT_EQ(ReadWholeFile(path + ".bak"), original);
}

TEST(CrashSafeSave, AnAtomicWriteThatRunsOutOfRoomLeavesTheOriginalByteIdentical) {
  const std::string dir = FreshDir("write");
  const std::string path = dir + "/global.GRS";
  const std::vector<BYTE> original(kLimit / 2, 0x5A);
  WriteFileAtomically(path, original);
  for (std::size_t size : {std::size_t{kLimit + 1}, std::size_t{3} << 20}) {
    {
      FileSizeLimit limit(kLimit);
      ASSERT_TRUE(limit.ok());
      EXPECT_THROW(WriteFileAtomically(path, std::vector<BYTE>(size, 0xA5)), CFileException);
    }
    EXPECT_EQ(ReadWholeFile(path), original) << size;
    EXPECT_EQ(Entries(dir), std::vector<std::string>{"global.GRS"});
  }
}

}  // namespace
}  // namespace persona
