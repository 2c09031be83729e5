// Whole-file reads and crash-safe writes: a write that fails at any point leaves the file that
// was there byte for byte, and leaves no temporary file behind.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <persona/framework/exceptions.h>
#include <persona/framework/file_io.h>
#include <persona/io/personality_file.h>
#include <persona/personality/personality.h>
#include <persona/systems/trunk_set.h>
#include "support/test_data.h"

namespace persona {
namespace {

using test::Entries;
using test::FreshDir;

// A file that accepts `budget` bytes, then fails like a full disk; or fails when flushed.
class FaultyFile : public CFile {
 public:
  FaultyFile(const std::string& path, std::size_t budget, bool failFlush)
      : m_budget(budget), m_failFlush(failFlush) {
    Open(path, modeCreate | modeWrite);
  }
  void Write(const void* buffer, UINT count) override {
    if (count > m_budget) {
      CFile::Write(buffer, static_cast<UINT>(m_budget));
      throw CFileException(CFileException::diskFull, GetFilePath(), 28, "write");
    }
    m_budget -= count;
    CFile::Write(buffer, count);
  }
  void Flush() override {
    if (m_failFlush) throw CFileException(CFileException::diskFull, GetFilePath(), 5, "flush");
    CFile::Flush();
  }

 private:
  std::size_t m_budget;
  bool m_failFlush;
};

// Block by block: nothing is visible at the target before Commit; a writer dropped without
// Commit, or failing part-way, leaves the original and no temporary file; after Commit the
// file holds every block in order and the replaced one is the backup.
TEST(FileIo, StreamedWritesCommitOrLeaveTheOriginal) {
  const std::string dir = FreshDir("streamed");
  const std::string path = dir + "/report.txt";
  const std::vector<BYTE> original{9, 9};
  WriteFileAtomically(path, original);
  const std::vector<BYTE> block(70000, 0x5A);
  {
    AtomicFileWriter dropped(path);
    dropped.Write(block.data(), block.size());
    EXPECT_EQ(ReadWholeFile(path), original);
    EXPECT_EQ(Entries(dir).size(), 2u);
  }
  EXPECT_EQ(Entries(dir), std::vector<std::string>{"report.txt"});
  AtomicWriteOptions faulty;
  faulty.openTemp = [](const std::string& temp) -> std::unique_ptr<CFile> {
    return std::make_unique<FaultyFile>(temp, 100000, false);
  };
  AtomicFileWriter failing(path, faulty);
  failing.Write(block.data(), block.size());
  EXPECT_THROW(failing.Write(block.data(), block.size()), CFileException);
  EXPECT_THROW(failing.Commit(), CFileException);
  failing = AtomicFileWriter(path, {true, nullptr});
  EXPECT_EQ(Entries(dir).size(), 2u);
  EXPECT_EQ(ReadWholeFile(path), original);
  for (BYTE b : {1, 2}) failing.Write(&b, 1);
  AtomicFileWriter moved(std::move(failing));  // the write in progress goes with the writer
  const BYTE three = 3;
  moved.Write(&three, 1);
  moved.Commit();
  failing = std::move(moved);
  failing.Commit();
  EXPECT_THROW(failing.Write(block.data(), 1), CFileException);
  EXPECT_EQ(ReadWholeFile(path), (std::vector<BYTE>{1, 2, 3}));
  EXPECT_EQ(ReadWholeFile(path + ".bak"), original);
  EXPECT_EQ(Entries(dir), (std::vector<std::string>{"report.txt", "report.txt.bak"}));
}

// The message of the CFileException that f raises ("" when it raises none).
template <class F>
std::string FailureOf(F f) {
  try {
    f();
  } catch (const CFileException& e) {
    return e.what();
  }
  return "";
}

mode_t ModeOf(const std::string& path) {
  struct stat st {};
  lstat(path.c_str(), &st);
  return st.st_mode;
}

TEST(FileIo, WhatIsNotAFileIsRefusedAsAnInputWithWhatItIs) {
  const std::string dir = FreshDir("inputs");
  ASSERT_EQ(mkfifo((dir + "/fifo").c_str(), 0600), 0);
  const int sock = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  const std::string sockPath = dir + "/sock";
  ASSERT_LT(sockPath.size(), sizeof addr.sun_path);
  sockPath.copy(addr.sun_path, sockPath.size());
  ASSERT_EQ(bind(sock, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
  EXPECT_EQ(FailureOf([&] { ReadWholeFile(dir); }),
            "cannot read " + dir + ": it is a folder, not a file");
  EXPECT_EQ(FailureOf([&] { ReadWholeFile(dir + "/fifo"); }),
            "cannot read " + dir + "/fifo: it is a FIFO (named pipe), not a file");
  EXPECT_EQ(FailureOf([&] { ReadWholeFile(sockPath); }),
            "cannot read " + sockPath + ": it is a socket, not a file");
  EXPECT_EQ(FailureOf([] { ReadWholeFile("/dev/zero"); }),
            "cannot read /dev/zero: it is a character device, not a file");
  close(sock);
  // A sparse file past the limit is refused by its size, before anything is allocated.
  const std::string big = dir + "/big.pers";
  WriteFileAtomically(big, {1});
  ASSERT_EQ(truncate(big.c_str(), (2LL << 30) + 5), 0);
  EXPECT_EQ(FailureOf([&] { ReadWholeFile(big); }),
            "cannot read " + big +
                ": it is 2147483653 bytes, more than the limit of 1073741824 bytes (1 GiB)");
  // A link is read through; a missing file names itself.
  ASSERT_EQ(truncate(big.c_str(), 3), 0);
  ASSERT_EQ(symlink("big.pers", (dir + "/link").c_str()), 0);
  EXPECT_EQ(ReadWholeFile(dir + "/link"), (std::vector<BYTE>{1, 0, 0}));
  EXPECT_EQ(FailureOf([] { ReadWholeFile("/nonexistent/demo.pers"); }),
            "cannot open /nonexistent/demo.pers: No such file or directory");
}

TEST(FileIo, ALinkIsFollowedAndTheReplacedFileKeepsItsMode) {
  const std::string dir = FreshDir("links");
  const std::string real = dir + "/real.pers";
  WriteFileAtomically(real, {1, 2});
  const mode_t mask = umask(022);  // a new file is made as open(2) makes one: 0666 less the umask
  umask(mask);
  EXPECT_EQ(ModeOf(real) & 07777, 0666u & ~mask);
  ASSERT_EQ(chmod(real.c_str(), 0600), 0);
  ASSERT_EQ(symlink("real.pers", (dir + "/link.pers").c_str()), 0);
  AtomicWriteOptions backup;
  backup.keepBackup = true;
  WriteFileAtomically(dir + "/link.pers", {3}, backup);
  EXPECT_TRUE(S_ISLNK(ModeOf(dir + "/link.pers")));
  EXPECT_EQ(ModeOf(real) & 07777, 0600u);
  if (geteuid() == 0) {  // only root may give a file away; the owner then stays too
    ASSERT_EQ(chown(real.c_str(), 4321, 4322), 0);
    WriteFileAtomically(dir + "/link.pers", {3});
    struct stat st {};
    stat(real.c_str(), &st);
    EXPECT_EQ(st.st_uid, 4321u);
    EXPECT_EQ(st.st_gid, 4322u);
  }
  EXPECT_EQ(ReadWholeFile(real), std::vector<BYTE>{3});
  EXPECT_EQ(ReadWholeFile(real + ".bak"), (std::vector<BYTE>{1, 2}));
  // A link to a file not yet there makes the file; the link stays.
  ASSERT_EQ(symlink("later.pers", (dir + "/dangling").c_str()), 0);
  WriteFileAtomically(dir + "/dangling", {4});
  EXPECT_TRUE(S_ISLNK(ModeOf(dir + "/dangling")));
  EXPECT_EQ(ReadWholeFile(dir + "/later.pers"), std::vector<BYTE>{4});
  // 39 links in a row lead to the file, as open(2) follows them; 40 are refused as a loop.
  const std::string chain = FreshDir("link_chain");
  for (int links : {39, 40}) {
    const std::string end = chain + "/end" + std::to_string(links);
    for (int i = 0; i < links; ++i) {
      const std::string to =
          i + 1 == links ? end : chain + "/" + std::to_string(links) + "-" + std::to_string(i + 1);
      ASSERT_EQ(symlink(to.c_str(),
                        (chain + "/" + std::to_string(links) + "-" + std::to_string(i)).c_str()),
                0);
    }
    const std::string first = chain + "/" + std::to_string(links) + "-0";
    if (links == 39) {
      WriteFileAtomically(first, {6});
      EXPECT_EQ(ReadWholeFile(end), std::vector<BYTE>{6});
    } else {
      EXPECT_THROW(WriteFileAtomically(first, {6}), CFileException);
      EXPECT_FALSE(S_ISREG(ModeOf(end)));
    }
  }
  // A link whose target is longer than a first guess at its length.
  std::string far;
  for (int i = 0; i < 150; ++i) far += "./";
  ASSERT_EQ(symlink((far + "later.pers").c_str(), (dir + "/long.pers").c_str()), 0);
  WriteFileAtomically(dir + "/long.pers", {7});
  EXPECT_EQ(ReadWholeFile(dir + "/later.pers"), std::vector<BYTE>{7});
  // A name as long as a folder entry may be still gets a temporary name that fits.
  const std::string longName = dir + "/" + std::string(250, 'n') + ".pers";
  WriteFileAtomically(longName, {5});
  EXPECT_EQ(Entries(dir), (std::vector<std::string>{"dangling", "later.pers", "link.pers",
                                                    "long.pers", std::string(250, 'n') + ".pers",
                                                    "real.pers", "real.pers.bak"}));
}

TEST(FileIo, DevicesAndFifosAreWrittenInPlaceFoldersRefused) {
  const std::string dir = FreshDir("devices");
  WriteFileAtomically("/dev/null", {1, 2, 3});
  EXPECT_TRUE(S_ISCHR(ModeOf("/dev/null")));
  if (access("/dev/full", W_OK) == 0) {
    EXPECT_EQ(FailureOf([] { WriteFileAtomically("/dev/full", {1}); }),
              "cannot write /dev/full: No space left on device");
    EXPECT_TRUE(S_ISCHR(ModeOf("/dev/full")));
  }
  const std::string fifo = dir + "/fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_EQ(FailureOf([&] { WriteFileAtomically(fifo, {1}); }),
            "cannot write " + fifo + ": it is a FIFO (named pipe) that nothing reads");
  std::vector<BYTE> received;
  const int reader = open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  WriteFileAtomically(fifo, {7, 8});
  BYTE buffer[8];
  EXPECT_EQ(read(reader, buffer, sizeof buffer), 2);
  close(reader);
  EXPECT_TRUE(S_ISFIFO(ModeOf(fifo)));
  ASSERT_EQ(mkdir((dir + "/d").c_str(), 0700), 0);
  EXPECT_EQ(FailureOf([&] {
              WriteFileAtomically(dir + "/d", {1}, {true, nullptr});
            }),
            "cannot write " + dir + "/d: it is a folder, not a file");
  EXPECT_EQ(FailureOf([] { WriteFileAtomically("/nonexistent/folder/demo.pers", {1}); }),
            "cannot write /nonexistent/folder/demo.pers: the folder /nonexistent/folder does not "
            "exist");
  EXPECT_EQ(Entries(dir), (std::vector<std::string>{"d", "fifo"}));
}

// A personality with n trunk sets of ten channels each.
CPersonality WithTrunkSets(int n) {
  CPersonality p;
  for (int i = 0; i < n; ++i) {
    auto* set = new CTrunkSet;
    set->SetName(CString::Formatted("TRUNK%03d", i));
    for (int c = 0; c < 10; ++c) set->Add(new CTrunkChannel);
    p.AddSet(set, TrunkSetType);
  }
  return p;
}

// The system refuses bytes past the process's file size limit, as a full disk does: every
// write (a raw write, a personality save bigger than the limit but within the stdio buffer so
// that the flush fails, and one far bigger) fails with the file and the system's reason,
// without ending the process, and leaves the original byte for byte and no temporary file.
TEST(FileIo, RunningOutOfRoomFailsTheSaveAndKeepsTheOriginal) {
  const std::string dir = FreshDir("limit");
  const std::string path = dir + "/demo.pers";
  SavePersonalityFile(path, WithTrunkSets(1));
  const std::vector<BYTE> original = ReadWholeFile(path);
  const CPersonality small = WithTrunkSets(4);
  const CPersonality large = WithTrunkSets(60);
  ASSERT_GT(StorePersonalityBytes(small).size(), 1024u);
  const std::vector<std::pair<const char*, std::function<void()>>> saves = {
      {"write",
       [&] {
         WriteFileAtomically(path, std::vector<BYTE>(100000, 1), {true, nullptr});
       }},
      {"flush", [&] { SavePersonalityFile(path, small, false); }},
      {"flush", [&] { SavePersonalityFile(path, small, true); }},
      {"write", [&] { SavePersonalityFile(path, large, false); }},
      {"write", [&] { SavePersonalityFile(path, large, true); }}};
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const rlimit limit{1024, 1024};
    setrlimit(RLIMIT_FSIZE, &limit);
    for (std::size_t i = 0; i < saves.size(); ++i) {
      const std::string expected = std::string("cannot ") + saves[i].first + " " + path;
      if (FailureOf(saves[i].second) != expected + ": File too large" ||
          ReadWholeFile(path) != original || Entries(dir) != std::vector<std::string>{"demo.pers"})
        _exit(static_cast<int>(i + 1));
    }
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 0) << "the save that failed differently";
  // With room again the same save goes through.
  SavePersonalityFile(path, large, true);
  EXPECT_EQ(LoadPersonalityFile(path).personality->GetNumTrkSets(), 60);
  EXPECT_EQ(ReadWholeFile(path + ".bak"), original);
}

TEST(FileIo, TwoWritersAtOnceBothSucceedWithBackups) {
  const std::string dir = FreshDir("concurrent");
  const std::string path = dir + "/out.pers";
  WriteFileAtomically(path, {0});
  std::string failures;
  for (int round = 0; round < 50; ++round) {
    std::string first;
    std::string second;
    std::thread a([&] {
      first = FailureOf([&] { WriteFileAtomically(path, {1}, {true, nullptr}); });
    });
    second = FailureOf([&] { WriteFileAtomically(path, {2, 2}, {true, nullptr}); });
    a.join();
    failures += first + second;
  }
  EXPECT_EQ(failures, "");
  EXPECT_EQ(Entries(dir), (std::vector<std::string>{"out.pers", "out.pers.bak"}));
  EXPECT_LE(ReadWholeFile(path).size(), 2u);
}

}  // namespace
}  // namespace persona
