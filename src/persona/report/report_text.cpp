// The report as text, its parts made by several threads (see report_text.h).
#include <persona/report/report_text.h>

#include <algorithm>
#include <string>
#include <vector>

#include <persona/framework/short_copy.h>
#include <persona/report/personality_report.h>

namespace persona {

namespace {

// Appends line and its "\n" to piece, which must have room for them.
void AddLine(TextPiece& piece, const std::string& line) {
  char* to = &piece.bytes[piece.used];
  CopyShort(to, line.data(), line.size());
  to[line.size()] = '\n';
  piece.used += line.size() + 1;
}

// The room a piece is made with beyond kTextPieceBytes, so that a batch of lines taken when it is
// almost full still fits.
constexpr std::size_t kPieceSlack = std::size_t{64} << 10;

// Appends part's text to piece and calls hand(piece) with about kTextPieceBytes of whole lines
// at a time; the rest stays in piece.
void MakeText(const ReportPart& part, TextPiece& piece, const TextPieceHand& hand) {
  const auto take = [&piece, &hand](CStringArray& lines) {
    std::size_t size = 0;
    for (const CString& line : lines) size += line.str().size() + 1;
    if (piece.Room() < size) {
      if (piece.used != 0) hand(piece);
      piece.Reserve(std::max(size, kTextPieceBytes + kPieceSlack));
    }
    for (const CString& line : lines) AddLine(piece, line.str());
    lines.RemoveAll();
    if (piece.used >= kTextPieceBytes) hand(piece);
  };
  CStringArray lines;
  part(lines, [&take](CStringArray& made) {
    if (made.GetSize() >= kReportPieceLines) take(made);
  });
  take(lines);
}

}  // namespace

void StreamPersonalityReportText(const CPersonality& personality, const ReportTextSink& sink,
                                 const ReportTextOptions& options) {
  const std::vector<ReportPart> reportParts = PersonalityReportParts(personality);
  std::vector<TextPart> parts;
  parts.reserve(reportParts.size());
  for (const ReportPart& part : reportParts)
    parts.emplace_back(
        [&part](TextPiece& piece, const TextPieceHand& hand) { MakeText(part, piece, hand); });
  MakeTextInOrder(parts, sink, options);
}

}  // namespace persona
