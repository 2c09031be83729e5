// Text made in parts by worker threads, handed on in order (see ordered_text.h).
#include <persona/framework/ordered_text.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace persona {

namespace {

// More threads than this are not started, whatever the options ask.
constexpr unsigned kMostThreads = 64;

// Parts made by worker threads, their text handed on in order by the caller's thread. Part k
// is started only when the parts before k - window have been handed on, into slot k % window;
// a part's thread waits while its slot holds partBytes, so at most window slots of text are
// held. The part being handed on always moves (its slot is being emptied), and the parts after
// it wait for nothing but it: no thread waits on one that waits on it.
class ParallelText {
 public:
  ParallelText(const std::vector<TextPart>& parts, const TextSink& sink,
               const OrderedTextOptions& options)
      : m_parts(parts),
        m_sink(sink),
        m_partBytes(std::max<std::size_t>(options.partBytes, 1)),
        m_window(options.workers + 1),
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
        TextPiece piece = std::move(slot.pieces.front());
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
    std::deque<TextPiece> pieces;
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
      TextPiece piece = Spare();
      try {
        m_parts[k](piece, [this, &slot](TextPiece& full) { Put(slot, full); });
      } catch (const Stopped&) {
        return;
      } catch (...) {
        error = std::current_exception();
      }
      {
        std::lock_guard<std::mutex> lock(m_lock);
        if (piece.used != 0 && !error) {
          slot.bytes += piece.used;
          slot.pieces.push_back(std::move(piece));
        } else if (m_spares.size() < m_window * 2) {
          piece.used = 0;
          m_spares.push_back(std::move(piece));
        }
        slot.done = true;
        slot.error = error;
      }
      m_filled.notify_one();
    }
  }

  void Put(Slot& slot, TextPiece& piece) {
    std::unique_lock<std::mutex> lock(m_lock);
    m_emptied.wait(lock, [this, &slot] { return m_stop || slot.bytes < m_partBytes; });
    if (m_stop) throw Stopped();
    slot.bytes += piece.used;
    slot.pieces.push_back(std::move(piece));
    piece = TakeSpare();
    lock.unlock();
    m_filled.notify_one();
  }

  // A piece handed on, its memory taken again, or a new one; m_lock must be held.
  TextPiece TakeSpare() {
    TextPiece piece;
    if (!m_spares.empty()) {
      piece = std::move(m_spares.back());
      m_spares.pop_back();
    }
    return piece;
  }
  TextPiece Spare() {
    std::lock_guard<std::mutex> lock(m_lock);
    return TakeSpare();
  }

  void Stop() {
    {
      std::lock_guard<std::mutex> lock(m_lock);
      m_stop = true;
    }
    m_emptied.notify_all();
    for (std::thread& worker : m_workers) worker.join();
  }

  const std::vector<TextPart>& m_parts;
  const TextSink& m_sink;
  const std::size_t m_partBytes;
  const std::size_t m_window;
  std::vector<Slot> m_slots;
  std::vector<TextPiece> m_spares;  // emptied pieces, for the workers to fill again
  std::vector<std::thread> m_workers;
  std::mutex m_lock;
  std::condition_variable m_filled;   // a slot got a piece or was finished
  std::condition_variable m_emptied;  // a slot lost a piece, or a part was handed on
  std::size_t m_next = 0;             // the next part to start
  std::size_t m_current = 0;          // the part being handed on
  bool m_stop = false;
};

}  // namespace

void MakeTextInOrder(const std::vector<TextPart>& parts, const TextSink& sink,
                     const OrderedTextOptions& options) {
  OrderedTextOptions taken = options;
  taken.workers = std::min(options.workers, kMostThreads);
  if (taken.workers > 0 && parts.size() > 1) {
    ParallelText text(parts, sink, taken);
    if (text.Start(taken.workers)) {
      text.HandOn();
      return;
    }
  }
  const TextPieceHand hand = [&sink](TextPiece& piece) {
    sink(piece.Text());
    piece.used = 0;
  };
  TextPiece piece;
  for (const TextPart& part : parts) {
    part(piece, hand);
    if (piece.used != 0) hand(piece);
  }
}

}  // namespace persona
