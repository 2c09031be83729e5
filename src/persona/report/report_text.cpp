// The report as text, its parts made by several threads (see report_text.h).
#include <persona/report/report_text.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <persona/framework/short_copy.h>
#include <persona/report/personality_report.h>

namespace persona {

namespace {

// The text a part hands on at a time: big enough that handing on costs little, small enough
// to stay in the cache.
constexpr std::size_t kPieceBytes = std::size_t{1024} << 10;
// More threads than this are not started, whatever the options ask.
constexpr unsigned kMostThreads = 64;

// Text of whole lines, gathered in memory kept at its full size (it is never filled with
// zeros again when reused): the first `used` bytes are the text.
struct Piece {
  std::string bytes;
  std::size_t used = 0;

  std::string_view Text() const { return std::string_view(bytes.data(), used); }
  std::size_t Room() const { return bytes.size() - used; }
  // Appends line and its "\n"; there must be room for them.
  void AddLine(const std::string& line) {
    char* to = &bytes[used];
    CopyShort(to, line.data(), line.size());
    to[line.size()] = '\n';
    used += line.size() + 1;
  }
};

// The room a piece is made with beyond kPieceBytes, so that a batch of lines taken when it is
// almost full still fits.
constexpr std::size_t kPieceSlack = std::size_t{64} << 10;

// Makes part's text and calls hand(piece) with about kPieceBytes of whole lines at a time, and
// with the rest at the end; hand leaves piece empty (it takes it or is done with it).
template <class Hand>
void MakeText(const ReportPart& part, const Hand& hand) {
  Piece piece;
  const auto take = [&piece, &hand](CStringArray& lines) {
    std::size_t size = 0;
    for (const CString& line : lines) size += line.str().size() + 1;
    if (piece.Room() < size) {
      if (piece.used != 0) hand(piece);
      if (piece.Room() < size) piece.bytes.resize(std::max(size, kPieceBytes + kPieceSlack));
    }
    for (const CString& line : lines) piece.AddLine(line.str());
    lines.RemoveAll();
    if (piece.used >= kPieceBytes) hand(piece);
  };
  CStringArray lines;
  part(lines, [&take](CStringArray& made) {
    if (made.GetSize() >= kReportPieceLines) take(made);
  });
  take(lines);
  if (piece.used != 0) hand(piece);
}

// Parts made by worker threads, their text handed on in order by the caller's thread. Part k
// is started only when the parts before k - window have been handed on, into slot k % window;
// a part's thread waits while its slot holds partBytes, so at most window slots of text are
// held. The part being handed on always moves (its slot is being emptied), and the parts after
// it wait for nothing but it: no thread waits on one that waits on it.
class ParallelText {
 public:
  ParallelText(const std::vector<ReportPart>& parts, const ReportTextSink& sink,
               const ReportTextOptions& options)
      : m_parts(parts),
        m_sink(sink),
        m_partBytes(std::max<std::size_t>(options.partBytes, 1)),
        m_window(options.threads + 1),
        m_slots(m_window) {}
  ParallelText(const ParallelText&) = delete;
  ParallelText& operator=(const ParallelText&) = delete;
  ~ParallelText() { Stop(); }

  // Starts up to `threads` workers; false when none could be started.
  bool Start(unsigned threads) {
    for (unsigned i = 0; i < threads; ++i) {
      try {
        m_workers.emplace_back([this] { Work(); });
      } catch (const std::system_error&) {
        break;  // fewer threads then
      }
    }
    return !m_workers.empty();
  }

  // Hands every part's text to the sink in order. Throws what the sink or a part throws.
  void HandOn() {
    for (std::size_t k = 0; k < m_parts.size(); ++k) {
      Slot& slot = m_slots[k % m_window];
      for (;;) {
        std::unique_lock<std::mutex> lock(m_lock);
        m_filled.wait(lock, [&slot] { return !slot.pieces.empty() || slot.done; });
        if (slot.pieces.empty()) {
          if (slot.error) std::rethrow_exception(slot.error);
          slot = Slot();
          ++m_current;
          lock.unlock();
          m_emptied.notify_all();
          break;
        }
        Piece piece = std::move(slot.pieces.front());
        slot.pieces.pop_front();
        slot.bytes -= piece.used;
        lock.unlock();
        m_emptied.notify_all();
        m_sink(piece.Text());
        piece.used = 0;
        lock.lock();
        if (m_spares.size() < m_window * 2) m_spares.push_back(std::move(piece));
      }
    }
  }

 private:
  struct Slot {
    std::deque<Piece> pieces;
    std::size_t bytes = 0;
    bool done = false;
    std::exception_ptr error;
  };
  struct Stopped {};  // ends a worker whose text is no longer wanted

  void Work() {
    for (;;) {
      std::size_t k = 0;
      {
        std::unique_lock<std::mutex> lock(m_lock);
        m_emptied.wait(lock, [this] {
          return m_stop || m_next >= m_parts.size() || m_next < m_current + m_window;
        });
        if (m_stop || m_next >= m_parts.size()) return;
        k = m_next++;
      }
      Slot& slot = m_slots[k % m_window];
      std::exception_ptr error;
      try {
        MakeText(m_parts[k], [this, &slot](Piece& piece) { Put(slot, piece); });
      } catch (const Stopped&) {
        return;
      } catch (...) {
        error = std::current_exception();
      }
      {
        std::lock_guard<std::mutex> lock(m_lock);
        slot.done = true;
        slot.error = error;
      }
      m_filled.notify_one();
    }
  }

  void Put(Slot& slot, Piece& piece) {
    std::unique_lock<std::mutex> lock(m_lock);
    m_emptied.wait(lock, [this, &slot] { return m_stop || slot.bytes < m_partBytes; });
    if (m_stop) throw Stopped();
    slot.bytes += piece.used;
    slot.pieces.push_back(std::move(piece));
    piece = Piece();
    if (!m_spares.empty()) {
      piece = std::move(m_spares.back());  // a piece handed on, its memory taken again
      m_spares.pop_back();
    }
    lock.unlock();
    m_filled.notify_one();
  }

  void Stop() {
    {
      std::lock_guard<std::mutex> lock(m_lock);
      m_stop = true;
    }
    m_emptied.notify_all();
    for (std::thread& worker : m_workers) worker.join();
  }

  const std::vector<ReportPart>& m_parts;
  const ReportTextSink& m_sink;
  const std::size_t m_partBytes;
  const std::size_t m_window;
  std::vector<Slot> m_slots;
  std::vector<Piece> m_spares;  // emptied pieces, for the workers to fill again
  std::vector<std::thread> m_workers;
  std::mutex m_lock;
  std::condition_variable m_filled;   // a slot got a piece or was finished
  std::condition_variable m_emptied;  // a slot lost a piece, or a part was handed on
  std::size_t m_next = 0;             // the next part to start
  std::size_t m_current = 0;          // the part being handed on
  bool m_stop = false;
};

}  // namespace

void StreamPersonalityReportText(const CPersonality& personality, const ReportTextSink& sink,
                                 const ReportTextOptions& options) {
  const std::vector<ReportPart> parts = PersonalityReportParts(personality);
  ReportTextOptions taken = options;
  taken.threads = std::min(options.threads, kMostThreads);
  if (taken.threads > 1 && parts.size() > 1) {
    ParallelText text(parts, sink, taken);
    if (text.Start(taken.threads)) {
      text.HandOn();
      return;
    }
  }
  for (const ReportPart& part : parts) {
    MakeText(part, [&sink](Piece& piece) {
      sink(piece.Text());
      piece.used = 0;
    });
  }
}

}  // namespace persona
