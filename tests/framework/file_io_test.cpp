// Whole-file reads and crash-safe writes: a write that fails at any point leaves the file that
// was there byte for byte, and leaves no temporary file behind.
#include <gtest/gtest.h>

#include <dirent.h>

#include <algorithm>
#include <cstdlib>

#include <string>
#include <vector>

#include "framework/exceptions.h"
#include "framework/file_io.h"

namespace persona {
namespace {

std::string FreshDir(const std::string& name) {
  const std::string dir = ::testing::TempDir() + "/persona_" + name;
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

TEST(FileIo, WritesReadsAndKeepsABackup) {
  const std::string dir = FreshDir("atomic");
  const std::string path = dir + "/demo.pers";
  WriteFileAtomically(path, {1, 2, 3});
  EXPECT_EQ(ReadWholeFile(path), (std::vector<BYTE>{1, 2, 3}));
  AtomicWriteOptions options;
  options.keepBackup = true;
  WriteFileAtomically(path, {4, 5}, options);
  EXPECT_EQ(ReadWholeFile(path), (std::vector<BYTE>{4, 5}));
  EXPECT_EQ(ReadWholeFile(path + ".bak"), (std::vector<BYTE>{1, 2, 3}));
  EXPECT_EQ(Entries(dir), (std::vector<std::string>{"demo.pers", "demo.pers.bak"}));
}

TEST(FileIo, AFailedWriteLeavesTheOriginalUntouched) {
  const std::string dir = FreshDir("faulty");
  const std::string path = dir + "/demo.pers";
  const std::vector<BYTE> original(5000, 0xAB);
  WriteFileAtomically(path, original);
  const std::vector<BYTE> replacement(3 << 20, 0xCD);
  for (std::size_t budget : {std::size_t{0}, std::size_t{100}, std::size_t{(1 << 20) + 7}}) {
    for (bool failFlush : {false, true}) {
      if (failFlush && budget != 0) continue;
      AtomicWriteOptions options;
      options.keepBackup = true;
      options.openTemp = [&](const std::string& temp) -> std::unique_ptr<CFile> {
        return std::make_unique<FaultyFile>(temp, failFlush ? replacement.size() : budget,
                                            failFlush);
      };
      try {
        WriteFileAtomically(path, replacement, options);
        FAIL() << "the faulty write succeeded";
      } catch (const CFileException& e) {
        EXPECT_EQ(e.m_cause, CFileException::diskFull);
      }
      EXPECT_EQ(ReadWholeFile(path), original);
      EXPECT_EQ(Entries(dir), std::vector<std::string>{"demo.pers"});
    }
  }
}

TEST(FileIo, AWriterInPiecesCommitsOrLeavesNoTrace) {
  const std::string dir = FreshDir("pieces");
  const std::string path = dir + "/report.txt";
  WriteFileAtomically(path, {'o', 'l', 'd'});
  {
    CAtomicFileWriter abandoned(path);
    abandoned.Write("new", 3);
    EXPECT_EQ(Entries(dir).size(), 2u);  // the temporary file beside the old one
  }
  EXPECT_EQ(ReadWholeFile(path), (std::vector<BYTE>{'o', 'l', 'd'}));
  EXPECT_EQ(Entries(dir), std::vector<std::string>{"report.txt"});
  AtomicWriteOptions options;
  options.keepBackup = true;
  CAtomicFileWriter writer(path, options);
  writer.Write("ab", 2);
  writer.Write("", 0);
  writer.Write("c", 1);
  EXPECT_EQ(ReadWholeFile(path), (std::vector<BYTE>{'o', 'l', 'd'}));
  writer.Commit();
  EXPECT_EQ(ReadWholeFile(path), (std::vector<BYTE>{'a', 'b', 'c'}));
  EXPECT_EQ(ReadWholeFile(path + ".bak"), (std::vector<BYTE>{'o', 'l', 'd'}));
  EXPECT_EQ(Entries(dir), (std::vector<std::string>{"report.txt", "report.txt.bak"}));
}

TEST(FileIo, UnreadableAndUnwritablePathsRaiseFileFailures) {
  EXPECT_THROW(ReadWholeFile("/nonexistent/demo.pers"), CFileException);
  try {
    WriteFileAtomically("/nonexistent/folder/demo.pers", {1});
    FAIL();
  } catch (const CFileException& e) {
    EXPECT_NE(std::string(e.what()).find("/nonexistent/folder/demo.pers"), std::string::npos);
  }
}

}  // namespace
}  // namespace persona
