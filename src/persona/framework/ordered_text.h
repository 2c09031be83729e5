// Text made in parts by several threads at once and handed on in part order by the caller's
// thread: how a big personality's report and JSON document are written in a fraction of the
// time, with what is held at any time bounded whatever the text's length.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace persona {

// Text gathered in memory kept at its full size (reused memory is never filled with zeros
// again): the first `used` bytes are the text, the rest is room.
struct TextPiece {
  std::string bytes;
  std::size_t used = 0;

  std::string_view Text() const { return std::string_view(bytes.data(), used); }
  std::size_t Room() const { return bytes.size() - used; }
  // Makes room for at least `size` more bytes; the text stays.
  void Reserve(std::size_t size) {
    if (Room() < size) bytes.resize(used + size);
  }
};

// The text a part hands on at a time: big enough that handing on costs little, small enough
// to stay in the cache.
inline constexpr std::size_t kTextPieceBytes = std::size_t{1} << 20;

// Takes the text of piece (never empty) and leaves piece empty, with memory of its own or
// none; throws to stop the part (what it throws, the part lets through).
using TextPieceHand = std::function<void(TextPiece& piece)>;
// Makes one part's text: appends it to piece (empty, with memory or none) and calls hand
// whenever piece holds about kTextPieceBytes; what piece holds when the part returns is the
// part's last text. May be called on any thread, several parts at once.
using TextPart = std::function<void(TextPiece& piece, const TextPieceHand& hand)>;
// Receives the next text, valid during the call only.
using TextSink = std::function<void(std::string_view text)>;

struct PERSONA_EXPORT OrderedTextOptions {
  // The worker threads that make the parts while the caller's thread hands their text on (at
  // most 64 are started); 0: the caller's thread makes them.
  unsigned workers = 0;
  // The most text, in bytes, that a part made ahead of the one being handed on holds before
  // its thread waits (a part holds at least one piece); with `workers` parts under way at most
  // about (workers + 1) x partBytes are held.
  std::size_t partBytes = std::size_t{8} << 20;
};

// Hands the text of every part to sink, part after part, on the caller's thread; with
// options.workers > 0 the parts are made by worker threads meanwhile (when no thread can be
// started, by the caller's). Throws what sink or a part throws (the threads are stopped and
// joined first), and std::bad_alloc.
PERSONA_EXPORT void MakeTextInOrder(const std::vector<TextPart>& parts, const TextSink& sink,
                                    const OrderedTextOptions& options = {});

}  // namespace persona
